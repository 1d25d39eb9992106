#pragma once

#include <array>
#include <cstdint>

#include <xcb/xcb.h>

#include "X11/NoWindow.h"
#include "X11/X11Atoms.h"

namespace tessel {

/// Sends the window manager a request about a window, as a message to the root window (EWMH section 1). It is
/// queued on `connection`.
void requestOfWindowManager(xcb_connection_t* connection, xcb_window_t root, xcb_window_t window,
                            xcb_atom_t request, const std::array<std::uint32_t, 5>& details);

/// Asks the window manager to make a window the active one, on the user's behalf (EWMH,
/// `_NET_ACTIVE_WINDOW`). `currentlyActive` is our own active window or none. The request is queued on
/// `connection`.
void requestActivation(xcb_connection_t* connection, xcb_window_t root, const X11Atoms& atoms,
                       xcb_window_t window, xcb_timestamp_t userTime, xcb_window_t currentlyActive);

/// Raises a window and gives it the focus where no window manager does that. The requests are queued on
/// `connection`.
void raiseAndFocus(xcb_connection_t* connection, xcb_window_t window, xcb_timestamp_t userTime);

} // namespace tessel
