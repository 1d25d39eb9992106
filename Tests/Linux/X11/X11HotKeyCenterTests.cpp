#include "Desktop.h"

#include "OtherWindow.h"
#include "WaitUntil.h"

namespace tessel {
namespace {

constexpr std::uint32_t superShift = 0x0300;
constexpr std::uint32_t controlShift = 0x1200;
constexpr std::uint32_t superAlt = 0x0900;
constexpr EventHotKeyID clip{0x434C4950, 1};

class X11HotKeyCenterTests : public BareDesktop {
protected:
    void SetUp() override
    {
        BareDesktop::SetUp();
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
        room.connection->whenReplied<xcb_get_input_focus_reply_t>(
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

TEST_F(X11HotKeyCenterTests, aHeldKeyIsOnePressHoweverOftenItRepeats)
{
    ASSERT_TRUE(room.hotKeyCenter->registerEventHotKey(9, superShift, clip));
    int events = 0;
    const Token token = room.connection->observeEvents(
        [&](const xcb_generic_event_t& event) { events += eventKind(event) == XCB_KEY_PRESS; });
    ASSERT_TRUE(runProgram({"xset", "r", "rate", "60", "50"}));
    typist.press(Key::superLeft);
    typist.press(Key::shiftLeft);
    typist.press(Key::v);
    ASSERT_TRUE(waitUntil([&] { return events >= 8; })) << "The server does not repeat the key.";
    typist.release(Key::v);
    typist.release(Key::shiftLeft);
    typist.release(Key::superLeft);
    settle();
    EXPECT_EQ(presses.size(), 1U);
    EXPECT_EQ(pressesAfter({Key::superLeft, Key::shiftLeft}), 1U) << "The next press counts again.";
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

TEST_F(X11HotKeyCenterTests, aCombinationOfAnotherApplicationIsRefusedAndNoPartOfItIsKept)
{
    OtherWindow other;
    ASSERT_TRUE(other.grabKey(Key::v, Modifier::super | Modifier::shift | Modifier::lock));
    EXPECT_EQ(room.hotKeyCenter->registerEventHotKey(9, superShift, clip), std::nullopt);
    settle();
    EXPECT_TRUE(other.grabKey(Key::v, Modifier::super | Modifier::shift)) << "Part of the hot key was kept.";
    EXPECT_TRUE(room.hotKeyCenter->registerEventHotKey(9, superAlt, clip));
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

TEST_F(X11HotKeyCenterTests, theKeyInTheVPositionServesInEveryLayout)
{
    ASSERT_TRUE(room.hotKeyCenter->registerEventHotKey(9, superShift, clip));
    for (const auto& [layout, variant] : std::vector<std::pair<std::string, std::string>>{
             {"us", "dvorak"}, {"ru", ""}, {"us,ru", ""}, {"fr", ""}}) {
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
