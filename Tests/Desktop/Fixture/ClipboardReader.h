#pragma once

#include <optional>
#include <string>
#include <vector>

#include "XConnection.h"

namespace tessel::desktop {

/// Asks the owner of the CLIPBOARD selection for its value, as a program that pastes does.
class ClipboardReader {
public:
    explicit ClipboardReader(const std::string& displayName);

    /// The value of a target, received in pieces where the owner sends pieces. None if it is refused; throws
    /// `DesktopFailure` if the owner does not answer until the deadline.
    std::optional<std::string> read(const std::string& target, Deadline deadline = Deadline());
    std::optional<std::string> readText(Deadline deadline = Deadline())
    {
        return read("UTF8_STRING", deadline);
    }
    /// The names of the targets that the owner offers.
    std::vector<std::string> targets(Deadline deadline = Deadline());

private:
    std::string readPieces(xcb_atom_t property, Deadline deadline);
    /// The value of the property, which is deleted; its type goes to `type`.
    std::string takeProperty(xcb_atom_t property, xcb_atom_t& type);
    Reply<xcb_generic_event_t> awaitEvent(std::uint8_t type, const std::string& awaited, Deadline deadline);

    XConnection connection_;
    xcb_window_t window_;
};

} // namespace tessel::desktop
