#include "Desktop.h"

#include "OtherWindow.h"
#include "TestManager.h"
#include "TestPanel.h"
#include "WaitUntil.h"

namespace tessel {
namespace {

/// What the application knows of a loss of the focus.
enum class LossIs { unread, known };

template <class Desktop>
class ActivityTests : public Desktop {
protected:
    /// Opens a panel over another application's window.
    void openPanel()
    {
        other.show();
        ASSERT_TRUE(waitUntil([this] { return other.isMapped(); }));
        other.takeFocus();
        ASSERT_TRUE(waitUntil([this] { return other.hasFocus(); }));
        // The window manager may still be busy with the windows of the test before.
        ASSERT_TRUE(waitUntil([this] { return !this->room.application->isActive(); }));
        changes = this->room.application->observeActivity([this] { ++changeCount; });
        this->room.userTime->note(*this->room.connection->currentServerTime());
        panel.prepare(this->room);
        panel.open(this->room);
        ASSERT_TRUE(waitUntil([this] { return this->room.application->isActive(); }));
        ASSERT_TRUE(waitUntil([this] { return this->room.toolkitWindows->focusedWindow() == panel.id(); }));
        waitForTheWindowManager();
    }

    /// The panel asks for the focus more than once, and a busy window manager may give it once more when
    /// somebody else has it already.
    void waitForTheWindowManager()
    {
        if (!this->room.windowManager->maintainsActiveWindow())
            return;
        this->room.connection->currentServerTime();
        OtherWindow asking;
        asking.askForFrameExtents();
        ASSERT_TRUE(waitUntil([&] { return asking.hasFrameExtents(); }));
    }

    /// What the server says of the old panel is read after the new one is shown.
    void replacePanel()
    {
        openPanel();
        panel.hide();
        EXPECT_FALSE(this->room.application->isActive());
        TestPanel next;
        next.prepare(this->room);
        next.open(this->room);
        EXPECT_TRUE(waitUntil([&] { return this->room.toolkitWindows->focusedWindow() == next.id(); }));
        EXPECT_TRUE(this->room.application->isActive());
        constexpr int activeInactiveActive = 3;
        EXPECT_EQ(changeCount, activeInactiveActive);
    }

    /// Opens a second window when the first one has lost the focus, and waits until it has it.
    void openPanelAfterALoss(LossIs lossIs)
    {
        openPanel();
        TestPanel next;
        next.prepare(this->room);
        const auto openNext = [&] {
            this->room.userTime->note(*this->room.connection->currentServerTime());
            next.open(this->room);
        };
        const Token loss = this->room.toolkitWindows->observeFocus([&] {
            if (lossIs == LossIs::known && !next.isVisible())
                openNext();
        });
        other.takeFocus();
        other.synchronize();
        if (lossIs == LossIs::unread)
            openNext();
        EXPECT_TRUE(waitUntil([&] { return this->room.toolkitWindows->focusedWindow() == next.id(); }));
        EXPECT_TRUE(this->room.application->isActive());
        EXPECT_EQ(changeCount, 1) << "it was inactive in between";
    }

