#include "Desktop.h"

#include <QtGui/QKeyEvent>
#include <QtWidgets/QApplication>
#include <QtWidgets/QLineEdit>
#include <QtWidgets/QMenu>
#include <QtWidgets/QVBoxLayout>

#include "WaitUntil.h"

namespace tessel {
namespace {

/// A focused line edit in a window, on the bare server.
class QtEventMonitorsTests : public BareDesktop {
protected:
    void SetUp() override
    {
        BareDesktop::SetUp();
        auto* layout = new QVBoxLayout(&window);
        layout->addWidget(&edit);
        window.show();
        room.nativeWindows->makeKeyAndOrderFront(NativeWindowHandle{window.winId()});
        ASSERT_TRUE(waitUntil([this] { return QApplication::focusWidget() == &edit; }));
        token =
            room.eventMonitors->addLocalMonitor(EventMonitors::keyDownMask, [this](const KeyEvent& event) {
                codes.push_back(event.keyCode);
                return outcome;
            });
        ASSERT_TRUE(token);
    }

    QWidget window;
    QLineEdit edit{&window};
    std::optional<EventMonitorToken> token;
    std::vector<std::uint16_t> codes;
    EventOutcome outcome = EventOutcome::passOn;
};

TEST_F(QtEventMonitorsTests, eachPressIsSeenOnceAndGoesOn)
{
    typist.tap(Key::v);
    typist.tap(Key::escape);
    EXPECT_TRUE(waitUntil([this] { return edit.text() == "v" && codes.size() >= 2; }));
    EXPECT_EQ(codes, (std::vector<std::uint16_t>{VirtualKey::v, VirtualKey::escape}));
}

TEST_F(QtEventMonitorsTests, aConsumedPressDoesNotReachTheFocusedView)
{
    outcome = EventOutcome::consumed;
    typist.tap(Key::v);
    ASSERT_TRUE(waitUntil([this] { return codes.size() == 1; }));
    outcome = EventOutcome::passOn;
    typist.tap(Key::a);
    ASSERT_TRUE(waitUntil([this] { return codes.size() == 2; }));
    EXPECT_EQ(edit.text(), "a");
}

TEST_F(QtEventMonitorsTests, aHeldKeysRepetitionsAreSeenToo)
{
    ASSERT_TRUE(runProgram({"xset", "r", "rate", "60", "50"}));
    typist.press(Key::v);
    EXPECT_TRUE(waitUntil([this] { return codes.size() >= 4; }));
    typist.release(Key::v);
}

TEST_F(QtEventMonitorsTests, aMenuHasTheKeysToItself)
{
    QMenu menu(&window);
    menu.addAction("Pin");
    menu.popup(window.mapToGlobal(QPoint(5, 5)));
    ASSERT_TRUE(waitUntil([&] { return menu.isVisible() && QApplication::activePopupWidget() == &menu; }));
    typist.tap(Key::escape);
    EXPECT_TRUE(waitUntil([&] { return !menu.isVisible(); }));
    EXPECT_TRUE(codes.empty());
}

TEST_F(QtEventMonitorsTests, aRemovedMonitorSeesNothingAndOtherMasksAreRefused)
{
    EXPECT_EQ(room.eventMonitors->addLocalMonitor(2048, [](const auto&) { return EventOutcome::passOn; }),
              std::nullopt);
    room.eventMonitors->removeMonitor(*token);
    typist.tap(Key::a);
    EXPECT_TRUE(waitUntil([this] { return edit.text() == "a"; }));
    EXPECT_TRUE(codes.empty());
}

TEST_F(QtEventMonitorsTests, aKeyInOurWindowIsTheUsersLatestAct)
{
    const auto before = room.connection->currentServerTime();
    typist.tap(Key::a);
    ASSERT_TRUE(waitUntil([this] { return edit.text() == "a"; }));
    EXPECT_GE(room.userTime->last(), *before);
}

} // namespace
} // namespace tessel
