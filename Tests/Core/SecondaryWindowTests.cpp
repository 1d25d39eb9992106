#include <gmock/gmock.h>

#include "Fakes/FakeDesktop.h"

namespace tessel::test {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

class SecondaryWindow : public testing::Test {
protected:
    FakeDesktop desktop;
    AppState& state = desktop.launch();

    void SetUp() override { desktop.log->forget(); }
};

TEST_F(SecondaryWindow, IsMadeShownAndThenTheApplicationActivated)
{
    state.showSettingsWindow();
    EXPECT_THAT(desktop.log->effects(),
                ElementsAre("settings.make", "settings.showWindow", "application.activate ignoring others"));
    desktop.log->forget();
    state.showAboutWindow();
    EXPECT_THAT(desktop.log->effects(),
                ElementsAre("about.make", "about.showWindow", "application.activate ignoring others"));
}

TEST_F(SecondaryWindow, IsShownAgainWithoutBeingRebuilt)
{
    state.showSettingsWindow();
    state.showAboutWindow();
    desktop.settings()->hide();
    desktop.log->forget();
    state.showSettingsWindow();
    state.showAboutWindow();
    EXPECT_THAT(desktop.log->effects(),
                ElementsAre("settings.showWindow", "application.activate ignoring others", "about.showWindow",
                            "application.activate ignoring others"));
}

TEST_F(SecondaryWindow, IsBuiltAnewAfterItHasBeenClosed)
{
    state.showSettingsWindow();
    closeAndDrop(state.settingsController);
    desktop.log->forget();
    state.showSettingsWindow();
    EXPECT_EQ(desktop.log->effects().front(), "settings.make");
}

TEST_F(SecondaryWindow, ThatIsAbsentDoesNothing)
{
    const auto bare = AppState::create(desktop.platform(), {});
    desktop.log->forget();
    bare->showSettingsWindow();
    bare->showAboutWindow();
    EXPECT_THAT(desktop.log->effects(), IsEmpty());
}

TEST_F(SecondaryWindow, ClosingAndDroppingAnAbsentOneDoesNothing)
{
    closeAndDrop(state.aboutController);
    EXPECT_THAT(desktop.log->effects(), IsEmpty());
}

} // namespace
} // namespace tessel::test
