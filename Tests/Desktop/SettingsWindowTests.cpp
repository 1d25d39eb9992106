// The controls of the settings window in the running program, found as a screen reader finds them and moved
// by a real pointer and real keys, with what each of them changes at once.

#include <array>
#include <fstream>
#include <sstream>

#include "AccessibilityBus.h"
#include "ScreenReader.h"
#include "SecondaryWindowTest.h"

namespace tessel::desktop {

namespace {

using testing::HasSubstr;

class SettingsWindowTest : public SecondaryWindowTest {
protected:
    /// See AccessibilityTest.
    SettingsWindowTest()
        : SecondaryWindowTest({.leakCheck = LeakCheck::off})
    {}

    void SetUp() override
    {
        bus_.emplace(desktop_, AccessibilityBus::Status::enabled);
        SecondaryWindowTest::SetUp();
    }
    void TearDown() override
    {
        reader_.reset();
        SecondaryWindowTest::TearDown();
    }

    ScreenReader& reader()
    {
        if (!reader_)
            reader_.emplace(desktop_, program_->process().pid());
        return *reader_;
    }
    /// The middle of a control that is to be seen.
    Place placeOf(const std::string& role, const std::string& name)
    {
        const auto frame = reader().waitForNode(role, name).extents;
        return {frame.x + frame.width / 2, frame.y + frame.height / 2};
    }
    void click(const std::string& role, const std::string& name)
    {
        desktop_.pointer().moveTo(placeOf(role, name));
        desktop_.pointer().click();
    }
    void waitForLabel(const std::string& text) { reader().waitForNode("label", text); }

    std::string settingsFile() const
    {
        std::ostringstream text;
        text << std::ifstream(desktop_.directory().path() / "home/.config/tessel-clipboard/settings.json")
                    .rdbuf();
        return text.str();
    }
    void waitForSetting(const std::string& name, const std::string& value)
    {
        const std::string line = "\"tesselclipboard." + name + "\": " + value;
        desktop_.connection().waitUntil("the settings file to have " + line,
                                        [&] { return settingsFile().find(line) != std::string::npos; });
    }
    bool isGrabbed(const HotKey& hotKey) { return desktop_.keyboard().isGrabbed(XKB_KEY_v, hotKey.mask); }
    /// The hot key is this one and none of the others.
    void waitForHotKey(const HotKey& hotKey)
    {
        desktop_.connection().waitUntil("the hot key to be grabbed", [&] { return isGrabbed(hotKey); });
        for (const auto& preset : {superShiftV, controlShiftV, superAltV})
            EXPECT_EQ(isGrabbed(preset), preset.mask == hotKey.mask) << preset.mask;
    }

