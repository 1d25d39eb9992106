// The controls of the settings window in the running program, found as a screen reader finds them and moved
// by a real pointer and real keys, with what each of them changes at once.

#include <algorithm>
#include <array>
#include <filesystem>

#include "AccessibilityBus.h"
#include "FileContent.h"
#include "ScreenReader.h"
#include "SecondaryWindowTest.h"
#include "StatusNotifierHost.h"

namespace tessel::desktop {

namespace {

using testing::HasSubstr;

/// The mean over all pixels and channels, 0 to 255.
double brightness(const Picture& picture)
{
    double sum = 0;
    for (const Colour& colour : picture.pixels)
        sum += (colour[0] + colour[1] + colour[2]) / 3.0;
    return sum / static_cast<double>(picture.pixels.size());
}

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
    /// Opens the menu of the shortcuts, and waits until keys are its own.
    void openPicker(const std::string& title)
    {
        click("combo box", title);
        desktop_.connection().waitUntil("the menu to have the keyboard",
                                        [&] { return desktop_.keyboard().isGrabbed(); });
    }
    void waitForLabel(const std::string& text) { reader().waitForNode("label", text); }

    /// Waits until another node than the one at that path has the focus, and returns it.
    AccessibleNode waitForFocusAwayFrom(const std::string& path)
    {
        AccessibleNode focused;
        reader().waitForTree("the focus away from \"" + path + "\"", [&](const ScreenReader::Tree& tree) {
            const auto found =
                std::ranges::find_if(tree, [](const auto& node) { return node.is("focused"); });
            if (found != tree.end())
                focused = *found;
            return found != tree.end() && focused.path != path;
        });
        return focused;
    }
    std::string settingsFile() const
    {
        return contentOf(desktop_.directory().path() / "home/.config/tessel-clipboard/settings.json");
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
    openPicker("Cmd + Shift + V");
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
    settings().moveTo({20, 20});
    program_->waitUntilItHasRead();
    openPicker("Cmd + Shift + V");
    desktop_.keyboard().tap(XKB_KEY_Down);
    desktop_.keyboard().tap(XKB_KEY_Down);
    desktop_.keyboard().tap(XKB_KEY_Return);
    waitForHotKey(superAltV);
    waitForLabel("Cmd + Option + V");
}

TEST_F(SettingsWindowTest, APresetOfTheHotKeyIsToldByTheOpenMenuOfTheMenuBar)
{
    StatusNotifierHost host(desktop_);
    host.start();
    host.awaitItem();
    host.openMenu();
    host.awaitLabel("Cmd + Shift + V");
    openSettings();
    openPicker("Cmd + Shift + V");
    desktop_.keyboard().tap(XKB_KEY_Down);
    desktop_.keyboard().tap(XKB_KEY_Down);
    desktop_.keyboard().tap(XKB_KEY_Return);
    waitForHotKey(superAltV);
    host.awaitLabel("Cmd + Option + V");
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

TEST_F(SettingsWindowTest, LaunchAtLoginWritesAndRemovesTheEntryOfTheDesktop)
{
    const auto entry =
        desktop_.directory().path() / "home/.config/autostart/org.tesselclipboard.TesselClipboard.desktop";
    openSettings();
    EXPECT_FALSE(std::filesystem::exists(entry));
    click("check box", "Launch at login");
    desktop_.connection().waitUntil("the entry to be there", [&] { return std::filesystem::exists(entry); });
    EXPECT_THAT(contentOf(entry), HasSubstr("Type=Application\n"));
    click("check box", "Launch at login");
    desktop_.connection().waitUntil("the entry to be gone", [&] { return !std::filesystem::exists(entry); });
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
    const auto before = brightness(program_->panel().picture());
    const auto slider = reader().waitForNode("slider", "Panel transparency").extents;
    desktop_.pointer().moveTo({slider.x + slider.width - 3, slider.y + slider.height / 2});
    desktop_.pointer().press();
    desktop_.pointer().release();
    waitForLabel("70%");
    waitForSetting("panelTintOpacity", "0.7");
    // Of what is behind it 30 % come through instead of 75 %. A panel that had not been painted to its end
    // before would have been brighter by a third at most.
    desktop_.connection().waitUntil("the panel to be darker",
                                    [&] { return brightness(program_->panel().picture()) < 0.6 * before; });
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
    settings().moveTo({20, 20});
    program_->waitUntilItHasRead();
    click("push button", "Close");
    settings().waitUntilClosed();
    openSettings();
    settings().waitForFrame(first.frame);
}

TEST_F(SettingsWindowTest, KeysAloneReachEverything)
{
    openSettings();
    auto focused = waitForFocusAwayFrom("");
    const auto tabTo = [&](const std::string& role, const std::string& name) {
        constexpr int mostPresses = 30; // More than once around.
        for (int press = 0; press < mostPresses; ++press) {
            desktop_.keyboard().tap(XKB_KEY_Tab);
            focused = waitForFocusAwayFrom(focused.path);
            if (focused.role == role && focused.name == name)
                return;
        }
        throw DesktopFailure("Tab does not reach the " + role + " \"" + name + "\"");
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
