#include "Desktop.h"

#include <algorithm>

#include <QtWidgets/QApplication>
#include <QtWidgets/QMenu>

#include "OtherWindow.h"
#include "WaitUntil.h"

namespace tessel {
namespace {

constexpr std::uint32_t superShift = 0x0300;
constexpr std::uint32_t controlShift = 0x1200;
constexpr std::uint32_t superAlt = 0x0900;
constexpr EventHotKeyID clip{0x434C4950, 1};

template <class Base>
class HotKeyTests : public Base {
protected:
    using Base::room;
    using Base::typist;

    void SetUp() override
    {
        Base::SetUp();
        ASSERT_TRUE(room.hotKeyCenter->installEventHandler([this](std::optional<EventHotKeyID> identifier) {
            presses.push_back(identifier);
            return 0;
        }));
    }

    /// Returns when the room has seen everything that the typist has done.
    void settle()
    {
        typist.synchronize();
        const auto owner = std::make_shared<char>();
        bool isSettled = false;
        room.connection->template whenReplied<xcb_get_input_focus_reply_t>(
            xcb_get_input_focus(room.connection->raw()), owner, [&](const auto*) { isSettled = true; });
        room.connection->flush();
        ASSERT_TRUE(waitUntil([&] { return isSettled; }));
    }

    /// Returns when the room knows the new layout.
    void switchLayout(const std::string& layout, const std::string& variant = {})
    {
        typist.setLayout(layout, variant);
        const Keymap current = X11Keyboard(room.connection).keymap();
        ASSERT_TRUE(waitUntil([&] { return room.keyboard->keymap() == current; }));
        settle(); // It may have grabbed other keys.
    }

    /// The user holds the key for a while: the server has repeated it several times.
    void pressUntilItRepeats(const std::vector<Keycode>& modifiers)
    {
        int events = 0;
        const Token token = room.connection->observeEvents(
            [&](const xcb_generic_event_t& event) { events += eventKind(event) == XCB_KEY_PRESS; });
        ASSERT_TRUE(runProgram({"xset", "r", "rate", "60", "50"}));
        for (const Keycode modifier : modifiers)
            typist.press(modifier);
        typist.press(Key::v);
        ASSERT_TRUE(waitUntil([&] { return events >= 8; })) << "The server does not repeat the key.";
    }

    std::size_t pressesAfter(const std::vector<Keycode>& modifiers, Keycode key = Key::v)
    {
        presses.clear();
        typist.tapWith(modifiers, key);
        settle();
        return presses.size();
    }

