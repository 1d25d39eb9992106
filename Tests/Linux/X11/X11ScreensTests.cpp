#include "Desktop.h"

#include "OtherWindow.h"
#include "WaitUntil.h"

namespace tessel {
namespace {

using X11ScreensBareTests = BareDesktop;
using X11ScreensManagedTests = ManagedDesktop;

const Rect wholeScreen{{0, 0}, {1280, 1024}};

TEST_F(X11ScreensBareTests, theScreenIsVisibleAsAWholeWithoutDocks)
{
    const auto screens = room.screens->screens();
    ASSERT_EQ(screens.size(), 1U);
    EXPECT_EQ(screens.front().frame, wholeScreen);
    EXPECT_EQ(screens.front().visibleFrame, wholeScreen);
    ASSERT_TRUE(room.screens->mainScreen());
    EXPECT_EQ(room.screens->mainScreen()->frame, wholeScreen);
}

TEST_F(X11ScreensBareTests, thePointerIsMeasuredFromTheBottomLeftCorner)
{
    typist.movePointer(10, 20);
    EXPECT_EQ(room.screens->mouseLocation(), (Point{10, 1004}));
    typist.movePointer(1279, 1023);
    EXPECT_EQ(room.screens->mouseLocation(), (Point{1279, 1}));
}

TEST_F(X11ScreensBareTests, withoutAWindowManagerDocksAreFoundAllTheSame)
{
    const auto visible = [this] { return room.screens->screens().front().visibleFrame; };
    OtherWindow noDock;
    noDock.show();
    {
        OtherWindow dock("Dock");
        dock.becomeDock({0, 0, 30, 0, 0, 0, 0, 0, 0, 1279, 0, 0});
        dock.show();
        EXPECT_TRUE(waitUntil([&] { return visible() == Rect{{0, 0}, {1280, 994}}; }));
        dock.becomeDock({0, 0, 0, 50, 0, 0, 0, 0, 0, 0, 0, 1279});
        EXPECT_TRUE(waitUntil([&] { return visible() == Rect{{0, 50}, {1280, 974}}; }));
        // One that was there before is found, too.
        room = {};
        SetUp();
        EXPECT_TRUE(waitUntil([&] { return visible() == Rect{{0, 50}, {1280, 974}}; }));
    }
    EXPECT_TRUE(waitUntil([&] { return visible() == wholeScreen; }));
}

TEST_F(X11ScreensManagedTests, aDocksStrutIsNotVisibleAsLongAsTheDockIsThere)
{
    const auto visible = [this] { return room.screens->screens().front().visibleFrame; };
    {
        OtherWindow dock("Dock");
        dock.becomeDock({0, 0, 30, 0, 0, 0, 0, 0, 0, 1279, 0, 0});
        dock.show();
        EXPECT_TRUE(waitUntil([&] { return visible() == Rect{{0, 0}, {1280, 994}}; }));
        dock.becomeDock({0, 0, 0, 50, 0, 0, 0, 0, 0, 0, 0, 1279});
        EXPECT_TRUE(waitUntil([&] { return visible() == Rect{{0, 50}, {1280, 974}}; }));
    }
    EXPECT_TRUE(waitUntil([&] { return visible() == wholeScreen; }));
}

TEST_F(X11ScreensManagedTests, aDockThatReservesOnlyAfterItIsShownIsNoticed)
{
    OtherWindow dock("Dock");
    dock.becomeDock({});
    dock.show();
    ASSERT_TRUE(waitUntil([&] { return dock.isMapped(); }));
    dock.becomeDock({40, 0, 0, 0, 0, 1023, 0, 0, 0, 0, 0, 0});
    EXPECT_TRUE(waitUntil([&] {
        return room.screens->screens().front().visibleFrame == Rect{{40, 0}, {1240, 1024}};
    }));
}

TEST_F(X11ScreensManagedTests, otherProgramsMayChangeTheirPropertiesWithoutWakingUs)
{
    OtherWindow other;
    other.show();
    ASSERT_TRUE(
        waitUntil([&] { return other.hasFocus() && room.windowManager->activeWindow() == other.id(); }));
    room.connection->currentServerTime();
    int notices = 0;
    const Token token = room.connection->observeEvents([&](const xcb_generic_event_t& event) {
        notices += eventKind(event) == XCB_PROPERTY_NOTIFY &&
                   eventAs<xcb_property_notify_event_t>(event).window == other.id();
    });
    other.setProperty("_NET_WM_ICON", XCB_ATOM_CARDINAL, {1, 1, 0});
    other.synchronize();
    room.connection->currentServerTime();
    bool isDone = false;
    const auto owner = std::make_shared<char>();
    room.connection->whenReplied<xcb_get_input_focus_reply_t>(xcb_get_input_focus(room.connection->raw()),
                                                              owner, [&](const auto*) { isDone = true; });
    ASSERT_TRUE(waitUntil([&] { return isDone; }));
    EXPECT_EQ(notices, 0);
}

} // namespace
} // namespace tessel
