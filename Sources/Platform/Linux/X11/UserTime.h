#pragma once

#include <optional>
#include <string_view>

#include <xcb/xcb.h>

namespace tessel {

/// When the user last did something with this program, by the X server's clock: what window managers compare
/// before they let a window take the focus (EWMH, `_NET_WM_USER_TIME`). It comes from the presses of hot
/// keys, from the input events of our own windows, and from whoever started the program or asked it for
/// something.
class UserTime {
public:
    /// In milliseconds. `XCB_CURRENT_TIME` (0): it is not known when, or the user has not done anything yet.
    xcb_timestamp_t last() const { return last_; }

    /// Takes `time` unless a later one is known. The server's clock wraps around after 49.7 days. 0 says
    /// nothing.
    void note(xcb_timestamp_t time);

    /// Takes the time from a startup identifier (`DESKTOP_STARTUP_ID`, or an activation token handed over by
    /// another program). Without one the user has just asked for something, by a command say, at a time that
    /// nobody knows: an older one would lose the focus to whatever the user did in between.
    void noteStartupIdentifier(std::string_view identifier);

private:
    xcb_timestamp_t last_ = XCB_CURRENT_TIME;
};

/// The time that a startup identifier ends in: `_TIME` and a number (Startup Notification Protocol). None: it
/// has no time.
std::optional<xcb_timestamp_t> timeOfStartupIdentifier(std::string_view identifier);

} // namespace tessel
