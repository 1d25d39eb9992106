// The system-wide key that opens and closes the panel.

#include <algorithm>

#include "PanelRows.h"
#include "ProgramTest.h"

namespace tessel::desktop {

namespace {

class HotKeyTest : public ProgramTest {
protected:
    void runOnDesktop(std::vector<std::string> command)
    {
        const auto result = runCommand(std::move(command), desktop_.environment());
        ASSERT_TRUE(result.status.succeeded()) << result.errorOutput;
    }
    void repeatHeldKeysQuickly() { runOnDesktop({"xset", "r", "rate", "100", "50"}); }

    /// Presses keys where they are, whatever their symbols, and releases them in the opposite order.
    void pressInPlace(const std::vector<xcb_keycode_t>& keys)
    {
        for (const auto key : keys)
            desktop_.keyboard().pressKey(key);
        for (auto key = keys.rbegin(); key != keys.rend(); ++key)
            desktop_.keyboard().releaseKey(*key);
    }
};

/// The places of keys on a PC keyboard, by their numbers (evdev).
namespace Position {
constexpr xcb_keycode_t controlLeft = 37;
constexpr xcb_keycode_t shiftLeft = 50;
constexpr xcb_keycode_t superLeft = 133;
constexpr xcb_keycode_t v = 55;
constexpr xcb_keycode_t p = 33;
constexpr xcb_keycode_t r = 27; ///< Where the Dvorak layout has its letter p.
} // namespace Position

TEST_F(HotKeyTest, OpensAndCloses)
{
    for (int round = 0; round < 3; ++round) {
        program_->openPanel();
        program_->pressHotKey();
        program_->panel().waitUntilClosed();
    }
}

TEST_F(HotKeyTest, PressedTwiceInQuickSuccessionOpensAndCloses)
{
    // Two presses that are ignored leave it closed, too; of three that count the third one opens it.
    for (const int presses : {2, 3}) {
        for (int press = 0; press < presses; ++press)
            program_->pressHotKey();
        letTheProgramTick();
        program_->waitUntilItHasRead();
        if (presses == 2)
            program_->panel().waitUntilClosed();
        else
            program_->panel().waitUntilOpen();
    }
    program_->closePanel();
}

TEST_F(HotKeyTest, TogglesOnceHoweverShortOrLongItIsHeld)
{
    for (const auto hold : {5ms, 50ms}) {
        program_->pressHotKey(hold);
        program_->panel().waitUntilOpen();
        program_->pressHotKey(hold);
        program_->panel().waitUntilClosed();
    }
    repeatHeldKeysQuickly();
    for (const auto key : {XKB_KEY_Super_L, XKB_KEY_Shift_L, XKB_KEY_v})
        desktop_.keyboard().press(static_cast<KeySymbol>(key));
    const auto window = program_->panel().waitUntilOpen().window;
    std::this_thread::sleep_for(2000ms); // The user's finger.
    for (const auto key : {XKB_KEY_v, XKB_KEY_Shift_L, XKB_KEY_Super_L})
        desktop_.keyboard().release(static_cast<KeySymbol>(key));
    const auto panel = program_->panel().find();
    ASSERT_TRUE(panel);
    EXPECT_EQ(panel->window, window) << "Each opening makes a window of its own.";
    program_->pressHotKey();
    program_->panel().waitUntilClosed();
}

TEST_F(HotKeyTest, ReachesNoEditorInWhateverOrderItsKeysAreReleased)
{
    repeatHeldKeysQuickly();
    TextClient editor(desktop_, TextClientKind::gtk);
    std::vector<KeySymbol> releases{XKB_KEY_Super_L, XKB_KEY_Shift_L, XKB_KEY_v};
    std::sort(releases.begin(), releases.end());
    bool isOpen = false;
    do {
        for (const auto key : {XKB_KEY_Super_L, XKB_KEY_Shift_L})
            desktop_.keyboard().press(static_cast<KeySymbol>(key));
        desktop_.keyboard().press(XKB_KEY_v);
        std::this_thread::sleep_for(200ms); // The user's finger, and time for the key to be repeated.
        for (const KeySymbol key : releases)
            desktop_.keyboard().release(key);
        isOpen = !isOpen;
        if (isOpen)
            program_->panel().waitUntilOpen();
        else
            program_->panel().waitUntilClosed();
    } while (std::next_permutation(releases.begin(), releases.end()));
    ASSERT_FALSE(isOpen);
    editor.activate();
    desktop_.keyboard().type("x");
    editor.waitForText("x");
    EXPECT_EQ(editor.pasteCount(), 0);
}

TEST_F(HotKeyTest, KeepsNoKeyFromThePanelWhileItIsHeld)
{
    copyTexts({"A", "B"});
    PanelRows rows(desktop_, *program_);
    for (const auto key : {XKB_KEY_Super_L, XKB_KEY_Shift_L, XKB_KEY_v})
        desktop_.keyboard().press(static_cast<KeySymbol>(key));
    program_->panel().waitUntilOpen();
    rows.waitForSelection(0);
    desktop_.keyboard().tap(XKB_KEY_Down);
    rows.waitForSelection(1);
    desktop_.keyboard().tap(XKB_KEY_Return);
    for (const auto key : {XKB_KEY_v, XKB_KEY_Super_L, XKB_KEY_Shift_L})
        desktop_.keyboard().release(static_cast<KeySymbol>(key));
    program_->panel().waitUntilClosed();
    ClipboardReader reader(desktop_.displayName());
    desktop_.connection().waitUntil("the second entry on the clipboard",
                                    [&] { return reader.readText() == "A"; });
}

TEST_F(HotKeyTest, WorksUnderCapsLockAndNumLock)
{
    for (const auto lock : {XKB_KEY_Caps_Lock, XKB_KEY_Num_Lock}) {
        desktop_.keyboard().tap(static_cast<KeySymbol>(lock));
        program_->openPanel();
        program_->closePanel();
        desktop_.keyboard().tap(static_cast<KeySymbol>(lock));
    }
}

TEST_F(HotKeyTest, AndThePanelsKeysWorkInEveryLayout)
{
    struct Layout {
        std::string name;
        std::string variant;
        xcb_keycode_t pinKey;
    };
    copyTexts({"A", "B"});
    PanelRows rows(desktop_, *program_);
    const auto haveTwoSections = [](const auto& seen) {
        constexpr int spacing = 20; // Between two rows of one section there is less.
        return seen.size() == 2 && seen[1].top - seen[0].bottom > spacing;
    };
    for (const auto& layout : std::vector<Layout>{{"de", "", Position::p},
                                                  {"fr", "", Position::p},
                                                  {"us", "dvorak", Position::r},
                                                  {"ru", "", Position::p},
                                                  {"gr", "", Position::p}}) {
        SCOPED_TRACE(layout.name + " " + layout.variant);
        runOnDesktop({"setxkbmap", "-layout", layout.name, "-variant", layout.variant});
        pressInPlace({Position::superLeft, Position::shiftLeft, Position::v});
        program_->panel().waitUntilOpen();
        for (const auto command : {Position::controlLeft, Position::superLeft}) {
            pressInPlace({command, layout.pinKey});
            rows.waitUntil("both sections", haveTwoSections);
            pressInPlace({command, layout.pinKey});
            rows.waitUntil("one section",
                           [&](const auto& seen) { return seen.size() == 2 && !haveTwoSections(seen); });
        }
        pressInPlace({Position::superLeft, Position::shiftLeft, Position::v});
        program_->panel().waitUntilClosed();
    }
}

TEST_F(HotKeyTest, WorksInTheSecondOfTwoLayouts)
{
    runOnDesktop({"setxkbmap", "-layout", "us,ru", "-option", "grp:menu_toggle"});
    constexpr xcb_keycode_t menu = 135;
    pressInPlace({menu});
    pressInPlace({Position::superLeft, Position::shiftLeft, Position::v});
    program_->panel().waitUntilOpen();
    pressInPlace({Position::superLeft, Position::shiftLeft, Position::v});
    program_->panel().waitUntilClosed();
}

/// The program is started by the tests themselves, with settings of theirs.
class HotKeySettingTest : public HotKeyTest {
protected:
    void SetUp() override {}

