#pragma once

#include <QtCore/QStringList>

#include <optional>
#include <variant>

#include "Updates/SignedUpdateFeed.h"

namespace tessel {

/// Where updates are to be had, as whoever has installed the program says.
struct UpdateConfiguration {
    SignedUpdateFeed::Source source;
    std::optional<double> interval; ///< Seconds between automatic checks. None: there are none.
};

/// Somebody has said it in a way that cannot be understood.
struct BrokenUpdateConfiguration {};

/// Reads `tessel-clipboard/updates.json` in the first of these directories that has it: a JSON object with
/// "feed", an `https` address, "publicKey", the Ed25519 key in base64, and "interval" in seconds, which may
/// be missing or 0 for no automatic checks. The empty alternative: no directory has it.
std::variant<std::monostate, UpdateConfiguration, BrokenUpdateConfiguration>
readUpdateConfiguration(const QStringList& directories);

/// The directories of installed configuration (`$XDG_CONFIG_DIRS`, XDG Base Directory) that exist, most
/// important first, without those in the user's home, which some desktops add: what lies there was put there
/// by the user's programs, not by an installation. Symbolic links are resolved.
QStringList installedConfigurationDirectories();

} // namespace tessel
