#include <gtest/gtest.h>

#include "X11/FocusEvents.h"

namespace tessel {
namespace {

FocusMeaning meaning(std::uint8_t kind, std::uint8_t mode, std::uint8_t detail)
{
    xcb_focus_in_event_t event{};
    event.response_type = kind;
    event.mode = mode;
    event.detail = detail;
    return meaningOfFocusEvent(event);
}

TEST(FocusEvents, aGrabDoesNotMoveTheFocus)
{
    for (const auto mode : {XCB_NOTIFY_MODE_GRAB, XCB_NOTIFY_MODE_UNGRAB})
        for (const auto kind : {std::uint8_t{XCB_FOCUS_IN}, std::uint8_t{XCB_FOCUS_OUT}})
            EXPECT_EQ(meaning(kind, static_cast<std::uint8_t>(mode), XCB_NOTIFY_DETAIL_NONLINEAR),
                      FocusMeaning::nothing);
}

TEST(FocusEvents, theFocusMayMoveDuringAGrab)
{
    EXPECT_EQ(meaning(XCB_FOCUS_IN, XCB_NOTIFY_MODE_WHILE_GRABBED, XCB_NOTIFY_DETAIL_NONLINEAR),
              FocusMeaning::gained);
    EXPECT_EQ(meaning(XCB_FOCUS_OUT, XCB_NOTIFY_MODE_WHILE_GRABBED, XCB_NOTIFY_DETAIL_NONLINEAR),
              FocusMeaning::lost);
}

TEST(FocusEvents, thePointerDoesNotMoveTheFocus)
{
    for (const auto detail :
         {XCB_NOTIFY_DETAIL_POINTER, XCB_NOTIFY_DETAIL_POINTER_ROOT, XCB_NOTIFY_DETAIL_NONE})
        for (const auto kind : {std::uint8_t{XCB_FOCUS_IN}, std::uint8_t{XCB_FOCUS_OUT}})
            EXPECT_EQ(meaning(kind, XCB_NOTIFY_MODE_NORMAL, static_cast<std::uint8_t>(detail)),
                      FocusMeaning::nothing);
}

TEST(FocusEvents, movingIntoAWindowInsideKeepsTheFocus)
{
    EXPECT_EQ(meaning(XCB_FOCUS_OUT, XCB_NOTIFY_MODE_NORMAL, XCB_NOTIFY_DETAIL_INFERIOR),
              FocusMeaning::nothing);
    EXPECT_EQ(meaning(XCB_FOCUS_IN, XCB_NOTIFY_MODE_NORMAL, XCB_NOTIFY_DETAIL_VIRTUAL), FocusMeaning::gained);
    EXPECT_EQ(meaning(XCB_FOCUS_OUT, XCB_NOTIFY_MODE_NORMAL, XCB_NOTIFY_DETAIL_NONLINEAR_VIRTUAL),
              FocusMeaning::lost);
}

} // namespace
} // namespace tessel
