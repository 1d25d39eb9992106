#include "X11/WindowManager.h"

#include "Desktop.h"

#include "TestManager.h"
#include "WaitUntil.h"

namespace tessel {
namespace {

class X11WindowManagerTests : public BareDesktop {
protected:
    void SetUp() override
    {
        BareDesktop::SetUp();
        activeWindow = room.windowManager->observeActiveWindow([this] { ++activeWindowChanges; });
        manager = room.windowManager->observeManager([this] { ++managerChanges; });
    }

    Token activeWindow;
    Token manager;
    int activeWindowChanges = 0;
    int managerChanges = 0;
};

TEST_F(X11WindowManagerTests, everyoneIsToldWhenItBeginsToMaintainTheActiveWindow)
{
    TestManager other;
    other.announce({"_NET_WORKAREA"});
    ASSERT_TRUE(waitUntil([this] { return room.windowManager->maintainsWorkArea(); }));
    EXPECT_FALSE(room.windowManager->maintainsActiveWindow());
    activeWindowChanges = 0;
    managerChanges = 0;
    other.announce({"_NET_WORKAREA", "_NET_ACTIVE_WINDOW"});
    ASSERT_TRUE(waitUntil([this] { return room.windowManager->maintainsActiveWindow(); }));
    EXPECT_EQ(activeWindowChanges, 1);
    EXPECT_EQ(managerChanges, 1);
}

} // namespace
} // namespace tessel
