#pragma once

#include <xcb/xcb.h>

namespace tessel {

/// The number that no window has.
inline constexpr xcb_window_t noWindow = XCB_WINDOW_NONE;

} // namespace tessel
