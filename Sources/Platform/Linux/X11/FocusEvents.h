#pragma once

#include <xcb/xcb.h>

namespace tessel {

/// What a focus event of a window tells about where the user's keys go.
enum class FocusMeaning {
    gained,  ///< Into this window, or a window inside it.
    lost,    ///< Out of this window and everything inside it.
    nothing, ///< The focus has not moved across the edge of this window.
};

/// Reads a FocusIn or FocusOut event (X protocol, chapter 10). A keyboard grab sends such events too, though
/// the focus stays where it is; so does the pointer that crosses a window while the focus follows it.
FocusMeaning meaningOfFocusEvent(const xcb_focus_in_event_t& event);

} // namespace tessel
