#pragma once

#include <QtCore/QString>

#include <array>

namespace tessel {

/// Where the platform data of `org.freedesktop.Application` has the token of the user's action: under X11's
/// name, and under Wayland's, which some launchers use for both. The first one counts.
inline constexpr std::array startupIDKeys = {QLatin1StringView("desktop-startup-id"),
                                             QLatin1StringView("activation-token")};

} // namespace tessel
