#include <gmock/gmock.h>

#include "Fakes/FakeDesktop.h"

namespace tessel::test {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

class EscapeMonitor : public testing::Test {
protected:
    FakeDesktop desktop;
    AppState& state = desktop.launch();

    EventOutcome pressEscape(ModifierFlags flags = ModifierFlags::none)
    {
        desktop.log->forget();
        return desktop.eventMonitors->press(53, flags);
    }
};

TEST_F(EscapeMonitor, IsInstalledOnceFromTheStartOn)
{
    EXPECT_EQ(desktop.eventMonitors->count(), 1U);
    state.showPanel();
    state.showSettingsWindow();
    EXPECT_EQ(desktop.eventMonitors->count(), 1U);
}

TEST_F(EscapeMonitor, PassesEscapeOnWhereNoWindowIsVisible)
{
    EXPECT_EQ(pressEscape(), EventOutcome::passOn);
    EXPECT_THAT(desktop.log->effects(), IsEmpty());
}

TEST_F(EscapeMonitor, ClosesThePanelThenTheSettingsThenTheAboutWindowOneForEachPress)
{
    state.showAboutWindow();
    state.showSettingsWindow();
    state.showPanel();
    EXPECT_EQ(pressEscape(), EventOutcome::consumed);
    EXPECT_THAT(desktop.log->effects(), ElementsAre("panel.close", "panel.drop"));
    EXPECT_EQ(pressEscape(), EventOutcome::consumed);
    EXPECT_THAT(desktop.log->effects(), ElementsAre("settings.close", "settings.drop"));
    EXPECT_EQ(pressEscape(), EventOutcome::consumed);
    EXPECT_THAT(desktop.log->effects(), ElementsAre("about.close", "about.drop"));
    EXPECT_EQ(pressEscape(), EventOutcome::passOn);
    EXPECT_EQ(state.panelController, nullptr);
    EXPECT_EQ(state.settingsController, nullptr);
    EXPECT_EQ(state.aboutController, nullptr);
}

TEST_F(EscapeMonitor, ClosesOnlyThePanelWhereTheSettingsAreVisibleToo)
{
    state.showSettingsWindow();
    state.showPanel();
    EXPECT_EQ(pressEscape(), EventOutcome::consumed);
    ASSERT_NE(desktop.settings(), nullptr);
    EXPECT_TRUE(desktop.settings()->isWindowVisible());
    EXPECT_EQ(pressEscape(), EventOutcome::consumed);
    EXPECT_EQ(pressEscape(), EventOutcome::passOn);
}

TEST_F(EscapeMonitor, SkipsAHiddenPanelAndKeepsIt)
{
    state.showSettingsWindow();
    state.showPanel();
    desktop.panel()->hide();
    EXPECT_EQ(pressEscape(), EventOutcome::consumed);
    EXPECT_EQ(desktop.settings(), nullptr);
    EXPECT_NE(desktop.panel(), nullptr);
    EXPECT_EQ(pressEscape(), EventOutcome::passOn);
}

TEST_F(EscapeMonitor, SkipsAWindowThatWasClosedByTheSystemOrLost)
{
    state.showSettingsWindow();
    state.showAboutWindow();
    desktop.settings()->loseWindow();
    desktop.about()->hide();
    EXPECT_EQ(pressEscape(), EventOutcome::passOn);
    EXPECT_NE(desktop.settings(), nullptr);
    EXPECT_NE(desktop.about(), nullptr);
}

TEST_F(EscapeMonitor, DoesNotLookAtModifiers)
{
    state.showPanel();
    EXPECT_EQ(pressEscape(ModifierFlags::command | ModifierFlags::shift), EventOutcome::consumed);
}

TEST_F(EscapeMonitor, LeavesTheOnboardingWindowOpen)
{
    desktop.trust->isTrusted = false;
    desktop.launch();
    ASSERT_NE(desktop.onboarding(), nullptr);
    EXPECT_EQ(pressEscape(), EventOutcome::passOn);
    EXPECT_TRUE(desktop.onboarding()->isWindowVisible());
}

TEST_F(EscapeMonitor, PassesEveryOtherKeyOn)
{
    state.showPanel();
    for (unsigned keyCode = 0; keyCode <= 0xFFFF; ++keyCode) {
        if (keyCode == 53)
            continue;
        ASSERT_EQ(desktop.eventMonitors->press(static_cast<std::uint16_t>(keyCode)), EventOutcome::passOn)
            << keyCode;
    }
    EXPECT_TRUE(desktop.panel()->isWindowVisible());
}

} // namespace
} // namespace tessel::test