    void start(const std::string& preset, const HotKey& hotKey)
    {
        restartProgramWith("{\"tesselclipboard.hotKeyPreset\": \"" + preset + "\"}", hotKey);
    }
};

TEST_F(HotKeySettingTest, IsTheStoredPresetAndNoOther)
{
    struct Preset {
        std::string name;
        HotKey hotKey;
    };
    const std::vector<Preset> presets{
        {"cmdShiftV", superShiftV}, {"ctrlShiftV", controlShiftV}, {"cmdOptionV", superAltV}};
    for (const auto& preset : presets) {
        SCOPED_TRACE(preset.name);
        start(preset.name, preset.hotKey);
        for (const auto& other : presets)
            EXPECT_EQ(desktop_.keyboard().isGrabbed(XKB_KEY_v, other.hotKey.mask), other.name == preset.name)
                << other.name;
        program_->openPanel();
        program_->pressHotKey();
        program_->panel().waitUntilClosed();
    }
}

TEST_F(HotKeySettingTest, IsTheDefaultWhereTheStoredPresetIsUnknown)
{
    for (const std::string preset : {"CmdOptionV", ""}) {
        start(preset, superShiftV);
        EXPECT_FALSE(desktop_.keyboard().isGrabbed(XKB_KEY_v, superAltV.mask));
        program_->openPanel();
        program_->closePanel();
    }
}

TEST_F(HotKeySettingTest, OfAnotherProgramIsLeftToItUntilThatHasGone)
{
    auto other = std::make_unique<XConnection>(desktop_.displayName());
    xcb_grab_key(other->get(), 0, other->root(), superShiftV.mask, desktop_.keyboard().keyCode(XKB_KEY_v),
                 XCB_GRAB_MODE_ASYNC, XCB_GRAB_MODE_ASYNC);
    other->synchronize();
    start("cmdShiftV", superShiftV);
    program_->pressHotKey();
    const Deadline deadline;
    auto event = other->nextEvent(deadline);
    while (event && event->response_type != XCB_KEY_PRESS) // Events of the desktop are among them.
        event = other->nextEvent(deadline);
    EXPECT_TRUE(event) << "The other program has not been given the key.";
    EXPECT_TRUE(Program::runOption(desktop_, "--toggle").status.succeeded());
    program_->panel().waitUntilOpen();
    program_->closePanel();

    other.reset();
    TextClient editor(desktop_, TextClientKind::gtk);
    desktop_.connection().waitUntil("the program to have its hot key", [&] {
        return desktop_.keyboard().isGrabbed(XKB_KEY_v, superShiftV.mask);
    });
    program_->openPanel();
    program_->closePanel();
}

} // namespace

} // namespace tessel::desktop