    OtherWindow other;
    TestPanel panel;
    Token changes;
    int changeCount = 0;
};

class X11ApplicationBareTests : public ActivityTests<BareDesktop> {};
class X11ApplicationManagedTests : public ActivityTests<ManagedDesktop> {};

void expectThatTheGrabChangesNothing(X11Room& room, Typist& typist, const int& changeCount)
{
    int presses = 0;
    room.hotKeyCenter->installEventHandler([&](auto) { return ++presses; });
    ASSERT_TRUE(room.hotKeyCenter->registerEventHotKey(9, 0x0300, {1, 1}));
    const int before = changeCount;
    typist.tapWith({Key::superLeft, Key::shiftLeft}, Key::v);
    ASSERT_TRUE(waitUntil([&] { return presses == 1; }));
    // The toolkit has read what the grab sent once it has answered an event of later.
    QWidget later;
    later.setAttribute(Qt::WA_ShowWithoutActivating);
    xcb_window_t mapped = noWindow;
    const Token token = room.toolkitWindows->observeMapping([&](xcb_window_t window) { mapped = window; });
    later.setWindowFlag(Qt::BypassWindowManagerHint);
    later.show();
    ASSERT_TRUE(waitUntil([&] { return mapped == later.winId(); }));
    EXPECT_TRUE(room.application->isActive());
    EXPECT_EQ(changeCount, before);
}

TEST_F(X11ApplicationBareTests, theGrabOfAHotKeyIsNoLossOfActivation)
{
    openPanel();
    expectThatTheGrabChangesNothing(room, typist, changeCount);
}

TEST_F(X11ApplicationManagedTests, theGrabOfAHotKeyIsNoLossOfActivation)
{
    openPanel();
    expectThatTheGrabChangesNothing(room, typist, changeCount);
}

TEST_F(X11ApplicationBareTests, anotherApplicationTakingTheFocusIsOne)
{
    openPanel();
    other.takeFocus();
    EXPECT_TRUE(waitUntil([this] { return !room.application->isActive(); }));
    EXPECT_EQ(changeCount, 2);
}

TEST_F(X11ApplicationManagedTests, anotherApplicationBeingActivatedIsOne)
{
    openPanel();
    other.takeFocus();
    EXPECT_TRUE(waitUntil([this] { return !room.application->isActive(); }));
    EXPECT_EQ(changeCount, 2);
}

TEST_F(X11ApplicationManagedTests, closingTheLastWindowEndsTheActivity)
{
    openPanel();
    panel.hide();
    EXPECT_TRUE(waitUntil([this] { return !room.application->isActive(); }));
}

TEST_F(X11ApplicationBareTests, closingTheLastWindowEndsTheActivity)
{
    openPanel();
    panel.hide();
    EXPECT_TRUE(waitUntil([this] { return !room.application->isActive(); }));
}

TEST_F(X11ApplicationBareTests, theFocusOfAHiddenWindowIsNoActivity)
{
    openPanel();
    panel.hide();
    ASSERT_TRUE(waitUntil([this] { return !room.application->isActive(); }));
    const int before = changeCount;
    TestManager().pretendFocus(panel.id());
    ASSERT_TRUE(waitUntil([this] { return room.toolkitWindows->focusedWindow() == panel.id(); }));
    EXPECT_FALSE(room.application->isActive());
    EXPECT_EQ(changeCount, before);
}

TEST_F(X11ApplicationManagedTests, thePanelOpenedAtOnceAfterAnotherIsActive)
{
    replacePanel();
}

TEST_F(X11ApplicationBareTests, thePanelOpenedAtOnceAfterAnotherIsActive)
{
    replacePanel();
}

TEST_F(X11ApplicationManagedTests, aPanelOpenedBeforeTheLossOfTheFocusIsReadStaysActive)
{
    openPanelAfterALoss(LossIs::unread);
}

TEST_F(X11ApplicationManagedTests, aPanelOpenedBeforeTheLossOfTheFocusIsConfirmedStaysActive)
{
    openPanelAfterALoss(LossIs::known);
}

TEST_F(X11ApplicationBareTests, aPanelOpenedBeforeTheLossOfTheFocusIsReadStaysActive)
{
    openPanelAfterALoss(LossIs::unread);
}

TEST_F(X11ApplicationBareTests, aPanelOpenedBeforeTheLossOfTheFocusIsConfirmedStaysActive)
{
    openPanelAfterALoss(LossIs::known);
}

TEST_F(X11ApplicationManagedTests, closingTheOnlyWindowOfTheDesktopEndsTheActivity)
{
    // The window manager has nothing to activate then, and may go on announcing the window that is gone.
    room.userTime->note(*room.connection->currentServerTime());
    panel.prepare(room);
    panel.open(room);
    ASSERT_TRUE(waitUntil([this] { return room.application->isActive(); }));
    ASSERT_TRUE(waitUntil([this] { return room.windowManager->activeWindow() == panel.id(); }));
    panel.hide();
    EXPECT_TRUE(waitUntil([this] { return !room.application->isActive(); }));
}

TEST_F(X11ApplicationManagedTests, movingBetweenTwoWindowsOfOursChangesNothing)
{
    openPanel();
    QWidget settings;
    settings.show();
    room.nativeWindows->makeKeyAndOrderFront(NativeWindowHandle{settings.winId()});
    ASSERT_TRUE(waitUntil([&] { return room.toolkitWindows->focusedWindow() == settings.winId(); }));
    ASSERT_TRUE(waitUntil([&] { return room.windowManager->activeWindow() == settings.winId(); }));
    EXPECT_EQ(changeCount, 1);
}

TEST_F(X11ApplicationManagedTests, activatingGivesTheFocusToTheWindowShownLast)
{
    openPanel();
    QWidget settings;
    settings.show();
    ASSERT_TRUE(waitUntil([&] { return room.toolkitWindows->focusedWindow() == settings.winId(); }));
    other.takeFocus();
    ASSERT_TRUE(waitUntil([&] { return other.hasFocus() && !room.application->isActive(); }));
    room.userTime->note(*room.connection->currentServerTime());
    room.application->activate(IgnoringOtherApps::yes);
    EXPECT_TRUE(waitUntil([&] { return room.toolkitWindows->focusedWindow() == settings.winId(); }));
}

TEST_F(X11ApplicationManagedTests, withOurWindowInFrontWeAreTheFrontmostApplication)
{
    openPanel();
    EXPECT_TRUE(waitUntil([this] {
        const auto front = room.workspace->frontmostApplication();
        return front && front->processIdentifier() == ProcessIdentifier{panel.id()};
    }));
}

} // namespace
} // namespace tessel