    std::vector<std::optional<EventHotKeyID>> presses;
};

class X11HotKeyCenterTests : public HotKeyTests<BareDesktop> {};
class X11HotKeyCenterManagedTests : public HotKeyTests<ManagedDesktop> {};

TEST_F(X11HotKeyCenterTests, aPressIsReportedWithTheIdentifierOfItsRegistration)
{
    ASSERT_TRUE(room.hotKeyCenter->registerEventHotKey(9, superShift, clip));
    ASSERT_TRUE(room.hotKeyCenter->registerEventHotKey(9, controlShift, {7, 2}));
    EXPECT_EQ(pressesAfter({Key::superLeft, Key::shiftLeft}), 1U);
    EXPECT_EQ(presses.front(), clip);
    EXPECT_EQ(pressesAfter({Key::controlLeft, Key::shiftLeft}), 1U);
    EXPECT_EQ(presses.front(), (EventHotKeyID{7, 2}));
}

TEST_F(X11HotKeyCenterTests, everyPresetWorksAndOnlyThatOne)
{
    for (const auto& [mask, modifiers] : std::vector<std::pair<std::uint32_t, std::vector<Keycode>>>{
             {superShift, {Key::superLeft, Key::shiftLeft}},
             {controlShift, {Key::controlLeft, Key::shiftLeft}},
             {superAlt, {Key::superLeft, Key::altLeft}}}) {
        const auto reference = room.hotKeyCenter->registerEventHotKey(9, mask, clip);
        ASSERT_TRUE(reference);
        EXPECT_EQ(pressesAfter(modifiers), 1U);
        EXPECT_EQ(pressesAfter({modifiers.front()}), 0U);
        EXPECT_EQ(pressesAfter({Key::superLeft, Key::shiftLeft, Key::controlLeft}), 0U);
        EXPECT_EQ(pressesAfter(modifiers, Key::a), 0U);
        room.hotKeyCenter->unregisterEventHotKey(*reference);
        EXPECT_EQ(pressesAfter(modifiers), 0U);
    }
}

TEST_F(X11HotKeyCenterTests, capsLockAndNumLockMakeNoDifference)
{
    ASSERT_TRUE(room.hotKeyCenter->registerEventHotKey(9, superShift, clip));
    typist.tap(Key::capsLock);
    EXPECT_EQ(pressesAfter({Key::superLeft, Key::shiftLeft}), 1U);
    typist.tap(Key::numLock);
    EXPECT_EQ(pressesAfter({Key::superLeft, Key::shiftLeft}), 1U);
    typist.tap(Key::capsLock);
    EXPECT_EQ(pressesAfter({Key::superLeft, Key::shiftLeft}), 1U);
    typist.tap(Key::numLock);
    EXPECT_EQ(pressesAfter({Key::superLeft, Key::shiftLeft}), 1U);
}

TEST_F(X11HotKeyCenterTests, scrollLockMakesNoDifferenceWhereItIsAModifier)
{
    ASSERT_TRUE(room.hotKeyCenter->registerEventHotKey(9, superShift, clip));
    constexpr std::uint16_t scrollLockBit = 1U << 5;
    ASSERT_TRUE(runProgram({"xmodmap", "-e", "clear mod3", "-e", "add mod3 = Scroll_Lock"}));
    ASSERT_TRUE(
        waitUntil([&] { return modifierBits(room.keyboard->keymap()).locks.back() == scrollLockBit; }));
    settle();
    typist.tap(Key::scrollLock);
    ASSERT_TRUE(typist.lockedModifiers() & scrollLockBit);
    EXPECT_EQ(pressesAfter({Key::superLeft, Key::shiftLeft}), 1U);
    typist.tap(Key::scrollLock);
    ASSERT_FALSE(typist.lockedModifiers() & scrollLockBit);
    EXPECT_EQ(pressesAfter({Key::superLeft, Key::shiftLeft}), 1U);
}

TEST_F(X11HotKeyCenterTests, aHeldKeyIsOnePressHoweverOftenItRepeats)
{
    ASSERT_TRUE(room.hotKeyCenter->registerEventHotKey(9, superShift, clip));
    pressUntilItRepeats({Key::superLeft, Key::shiftLeft});
    typist.release(Key::v);
    typist.release(Key::shiftLeft);
    typist.release(Key::superLeft);
    settle();
    EXPECT_EQ(presses.size(), 1U);
    EXPECT_EQ(pressesAfter({Key::superLeft, Key::shiftLeft}), 1U) << "The next press counts again.";
}

TEST_F(X11HotKeyCenterTests, itDoesNotMatterInWhichOrderTheKeysAreReleased)
{
    ASSERT_TRUE(room.hotKeyCenter->registerEventHotKey(9, superShift, clip));
    OtherWindow window;
    window.show();
    window.takeFocus();
    ASSERT_TRUE(waitUntil([&] { return window.hasFocus(); }));
    std::vector<Keycode> keys = {Key::superLeft, Key::shiftLeft, Key::v};
    std::sort(keys.begin(), keys.end());
    do {
        presses.clear();
        pressUntilItRepeats({Key::superLeft, Key::shiftLeft});
        for (const Keycode key : keys)
            typist.release(key);
        settle();
        EXPECT_EQ(presses.size(), 1U);
    } while (std::next_permutation(keys.begin(), keys.end()));
    window.synchronize();
    EXPECT_EQ(window.presses(), 0) << "A repetition of the key has reached the focused window.";
    EXPECT_TRUE(typist.keysDown().none());
}

TEST_F(X11HotKeyCenterTests, aPressIsOverEvenWhenAnotherGetsItsRelease)
{
    ASSERT_TRUE(room.hotKeyCenter->registerEventHotKey(9, superShift, clip));
    OtherWindow window;
    window.show();
    window.takeFocus();
    ASSERT_TRUE(waitUntil([&] { return window.hasFocus(); }));
    // With this option Control+Alt+Divide ends every grab.
    ASSERT_TRUE(runProgram({"setxkbmap", "-option", "grab:break_actions"}));
    settle();
    // Either the room has seen the press by the time of its release, or it has not.
    for (const bool isSeenInTime : {true, false}) {
        presses.clear();
        window.forget();
        typist.press(Key::superLeft);
        typist.press(Key::shiftLeft);
        typist.press(Key::v);
        if (isSeenInTime) {
            ASSERT_TRUE(waitUntil([&] { return presses.size() == 1; }));
            settle();
        }
        typist.release(Key::shiftLeft);
        typist.release(Key::superLeft);
        typist.tapWith({Key::controlLeft, Key::altLeft}, Key::keypadDivide);
        typist.release(Key::v);
        settle();
        EXPECT_EQ(presses.size(), 1U);
        window.synchronize();
        EXPECT_TRUE(std::any_of(window.strokes().begin(), window.strokes().end(), [](const auto& stroke) {
            return stroke.key == Key::v && !stroke.isPress;
        })) << "The release has not gone to the window.";
        settle();
        EXPECT_EQ(pressesAfter({Key::superLeft, Key::shiftLeft}), 1U) << isSeenInTime;
    }
    ASSERT_TRUE(runProgram({"setxkbmap", "-option", ""}));
}

TEST_F(X11HotKeyCenterTests, aKeyThatIsHeldBeyondTheEndOfItsGrabIsStillTheSamePress)
{
    ASSERT_TRUE(room.hotKeyCenter->registerEventHotKey(9, superShift, clip));
    pressUntilItRepeats({Key::superLeft, Key::shiftLeft});
    int events = 0;
    const Token token = room.connection->observeEvents(
        [&](const xcb_generic_event_t& event) { events += eventKind(event) == XCB_KEY_PRESS; });
    room.hotKeyCenter->releaseGrabs();
    room.hotKeyCenter->restoreGrabs();
    room.connection->flush();
    EXPECT_TRUE(waitUntil([&] { return events >= 3; })) << "The repeated key has not been grabbed again.";
    typist.release(Key::v);
    typist.release(Key::shiftLeft);
    typist.release(Key::superLeft);
    settle();
    EXPECT_EQ(presses.size(), 1U);
    EXPECT_EQ(pressesAfter({Key::superLeft, Key::shiftLeft}), 1U);
}

TEST_F(X11HotKeyCenterTests, itWorksWhileAMenuOfOursHasTheKeyboard)
{
    ASSERT_TRUE(room.hotKeyCenter->registerEventHotKey(9, superShift, clip));
    QWidget window;
    window.show();
    room.nativeWindows->makeKeyAndOrderFront(NativeWindowHandle{window.winId()});
    ASSERT_TRUE(waitUntil([&] { return QApplication::activeWindow() == &window; }));
    QMenu menu(&window);
    menu.addAction("View");
    int choices = 0;
    QObject::connect(&menu, &QMenu::triggered, [&] { ++choices; });
    menu.popup(QPoint(5, 5));
    ASSERT_TRUE(waitUntil([&] { return QApplication::activePopupWidget() == &menu && menu.isVisible(); }));
    // The menu has grabbed the keyboard once a key reaches it.
    typist.tap(Key::down);
    ASSERT_TRUE(waitUntil([&] { return menu.activeAction() != nullptr; }));

    typist.tapWith({Key::superLeft, Key::shiftLeft}, Key::v);
    ASSERT_TRUE(waitUntil([&] { return presses.size() == 1; }));
    typist.tapWith({Key::superLeft, Key::shiftLeft}, Key::v);
    ASSERT_TRUE(waitUntil([&] { return presses.size() == 2; }));
    // Held until after the menu has closed, it is still the same press.
    typist.press(Key::superLeft);
    typist.press(Key::shiftLeft);
    typist.press(Key::v);
    ASSERT_TRUE(waitUntil([&] { return presses.size() == 3; }));
    EXPECT_TRUE(menu.isVisible());
    EXPECT_EQ(choices, 0) << "The key has chosen something of the menu.";
    menu.close();
    int events = 0;
    const Token token = room.connection->observeEvents(
        [&](const xcb_generic_event_t& event) { events += eventKind(event) == XCB_KEY_PRESS; });
    EXPECT_TRUE(waitUntil([&] { return events >= 3; }));
    EXPECT_EQ(presses.size(), 3U);
    typist.release(Key::v);
    typist.release(Key::shiftLeft);
    typist.release(Key::superLeft);
    EXPECT_EQ(pressesAfter({Key::superLeft, Key::shiftLeft}), 1U);
}

TEST_F(X11HotKeyCenterTests, twoQuickPressesAreTwo)
{
    ASSERT_TRUE(room.hotKeyCenter->registerEventHotKey(9, superShift, clip));
    typist.press(Key::superLeft);
    typist.press(Key::shiftLeft);
    typist.tap(Key::v);
    typist.tap(Key::v);
    typist.release(Key::shiftLeft);
    typist.release(Key::superLeft);
    settle();
    EXPECT_EQ(presses.size(), 2U);
}

TEST_F(X11HotKeyCenterTests, thePressesTimeBecomesTheUsersTime)
{
    ASSERT_TRUE(room.hotKeyCenter->registerEventHotKey(9, superShift, clip));
    const auto before = room.connection->currentServerTime();
    EXPECT_EQ(pressesAfter({Key::superLeft, Key::shiftLeft}), 1U);
    ASSERT_TRUE(before);
    EXPECT_GE(room.userTime->last(), *before);
}

TEST_F(X11HotKeyCenterTests, noPartIsKeptOfACombinationThatAnotherApplicationHas)
{
    OtherWindow other;
    ASSERT_TRUE(other.grabKey(Key::v, Modifier::super | Modifier::shift | Modifier::lock));
    EXPECT_TRUE(room.hotKeyCenter->registerEventHotKey(9, superShift, clip)) << "It has to wait for it.";
    settle();
    EXPECT_TRUE(other.grabKey(Key::v, Modifier::super | Modifier::shift)) << "Part of the hot key was kept.";
    EXPECT_EQ(pressesAfter({Key::superLeft, Key::shiftLeft}), 0U);
    EXPECT_TRUE(room.hotKeyCenter->registerEventHotKey(9, superAlt, clip));
    EXPECT_EQ(pressesAfter({Key::superLeft, Key::altLeft}), 1U);
}

TEST_F(X11HotKeyCenterManagedTests, aRefusedCombinationIsTakenWhenItsOwnerHasGone)
{
    auto other = std::make_unique<OtherWindow>();
    other->show();
    ASSERT_TRUE(waitUntil([&] { return other->hasFocus(); }));
    ASSERT_TRUE(other->grabKey(Key::v, Modifier::super | Modifier::shift));
    ASSERT_TRUE(room.hotKeyCenter->registerEventHotKey(9, superShift, clip));
    EXPECT_EQ(pressesAfter({Key::superLeft, Key::shiftLeft}), 0U);
    other.reset();
    EXPECT_TRUE(waitUntil([&] { return pressesAfter({Key::superLeft, Key::shiftLeft}) == 1; }));
}

TEST_F(X11HotKeyCenterManagedTests, aRefusedCombinationIsTakenWhenAnotherWindowBecomesActive)
{
    OtherWindow owner;
    ASSERT_TRUE(owner.grabKey(Key::v, Modifier::super | Modifier::shift));
    ASSERT_TRUE(room.hotKeyCenter->registerEventHotKey(9, superShift, clip));
    owner.ungrabKey(Key::v, Modifier::super | Modifier::shift);
    OtherWindow window;
    window.show();
    EXPECT_TRUE(waitUntil([&] { return pressesAfter({Key::superLeft, Key::shiftLeft}) == 1; }));
}

TEST_F(X11HotKeyCenterManagedTests, aRefusedCombinationThatWasUnregisteredIsNotTakenAnyMore)
{
    OtherWindow owner;
    ASSERT_TRUE(owner.grabKey(Key::v, Modifier::super | Modifier::shift));
    const auto reference = room.hotKeyCenter->registerEventHotKey(9, superShift, clip);
    ASSERT_TRUE(reference);
    room.hotKeyCenter->unregisterEventHotKey(*reference);
    owner.ungrabKey(Key::v, Modifier::super | Modifier::shift);
    OtherWindow window;
    window.show();
    ASSERT_TRUE(waitUntil([&] { return room.windowManager->activeWindow() == window.id(); }));
    settle();
    EXPECT_TRUE(owner.grabKey(Key::v, Modifier::super | Modifier::shift));
}

TEST_F(X11HotKeyCenterTests, aCombinationThatTheKeyboardLacksIsTakenWhenItHasIt)
{
    ASSERT_TRUE(runProgram({"xmodmap", "-e", "clear mod4"}));
    ASSERT_TRUE(waitUntil([&] { return modifierBits(room.keyboard->keymap()).command == 0; }));
    ASSERT_TRUE(room.hotKeyCenter->registerEventHotKey(9, superShift, clip));
    EXPECT_EQ(pressesAfter({Key::superLeft, Key::shiftLeft}), 0U);
    ASSERT_TRUE(runProgram({"xmodmap", "-e", "add mod4 = Super_L"}));
    ASSERT_TRUE(waitUntil([&] { return modifierBits(room.keyboard->keymap()).command == Modifier::super; }));
    settle();
    EXPECT_EQ(pressesAfter({Key::superLeft, Key::shiftLeft}), 1U);
}

TEST_F(X11HotKeyCenterTests, anUnregisteredCombinationIsFreeForOthers)
{
    OtherWindow other;
    const auto reference = room.hotKeyCenter->registerEventHotKey(9, superShift, clip);
    ASSERT_TRUE(reference);
    EXPECT_FALSE(other.grabKey(Key::v, Modifier::super | Modifier::shift));
    room.hotKeyCenter->unregisterEventHotKey(*reference);
    settle();
    EXPECT_TRUE(other.grabKey(Key::v, Modifier::super | Modifier::shift));
    EXPECT_TRUE(
        other.grabKey(Key::v, Modifier::super | Modifier::shift | Modifier::lock | Modifier::numLock));
}

TEST_F(X11HotKeyCenterTests, unknownKeysAndModifiersAreRefused)
{
    EXPECT_EQ(room.hotKeyCenter->registerEventHotKey(35, superShift, clip), std::nullopt);
    EXPECT_EQ(room.hotKeyCenter->registerEventHotKey(9, 0x0400, clip), std::nullopt);
}

TEST_F(X11HotKeyCenterTests, aCombinationIsRegisteredOnce)
{
    ASSERT_TRUE(room.hotKeyCenter->registerEventHotKey(9, superShift, clip));
    EXPECT_EQ(room.hotKeyCenter->registerEventHotKey(9, superShift, {7, 2}), std::nullopt);
}

TEST_F(X11HotKeyCenterTests, theKeyInTheVPositionServesInEveryLayout)
{
    ASSERT_TRUE(room.hotKeyCenter->registerEventHotKey(9, superShift, clip));
    for (const auto& [layout, variant] : std::vector<std::pair<std::string, std::string>>{{"us", "dvorak"},
                                                                                          {"de", ""},
                                                                                          {"fr", ""},
                                                                                          {"fr", "bepo"},
                                                                                          {"ru", ""},
                                                                                          {"gr", ""},
                                                                                          {"us,ru", ""}}) {
        switchLayout(layout, variant);
        EXPECT_EQ(pressesAfter({Key::superLeft, Key::shiftLeft}), 1U) << layout << ' ' << variant;
    }
    switchLayout("us,ru");
    typist.lockGroup(1);
    EXPECT_EQ(pressesAfter({Key::superLeft, Key::shiftLeft}), 1U) << "The second layout is in force.";
    typist.lockGroup(0);
}

TEST_F(X11HotKeyCenterTests, itIsGrabbedAnewWhenSuperMovesToAnotherModifier)
{
    ASSERT_TRUE(room.hotKeyCenter->registerEventHotKey(9, superShift, clip));
    ASSERT_TRUE(runProgram(
        {"xmodmap", "-e", "clear mod3", "-e", "remove mod4 = Super_L Super_R", "-e", "add mod3 = Super_L"}));
    EXPECT_TRUE(waitUntil([&] { return modifierBits(room.keyboard->keymap()).command == 1U << 5; }));
    settle();
    EXPECT_EQ(pressesAfter({Key::superLeft, Key::shiftLeft}), 1U);
}

TEST_F(X11HotKeyCenterTests, itSurvivesAnotherMappingOfAnotherKey)
{
    ASSERT_TRUE(room.hotKeyCenter->registerEventHotKey(9, superShift, clip));
    constexpr Keysym euroSign = 0x20AC;
    ASSERT_TRUE(runProgram({"xmodmap", "-e", "keycode 38 = EuroSign"}));
    ASSERT_TRUE(waitUntil([&] { return symbolInGroup(room.keyboard->keymap(), Key::a, 0) == euroSign; }));
    EXPECT_EQ(pressesAfter({Key::superLeft, Key::shiftLeft}), 1U);
}

TEST_F(X11HotKeyCenterTests, aHandlerMayUnregisterAndRemoveItself)
{
    const auto reference = room.hotKeyCenter->registerEventHotKey(9, superShift, clip);
    ASSERT_TRUE(reference);
    std::optional<HotKeyHandlerRef> handler;
    int calls = 0;
    handler = room.hotKeyCenter->installEventHandler([&](auto) {
        ++calls;
        room.hotKeyCenter->unregisterEventHotKey(*reference);
        room.hotKeyCenter->removeEventHandler(*handler);
        return 0;
    });
    EXPECT_EQ(pressesAfter({Key::superLeft, Key::shiftLeft}), 1U);
    EXPECT_EQ(pressesAfter({Key::superLeft, Key::shiftLeft}), 0U);
    EXPECT_EQ(calls, 1);
}

} // namespace
} // namespace tessel
