#pragma once

#include <xcb/xcb.h>

#include "X11/NoWindow.h"
#include "X11/X11Atoms.h"

namespace tessel {

/// Asks the window manager to make a window the active one, on the user's behalf (EWMH,
/// `_NET_ACTIVE_WINDOW`). `currentlyActive` is our own active window or none. The request is queued on
/// `connection`.
void requestActivation(xcb_connection_t* connection, xcb_window_t root, const X11Atoms& atoms,
                       xcb_window_t window, xcb_timestamp_t userTime, xcb_window_t currentlyActive);

/// Raises a window and gives it the focus where no window manager does that. The requests are queued on
/// `connection`.
void raiseAndFocus(xcb_connection_t* connection, xcb_window_t window, xcb_timestamp_t userTime);

} // namespace tessel
