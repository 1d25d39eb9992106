#pragma once

#include <xcb/xcb.h>

#include <chrono>
#include <functional>
#include <map>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "Deadline.h"
#include "Reply.h"

namespace tessel::desktop {

/// One connection to an X server, with what every part of the fixture needs of it. For one thread.
class XConnection {
public:
    /// Throws `DesktopFailure` if the server cannot be reached.
    explicit XConnection(const std::string& displayName);
    ~XConnection();
    XConnection(const XConnection&) = delete;
    XConnection& operator=(const XConnection&) = delete;

    xcb_connection_t* get() const { return connection_; }
    const xcb_screen_t& screen() const { return *screen_; }
    xcb_window_t root() const { return screen_->root; }

    xcb_atom_t atom(std::string_view name);
    /// Returns when the server has carried out everything sent before.
    void synchronize();
    /// Sends what is buffered.
    void flush() { xcb_flush(connection_); }

    /// The bytes of a property, whatever its type; none if the window or the property does not exist.
    std::optional<std::string> propertyBytes(xcb_window_t window, std::string_view name);
    /// The 32-bit items of a property; empty if there are none.
    std::vector<std::uint32_t> propertyItems(xcb_window_t window, std::string_view name);
    xcb_window_t selectionOwner(std::string_view selection);

    /// Returns once `condition` holds. It is looked at again after every event of the desktop, and at least
    /// every 20 milliseconds, since not every change is announced to everybody. Throws `DesktopFailure` with
    /// the text `awaited` when the deadline passes.
    void waitUntil(std::string_view awaited, const std::function<bool()>& condition,
                   Deadline deadline = Deadline());

    /// Waits for an event until the deadline; null when it passes.
    Reply<xcb_generic_event_t> nextEvent(Deadline deadline);

private:
    /// Waits until the server has something to say; false when the moment passes before.
    bool awaitReadable(std::chrono::milliseconds patience) const;

    xcb_connection_t* connection_;
    xcb_screen_t* screen_;
    std::map<std::string, xcb_atom_t, std::less<>> atoms_;
};

} // namespace tessel::desktop