    std::optional<AccessibilityBus> bus_;
    std::optional<ScreenReader> reader_;
};

TEST_F(SettingsWindowTest, APresetOfTheHotKeyIsGrabbedAtOnceAndKept)
{
    openSettings();
    click("combo box", "Cmd + Shift + V");
    desktop_.keyboard().tap(XKB_KEY_Down);
    desktop_.keyboard().tap(XKB_KEY_Return);
    waitForSetting("hotKeyPreset", "\"ctrlShiftV\"");
    waitForHotKey(controlShiftV);
    desktop_.keyboard().chord({XKB_KEY_Control_L, XKB_KEY_Shift_L}, XKB_KEY_v);
    program_->panel().waitUntilOpen();
    program_->closePanel();
    endProgram();
    reader_.reset();
    program_.emplace(desktop_, std::vector<std::string>{}, controlShiftV);
}

TEST_F(SettingsWindowTest, APresetOfTheHotKeyIsToldByAnOpenAboutWindow)
{
    openAbout();
    waitForLabel("Cmd + Shift + V");
    openSettings();
    settings().waitUntilOpen();
    desktop_.windows().move(settings().find().value().window, 20, 20);
    settings().waitForFrame({20, 20, 420, 520});
    program_->waitUntilItHasRead();
    const auto before = about().picture();
    click("combo box", "Cmd + Shift + V");
    desktop_.keyboard().tap(XKB_KEY_Down);
    desktop_.keyboard().tap(XKB_KEY_Down);
    desktop_.keyboard().tap(XKB_KEY_Return);
    waitForHotKey(superAltV);
    waitForLabel("Cmd + Option + V");
    about().waitUntilItDiffersFrom(before);
}

TEST_F(SettingsWindowTest, ThirtySecondsRemoveOlderEntriesAtOnceUnderAnOpenPanel)
{
    copyTexts({"A", "B", "C"});
    const auto copied = std::chrono::steady_clock::now();
    openSettings();
    desktop_.pointer().moveTo({760, 20});
    program_->openPanel();
    program_->panel().waitForHeight(Panel::heightFor(3));
    desktop_.connection().waitUntil("the entries to be older than half a minute",
                                    [&] { return std::chrono::steady_clock::now() - copied > 31s; });
    waitForLabel("3 items");
    click("radio button", "30s");
    waitForLabel("30s");
    waitForLabel("0 items");
    EXPECT_TRUE(program_->panel().isOpen());
    waitForSetting("quickClearPolicy", "\"custom\"");
    waitForSetting("quickClearCustomSeconds", "30");
}

TEST_F(SettingsWindowTest, ChoosesHowLongEntriesAreKept)
{
    openSettings();
    click("radio button", "5m");
    waitForSetting("quickClearCustomSeconds", "300");
    waitForSetting("quickClearPolicy", "\"custom\"");
    click("radio button", "24h");
    waitForLabel("24h");
    waitForSetting("quickClearPolicy", "\"oneDay\"");
    EXPECT_THAT(settingsFile(), HasSubstr("\"tesselclipboard.quickClearCustomSeconds\": 300"));
    click("radio button", "1h");
    waitForSetting("quickClearCustomSeconds", "3600");
    waitForSetting("quickClearPolicy", "\"custom\"");
    click("radio button", "Infinity");
    waitForLabel("Infinity");
    waitForSetting("quickClearPolicy", "\"never\"");
}

TEST_F(SettingsWindowTest, TheSliderDarkensAnOpenPanelAtOnce)
{
    desktop_.pixels().paintBackground(Colour{200, 190, 180});
    openSettings();
    desktop_.pointer().moveTo({780, 20});
    program_->openPanel();
    const auto before = program_->panel().picture();
    const auto slider = reader().waitForNode("slider", "Panel transparency").extents;
    desktop_.pointer().moveTo({slider.x + slider.width - 3, slider.y + slider.height / 2});
    desktop_.pointer().press();
    desktop_.pointer().release();
    waitForLabel("70%");
    waitForSetting("panelTintOpacity", "0.7");
    program_->panel().waitUntilItDiffersFrom(before);
}

TEST_F(SettingsWindowTest, AStoredOpacityBeyondTheSliderIsShownUntilResetIsPressed)
{
    reader_.reset();
    restartProgramWith(R"({"tesselclipboard.panelTintOpacity": 0.95})");
    openSettings();
    waitForLabel("95%");
    EXPECT_THAT(settingsFile(), HasSubstr("0.95"));
    click("push button", "Reset");
    waitForLabel("25%");
    waitForSetting("panelTintOpacity", "0.25");
}

TEST_F(SettingsWindowTest, AStoredOpacityBeyondTheSliderIsClampedByTheFirstStep)
{
    reader_.reset();
    restartProgramWith(R"({"tesselclipboard.panelTintOpacity": 0.95})");
    openSettings();
    waitForLabel("95%");
    const auto slider = reader().waitForNode("slider", "Panel transparency").extents;
    desktop_.pointer().moveTo({slider.x + 3, slider.y + slider.height / 2});
    desktop_.pointer().click();
    waitForLabel("10%");
    waitForSetting("panelTintOpacity", "0.1");
}

TEST_F(SettingsWindowTest, CloseClosesItAndTheNextOneIsBackInTheMiddle)
{
    const auto first = openSettings();
    desktop_.windows().move(first.window, 20, 20);
    settings().waitForFrame({20, 20, 420, 520});
    program_->waitUntilItHasRead();
    click("push button", "Close");
    settings().waitUntilClosed();
    openSettings();
    settings().waitForFrame(first.frame);
}

TEST_F(SettingsWindowTest, KeysAloneReachEverything)
{
    openSettings();
    const auto tabTo = [&](const std::string& role, const std::string& name) {
        desktop_.connection().waitUntil("Tab to reach " + name, [&] {
            if (reader().waitForNode(role, name).is("focused"))
                return true;
            desktop_.keyboard().tap(XKB_KEY_Tab);
            program_->waitUntilItHasRead();
            return false;
        });
    };
    tabTo("combo box", "Cmd + Shift + V");
    desktop_.keyboard().tap(XKB_KEY_Down);
    waitForHotKey(controlShiftV);
    tabTo("slider", "Panel transparency");
    desktop_.keyboard().tap(XKB_KEY_Right);
    waitForLabel("26%");
    waitForSetting("panelTintOpacity", "0.26");
    tabTo("push button", "Close");
    desktop_.keyboard().tap(XKB_KEY_space);
    settings().waitUntilClosed();
}

} // namespace

} // namespace tessel::desktop
