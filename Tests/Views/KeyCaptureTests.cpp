#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <QtGui/QKeyEvent>
#include <QtTest/QTest>
#include <QtWidgets/QApplication>
#include <QtWidgets/QLineEdit>

#include "Panel/KeyboardEventBridge.h"
#include "Support/PanelDesktop.h"

namespace tessel::test {

namespace {

using testing::ElementsAre;
using testing::IsEmpty;

bool isModifier(int key)
{
    return key == Qt::Key_Control || key == Qt::Key_Shift || key == Qt::Key_Alt || key == Qt::Key_Meta;
}

/// Notes the keys that a view inside it has passed on.
class PassedOnKeys : public QWidget {
public:
    std::vector<int> keys;

protected:
    void keyPressEvent(QKeyEvent* event) override
    {
        if (!isModifier(event->key()))
            keys.push_back(event->key());
    }
};

class KeyCapture : public testing::Test {
protected:
    KeyboardEventBridge bridge()
    {
        const auto note = [this](const char* action) {
            return [this, action] { actions.emplace_back(action); };
        };
        return {note("up"), note("down"), note("enter"), note("escape"), note("delete"), note("pin")};
    }

    PassedOnKeys parent;
    std::vector<std::string> actions;
};

void holdKey(QWidget& view, int key)
{
    for (const bool isRepeat : {false, true, true}) {
        QKeyEvent event(QEvent::KeyPress, key, Qt::NoModifier, 0, 0, 0, {}, isRepeat);
        QApplication::sendEvent(&view, &event);
    }
}

} // namespace

TEST_F(KeyCapture, TurnsKeysIntoActions)
{
    KeyCaptureView& view = *bridge().makeView(&parent);
    QTest::keyClick(&view, Qt::Key_Down);
    QTest::keyClick(&view, Qt::Key_Up);
    QTest::keyClick(&view, Qt::Key_Return);
    QTest::keyClick(&view, Qt::Key_Enter, Qt::KeypadModifier);
    QTest::keyClick(&view, Qt::Key_Escape);
    QTest::keyClick(&view, Qt::Key_Backspace, Qt::ControlModifier);
    QTest::keyClick(&view, Qt::Key_Delete, Qt::MetaModifier);
    QTest::keyClick(&view, Qt::Key_P, Qt::ControlModifier);
    EXPECT_THAT(actions, ElementsAre("down", "up", "enter", "enter", "escape", "delete", "delete", "pin"));
    EXPECT_THAT(parent.keys, IsEmpty());
}

TEST_F(KeyCapture, LooksAtNoModifierButCommand)
{
    KeyCaptureView& view = *bridge().makeView(&parent);
    QTest::keyClick(&view, Qt::Key_Up, Qt::ShiftModifier);
    QTest::keyClick(&view, Qt::Key_Return, Qt::AltModifier);
    QTest::keyClick(&view, Qt::Key_P, Qt::ControlModifier | Qt::ShiftModifier);
    QTest::keyClick(&view, Qt::Key_Backspace, Qt::ControlModifier | Qt::AltModifier);
    EXPECT_THAT(actions, ElementsAre("up", "enter", "pin", "delete"));
}

TEST_F(KeyCapture, PassesOnWhatIsNotThePanels)
{
    KeyCaptureView& view = *bridge().makeView(&parent);
    QTest::keyClick(&view, Qt::Key_Backspace);
    QTest::keyClick(&view, Qt::Key_Delete);
    QTest::keyClick(&view, Qt::Key_P);
    QTest::keyClick(&view, Qt::Key_P, Qt::ShiftModifier);
    QTest::keyClick(&view, Qt::Key_X, Qt::ControlModifier);
    EXPECT_THAT(actions, IsEmpty());
    EXPECT_THAT(parent.keys, ElementsAre(Qt::Key_Backspace, Qt::Key_Delete, Qt::Key_P, Qt::Key_P, Qt::Key_X));
}

TEST_F(KeyCapture, SwallowsKeysWhoseActionIsAbsent)
{
    KeyCaptureView view(&parent);
    QTest::keyClick(&view, Qt::Key_Escape);
    QTest::keyClick(&view, Qt::Key_Up);
    QTest::keyClick(&view, Qt::Key_Return);
    QTest::keyClick(&view, Qt::Key_P, Qt::ControlModifier);
    EXPECT_THAT(parent.keys, IsEmpty());
}

TEST_F(KeyCapture, HeldArrowMovesOnAndHeldReturnConfirmsOnce)
{
    KeyCaptureView& view = *bridge().makeView(&parent);
    holdKey(view, Qt::Key_Down);
    holdKey(view, Qt::Key_Return);
    EXPECT_THAT(actions, ElementsAre("down", "down", "down", "enter"));
    EXPECT_THAT(parent.keys, IsEmpty());
}

TEST_F(KeyCapture, UpdateBringsTheLatestActions)
{
    KeyCaptureView& view = *bridge().makeView(&parent);
    KeyboardEventBridge next = bridge();
    next.onUp = nullptr;
    next.onDown = [this] { actions.emplace_back("new down"); };
    next.updateView(view);
    QTest::keyClick(&view, Qt::Key_Up);
    QTest::keyClick(&view, Qt::Key_Down);
    EXPECT_THAT(actions, ElementsAre("new down"));
}

TEST_F(KeyCapture, TakesTheFocusOneTurnAfterItIsAskedTo)
{
    KeyCaptureView& view = *bridge().makeView(&parent);
    view.ensureFocus();
    EXPECT_EQ(parent.focusWidget(), nullptr);
    runMainLoop();
    EXPECT_EQ(parent.focusWidget(), &view);
}

TEST_F(KeyCapture, AsksForTheFocusWhenItEntersAWindow)
{
    auto* view = bridge().makeView(nullptr);
    runMainLoop();
    view->setParent(&parent);
    runMainLoop();
    EXPECT_EQ(parent.focusWidget(), view);
}

TEST_F(KeyCapture, ForgetsTheFocusItWaitsForWhenItGoes)
{
    auto* view = bridge().makeView(&parent);
    view->ensureFocus();
    delete view;
    runMainLoop();
    EXPECT_EQ(parent.focusWidget(), nullptr);
}

TEST_F(KeyCapture, NeedsAWindowForTheFocus)
{
    KeyCaptureView view;
    view.ensureFocus();
    runMainLoop();
    EXPECT_FALSE(view.focusWidget());
}

TEST_F(KeyCapture, ReadsLettersOfAnotherScriptByTheirPositions)
{
    KeyCaptureView& view = *bridge().makeView(&parent);
    constexpr quint32 positionOfP = 33;
    constexpr quint32 positionOfR = 27;
    const auto press = [&](char32_t letter, quint32 scanCode) {
        QKeyEvent event(QEvent::KeyPress, static_cast<int>(letter), Qt::MetaModifier, scanCode, 0, 0);
        QApplication::sendEvent(&view, &event);
    };
    press(U'\u0417', positionOfP); // Cyrillic Ze,
    press(U'\u03A0', positionOfP); // Greek Pi,
    press(U'\u05E4', positionOfP); // Hebrew Pe.
    EXPECT_THAT(actions, ElementsAre("pin", "pin", "pin"));
    press(U'\u0420', positionOfR); // Cyrillic Er looks like a P, and is not in its place.
    press(U'L', positionOfP);      // The Dvorak layout has another Latin letter there,
    EXPECT_EQ(actions.size(), 3U);
    press(U'P', positionOfR); // and its P elsewhere.
    EXPECT_EQ(actions.size(), 4U);
    press(U'\u00D6', positionOfP); // Beside letters of ours that are not ASCII,
    press(U';', positionOfP);      // signs,
    press(Qt::Key_Dead_Circumflex, positionOfP);
    EXPECT_EQ(actions.size(), 4U) << "and dead keys, P has a key of its own.";
}

TEST(PanelFocus, ReturnsToTheKeysWithEveryUpdate)
{
    PanelDesktop desktop;
    desktop.copy("A");
    desktop.openPanel();
    ASSERT_EQ(desktop.window().focusWidget(), &desktop.view().keyCapture());
    QLineEdit other(&desktop.window());
    other.show();
    other.setFocus();
    ASSERT_EQ(desktop.window().focusWidget(), &other);
    desktop.copy("B");
    runMainLoop(); // The update,
    runMainLoop(); // and the turn by which the focus is put off.
    EXPECT_EQ(desktop.window().focusWidget(), &desktop.view().keyCapture());
    other.setFocus();
    desktop.click("A");
    runMainLoop();
    EXPECT_EQ(desktop.window().focusWidget(), &desktop.view().keyCapture());
    other.setFocus();
    desktop.movePointer(desktop.rowCenter("B"));
    runMainLoop();
    EXPECT_EQ(desktop.window().focusWidget(), &desktop.view().keyCapture());
}

} // namespace tessel::test
