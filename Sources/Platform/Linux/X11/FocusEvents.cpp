#include "X11/FocusEvents.h"

namespace tessel {

FocusMeaning meaningOfFocusEvent(const xcb_focus_in_event_t& event)
{
    if (event.mode == XCB_NOTIFY_MODE_GRAB || event.mode == XCB_NOTIFY_MODE_UNGRAB)
        return FocusMeaning::nothing;
    constexpr unsigned int sentBit = 0x80;
    const bool isFocusIn = (event.response_type & ~sentBit) == XCB_FOCUS_IN;
    switch (event.detail) {
    case XCB_NOTIFY_DETAIL_ANCESTOR:
    case XCB_NOTIFY_DETAIL_VIRTUAL:
    case XCB_NOTIFY_DETAIL_NONLINEAR:
    case XCB_NOTIFY_DETAIL_NONLINEAR_VIRTUAL:
        return isFocusIn ? FocusMeaning::gained : FocusMeaning::lost;
    case XCB_NOTIFY_DETAIL_INFERIOR:
        return isFocusIn ? FocusMeaning::gained : FocusMeaning::nothing;
    default:
        return FocusMeaning::nothing;
    }
}

} // namespace tessel
