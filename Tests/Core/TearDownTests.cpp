#include <gmock/gmock.h>

#include "Fakes/FakeDesktop.h"

namespace tessel::test {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;
using testing::IsSupersetOf;

class TearDownOfTheState : public testing::Test {
protected:
    FakeDesktop desktop;
};

TEST_F(TearDownOfTheState, StopsTheTimerThenTheMonitorThenTheHotKeyThenItsHandler)
{
    desktop.launch();
    desktop.log->forget();
    desktop.quit();
    EXPECT_THAT(desktop.log->effects(), ElementsAre("queue.stopRepeating", "eventMonitors.remove",
                                                    "hotKey.unregister 9 0x0300", "hotKey.removeHandler"));
    EXPECT_EQ(desktop.queue->jobCount(), 0U);
    EXPECT_EQ(desktop.eventMonitors->count(), 0U);
    EXPECT_EQ(desktop.hotKeyCenter->handlerCount(), 0U);
}

TEST_F(TearDownOfTheState, ReleasesEveryWindow)
{
    desktop.trust->isTrusted = false;
    AppState& state = desktop.launch();
    state.showPanel();
    state.showSettingsWindow();
    state.showAboutWindow();
    desktop.log->forget();
    desktop.quit();
    EXPECT_THAT(desktop.log->effects(),
                IsSupersetOf({"panel.drop", "settings.drop", "about.drop", "onboarding.drop"}));
}

TEST_F(TearDownOfTheState, LeavesNoTickBehind)
{
    desktop.launch();
    desktop.quit();
    desktop.pasteboard->copyFromElsewhere("A");
    desktop.log->forget();
    desktop.queue->advance(10);
    EXPECT_THAT(desktop.log->everything(), IsEmpty());
}

TEST_F(TearDownOfTheState, LeavesNoHotKeyPressBehind)
{
    desktop.launch();
    desktop.hotKeyCenter->press(9, 0x0300);
    desktop.quit();
    desktop.log->forget();
    desktop.queue->runPending();
    EXPECT_THAT(desktop.log->everything(), IsEmpty());
}

TEST_F(TearDownOfTheState, LeavesNoPasteBehind)
{
    AppState& state = desktop.launch();
    desktop.copy("A");
    state.showPanel();
    state.copyAndPaste(desktop.item("A"));
    desktop.queue->advance(0.1);
    desktop.quit();
    desktop.queue->advance(1);
    EXPECT_THAT(desktop.keyStrokes->strokes(), IsEmpty());
}

TEST_F(TearDownOfTheState, LeavesNoTrustCheckBehind)
{
    desktop.trust->isTrusted = false;
    desktop.launchWithoutTurn();
    desktop.quit();
    desktop.log->forget();
    desktop.queue->runPending();
    EXPECT_THAT(desktop.log->everything(), IsEmpty());
}

/// Keeps every handler, also those that were removed, as a system would whose removal comes into effect late.
class LingeringEventMonitors final : public EventMonitors {
public:
    std::vector<Handler> handlers;

    std::optional<EventMonitorToken> addLocalMonitor(std::uint64_t, Handler handler) override
    {
        handlers.push_back(std::move(handler));
        return EventMonitorToken{1};
    }
    void removeMonitor(EventMonitorToken) override {}
};

TEST_F(TearDownOfTheState, LetsALateEscapePass)
{
    const auto monitors = std::make_shared<LingeringEventMonitors>();
    Platform platform = desktop.platform();
    platform.eventMonitors = monitors;
    auto state = AppState::create(platform, desktop.windowFactory());
    state->showPanel();
    state.reset();
    ASSERT_EQ(monitors->handlers.size(), 1U);
    EXPECT_EQ(monitors->handlers.front()({VirtualKey::escape}), EventOutcome::passOn);
}

TEST_F(TearDownOfTheState, InTheMiddleOfATickEndsTheTickBeforeThePasteboardIsLookedAt)
{
    AppState& state = desktop.launch();
    state.quickClearPolicy = QuickClearPolicy::custom;
    state.quickClearCustomSeconds = 30;
    desktop.copy("A");
    desktop.queue->advance(28);
    desktop.clock->jump(10);
    Token token = state.observe([this] { desktop.state.reset(); });
    desktop.log->forget();
    desktop.tick(); // The entry expires, and the observer of that drops the last owner of the state.
    EXPECT_EQ(desktop.state, nullptr);
    EXPECT_THAT(desktop.log->everything(), testing::Not(testing::Contains("pasteboard.changeCount")));
    EXPECT_EQ(desktop.queue->jobCount(), 0U);
}

} // namespace
} // namespace tessel::test
