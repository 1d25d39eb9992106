// The core's hot-key manager with real grabs.

#include "Desktop.h"

#include "HotKey/HotKeyManager.h"
#include "OtherWindow.h"
#include "WaitUntil.h"

namespace tessel {
namespace {

constexpr std::uint16_t superShift = Modifier::super | Modifier::shift;
constexpr std::uint16_t controlShift = Modifier::control | Modifier::shift;
constexpr std::uint16_t superAlt = Modifier::super | Modifier::alt;

class HotKeyManagerOnX11 : public BareDesktop {
protected:
    /// True if no application has the V key with these modifiers.
    bool isFree(std::uint16_t modifiers)
    {
        room.connection->currentServerTime(); // The server has seen what the manager has asked for.
        const bool isFree = other.grabKey(Key::v, modifiers);
        if (isFree)
            other.ungrabKey(Key::v, modifiers);
        return isFree;
    }

    OtherWindow other;
};

TEST_F(HotKeyManagerOnX11, onlyItsPresetIsTaken)
{
    HotKeyManager manager(room.hotKeyCenter, HotKeyPreset::cmdShiftV, [] {});
    EXPECT_TRUE(!isFree(superShift) && isFree(controlShift) && isFree(superAlt));
    manager.updatePreset(HotKeyPreset::ctrlShiftV);
    EXPECT_TRUE(isFree(superShift) && !isFree(controlShift) && isFree(superAlt));
    manager.updatePreset(HotKeyPreset::cmdOptionV);
    EXPECT_TRUE(isFree(superShift) && isFree(controlShift) && !isFree(superAlt));
    manager.updatePreset(HotKeyPreset::cmdOptionV);
    EXPECT_FALSE(isFree(superAlt));
}

TEST_F(HotKeyManagerOnX11, everyPresetCallsBackOnceForAPress)
{
    int calls = 0;
    HotKeyManager manager(room.hotKeyCenter, HotKeyPreset::cmdShiftV, [&] { ++calls; });
    typist.tapWith({Key::superLeft, Key::shiftLeft}, Key::v);
    EXPECT_TRUE(waitUntil([&] { return calls == 1; }));
    manager.updatePreset(HotKeyPreset::ctrlShiftV);
    typist.tapWith({Key::superLeft, Key::shiftLeft}, Key::v);
    typist.tapWith({Key::controlLeft, Key::shiftLeft}, Key::v);
    EXPECT_TRUE(waitUntil([&] { return calls == 2; }));
    manager.updatePreset(HotKeyPreset::cmdOptionV);
    typist.tapWith({Key::controlLeft, Key::shiftLeft}, Key::v);
    typist.tapWith({Key::superLeft, Key::altLeft}, Key::v);
    EXPECT_TRUE(waitUntil([&] { return calls == 3; }));
    typist.tapWith({Key::superLeft, Key::altLeft}, Key::v);
    EXPECT_TRUE(waitUntil([&] { return calls >= 4; }));
    EXPECT_EQ(calls, 4) << "A press of another preset has counted.";
}

TEST_F(HotKeyManagerOnX11, aPresetThatIsChosenWhileItsKeysAreHeldWaitsForTheNextPress)
{
    int calls = 0;
    HotKeyManager manager(room.hotKeyCenter, HotKeyPreset::cmdShiftV, [&] { ++calls; });
    typist.press(Key::superLeft);
    typist.press(Key::shiftLeft);
    typist.press(Key::v);
    EXPECT_TRUE(waitUntil([&] { return calls == 1; }));
    manager.updatePreset(HotKeyPreset::ctrlShiftV);
    typist.release(Key::v);
    typist.release(Key::shiftLeft);
    typist.release(Key::superLeft);
    typist.tapWith({Key::controlLeft, Key::shiftLeft}, Key::v);
    EXPECT_TRUE(waitUntil([&] { return calls == 2; }));
    EXPECT_TRUE(typist.keysDown().none());
}

TEST_F(HotKeyManagerOnX11, nothingIsTakenAnyMoreWhenItHasGone)
{
    {
        const HotKeyManager manager(room.hotKeyCenter, HotKeyPreset::cmdShiftV, [] {});
        EXPECT_FALSE(isFree(superShift));
    }
    EXPECT_TRUE(isFree(superShift));
    EXPECT_TRUE(isFree(superShift | Modifier::lock | Modifier::numLock));
}

TEST_F(HotKeyManagerOnX11, aPresetOfAnotherApplicationIsLeftToItUntilAnotherIsChosen)
{
    ASSERT_TRUE(other.grabKey(Key::v, superShift));
    int calls = 0;
    HotKeyManager manager(room.hotKeyCenter, HotKeyPreset::cmdShiftV, [&] { ++calls; });
    manager.updatePreset(HotKeyPreset::cmdOptionV);
    typist.tapWith({Key::superLeft, Key::shiftLeft}, Key::v);
    typist.tapWith({Key::superLeft, Key::altLeft}, Key::v);
    EXPECT_TRUE(waitUntil([&] { return calls == 1; }));
    other.ungrabKey(Key::v, superShift);
    EXPECT_TRUE(isFree(superShift));
}

} // namespace
} // namespace tessel
