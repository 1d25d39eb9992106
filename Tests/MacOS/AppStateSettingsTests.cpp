// The settings of the whole state on the macOS backend: what is read, what is written, and the login item.

#include <utility>

#include "Support/AppStateTest.h"

namespace tessel::test {
namespace {

using AppStateSettingsTests = AppStateTest;

TEST_F(AppStateSettingsTests, StartsWithTheSettingsThatAreStoredAndRegistersTheStoredPreset)
{
    // Control and Shift. A stored opacity beyond the range stands.
    launchWith({.quickClearPolicy = "oneDay",
                .quickClearCustomSeconds = 60.0,
                .hotKeyPreset = "ctrlShiftV",
                .panelTintOpacity = 0.95},
               "0x1200");
    EXPECT_EQ(*state->quickClearPolicy, QuickClearPolicy::oneDay);
    EXPECT_EQ(*state->quickClearCustomSeconds, 60);
    EXPECT_EQ(*state->hotKeyPreset, HotKeyPreset::ctrlShiftV);
    EXPECT_EQ(*state->panelTintOpacity, 0.95);
}

TEST_F(AppStateSettingsTests, StoredSettingsOfAnotherKindOrNameGiveTheDefaults)
{
    for (const auto& [policy, preset] : {std::pair("weekly", "foo"), {"Never", "CmdShiftV"}, {"", ""}}) {
        launchWith({.quickClearPolicy = policy,
                    .quickClearCustomSeconds = "60",
                    .hotKeyPreset = preset,
                    .panelTintOpacity = "0.5"});
        EXPECT_EQ(*state->quickClearPolicy, QuickClearPolicy::never);
        EXPECT_EQ(*state->quickClearCustomSeconds, 900);
        EXPECT_EQ(*state->hotKeyPreset, HotKeyPreset::cmdShiftV);
        EXPECT_EQ(*state->panelTintOpacity, 0.25);
        quit();
    }
}

TEST_F(AppStateSettingsTests, StoredSecondsAreMovedIntoTheirRange)
{
    for (const auto& [stored, seconds] : {std::pair(5.0, 30.0), {100000.0, 21600.0}}) {
        launchWith({.quickClearCustomSeconds = stored});
        EXPECT_EQ(*state->quickClearCustomSeconds, seconds);
        quit();
    }
}

TEST_F(AppStateSettingsTests, APolicyIsWrittenUnderItsKeyAndThenWhatHasExpiredIsLookedFor)
{
    launch();
    expectCall("[defaults setObject:@\"oneDay\" forKey:@\"tesselclipboard.quickClearPolicy\"]");
    expectDate();
    state->quickClearPolicy = QuickClearPolicy::oneDay;
    expectNoMore();
}

TEST_F(AppStateSettingsTests, TheSecondsAreWrittenOnceUnderTheirKeyAsTheDoubleThatTheyAreClampedTo)
{
    launch();
    expectCall("[defaults setDouble:30 forKey:@\"tesselclipboard.quickClearCustomSeconds\"]");
    state->quickClearCustomSeconds = 10;
    EXPECT_EQ(*state->quickClearCustomSeconds, 30);
}

TEST_F(AppStateSettingsTests, TheOpacityIsWrittenOnceUnderItsKeyAsTheDoubleThatItIsClampedTo)
{
    launchWith({.panelTintOpacity = 0.95});
    expectCall("[defaults setDouble:0.7 forKey:@\"tesselclipboard.panelTintOpacity\"]");
    state->panelTintOpacity = 0.8;
    EXPECT_EQ(*state->panelTintOpacity, 0.7);
}

TEST_F(AppStateSettingsTests, TurningLaunchAtLoginOnRegistersTheItemAndTurningItOffUnregistersIt)
{
    launch();
    expectLoginItemStatus(0);
    expectLoginItemChange("registerAndReturnError", true);
    state->launchAtLogin = true;
    expectNoMore();
    EXPECT_TRUE(*state->launchAtLogin);

    expectLoginItemStatus(1);
    expectLoginItemChange("unregisterAndReturnError", true);
    state->launchAtLogin = false;
    expectNoMore();
    EXPECT_FALSE(*state->launchAtLogin);
}

TEST_F(AppStateSettingsTests, ALoginItemThatIsAsItIsWantedIsNeitherRegisteredNorUnregistered)
{
    launch();
    expectLoginItemStatus(1);
    state->launchAtLogin = true;
    expectNoMore();
    EXPECT_TRUE(*state->launchAtLogin);

    expectLoginItemStatus(2); // What waits for approval is not on.
    state->launchAtLogin = false;
    expectNoMore();
    EXPECT_FALSE(*state->launchAtLogin);
}

} // namespace
} // namespace tessel::test
