#include <gmock/gmock.h>

#include "Fakes/FakeDesktop.h"

namespace tessel::test {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

class LaunchAtLogin : public testing::Test {
protected:
    FakeDesktop desktop;

    AppState& launchWithStatus(LoginItemStatus status)
    {
        desktop.loginItem->current = status;
        AppState& state = desktop.launch();
        desktop.log->forget();
        return state;
    }
};

TEST_F(LaunchAtLogin, IsOnAtStartOnlyWhenTheSystemSaysEnabled)
{
    EXPECT_TRUE(*launchWithStatus(LoginItemStatus::enabled).launchAtLogin);
    EXPECT_FALSE(*launchWithStatus(LoginItemStatus::notRegistered).launchAtLogin);
    EXPECT_FALSE(*launchWithStatus(LoginItemStatus::requiresApproval).launchAtLogin);
    EXPECT_FALSE(*launchWithStatus(LoginItemStatus::notFound).launchAtLogin);
}

TEST_F(LaunchAtLogin, TurnedOnRegistersTheItem)
{
    AppState& state = launchWithStatus(LoginItemStatus::notRegistered);
    state.launchAtLogin = true;
    EXPECT_THAT(desktop.log->effects(), ElementsAre("loginItem.register"));
    EXPECT_TRUE(*state.launchAtLogin);
}

TEST_F(LaunchAtLogin, TurnedOffUnregistersTheItem)
{
    AppState& state = launchWithStatus(LoginItemStatus::enabled);
    state.launchAtLogin = false;
    EXPECT_THAT(desktop.log->effects(), ElementsAre("loginItem.unregister"));
    EXPECT_FALSE(*state.launchAtLogin);
}

TEST_F(LaunchAtLogin, TurnedOnWhereItIsOnAlreadyMakesNoCall)
{
    AppState& state = launchWithStatus(LoginItemStatus::notRegistered);
    desktop.loginItem->current = LoginItemStatus::enabled; // Changed behind our back.
    state.launchAtLogin = true;
    EXPECT_THAT(desktop.log->effects(), IsEmpty());
    EXPECT_TRUE(*state.launchAtLogin);
}

TEST_F(LaunchAtLogin, TurnedOffWhereItIsNotOnMakesNoCall)
{
    AppState& state = launchWithStatus(LoginItemStatus::requiresApproval);
    state.launchAtLogin = false;
    EXPECT_THAT(desktop.log->effects(), IsEmpty());
}

TEST_F(LaunchAtLogin, SpringsBackWhenTheSystemRefusesToRegister)
{
    AppState& state = launchWithStatus(LoginItemStatus::notRegistered);
    desktop.loginItem->behaviour = LoginItemBehaviour::refuses;
    std::vector<bool> valuesBefore;
    const Token token = state.observe([&] { valuesBefore.push_back(*state.launchAtLogin); });
    state.launchAtLogin = true;
    EXPECT_FALSE(*state.launchAtLogin);
    EXPECT_THAT(valuesBefore, ElementsAre(false, true));
    EXPECT_THAT(desktop.log->effects(), ElementsAre("loginItem.register"));
}

TEST_F(LaunchAtLogin, SpringsBackWhenTheUserHasYetToApprove)
{
    AppState& state = launchWithStatus(LoginItemStatus::notRegistered);
    desktop.loginItem->behaviour = LoginItemBehaviour::waitsForApproval;
    state.launchAtLogin = true;
    EXPECT_FALSE(*state.launchAtLogin);
}

TEST_F(LaunchAtLogin, SpringsBackWhenTheSystemRefusesToUnregister)
{
    AppState& state = launchWithStatus(LoginItemStatus::enabled);
    desktop.loginItem->behaviour = LoginItemBehaviour::refuses;
    state.launchAtLogin = false;
    EXPECT_TRUE(*state.launchAtLogin);
    EXPECT_THAT(desktop.log->effects(), ElementsAre("loginItem.unregister"));
}

TEST_F(LaunchAtLogin, StandsWhenAFailureWasReportedButTheSystemAgreesAllTheSame)
{
    AppState& state = launchWithStatus(LoginItemStatus::notRegistered);
    desktop.loginItem->behaviour = LoginItemBehaviour::obeysButReportsFailure;
    int announcements = 0;
    const Token token = state.observe([&] { ++announcements; });
    state.launchAtLogin = true;
    EXPECT_TRUE(*state.launchAtLogin);
    EXPECT_EQ(announcements, 1);
}

TEST_F(LaunchAtLogin, IsOffAndCannotBeTurnedOnWithoutALoginItem)
{
    desktop.loginItem.reset();
    AppState& state = desktop.launch();
    EXPECT_FALSE(*state.launchAtLogin);
    state.launchAtLogin = true;
    EXPECT_FALSE(*state.launchAtLogin);
    state.launchAtLogin = false;
    EXPECT_FALSE(*state.launchAtLogin);
}

TEST_F(LaunchAtLogin, IsNotKeptInTheDefaultsStore)
{
    AppState& state = launchWithStatus(LoginItemStatus::notRegistered);
    state.launchAtLogin = true;
    EXPECT_THAT(desktop.defaults->writes(), IsEmpty());
}

TEST_F(LaunchAtLogin, IsNeverTurnedOnByTheStart)
{
    desktop.launch();
    EXPECT_EQ(desktop.loginItem->current, LoginItemStatus::notRegistered);
}

} // namespace
} // namespace tessel::test
