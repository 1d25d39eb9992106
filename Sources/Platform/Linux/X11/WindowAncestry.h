#pragma once

#include <functional>
#include <memory>
#include <vector>

#include "X11/X11Connection.h"

namespace tessel {

/// A window and the windows it lies in, from the inside out, without the root window. Empty: the window does
/// not exist, or has gone while it was being asked about.
using WindowAncestry = std::vector<xcb_window_t>;

/// Asks for the windows that `window` lies in, one round trip for each; waits for them.
WindowAncestry ancestryOf(X11Connection& connection, xcb_window_t window);

/// The same without waiting. `handler` runs later, or never once `owner` is gone, which must not outlive the
/// connection.
void findAncestry(X11Connection& connection, xcb_window_t window, std::weak_ptr<const void> owner,
                  std::function<void(const WindowAncestry&)> handler);

} // namespace tessel
