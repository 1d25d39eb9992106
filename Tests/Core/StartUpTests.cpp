#include <functional>
#include <memory>
#include <utility>

#include <gmock/gmock.h>

#include "Fakes/FakeDesktop.h"

namespace tessel::test {
namespace {

using testing::Contains;
using testing::ElementsAre;
using testing::IsEmpty;
using testing::Not;

/// A main loop that can run again what has been put off last.
class RepeatingQueue final : public MainQueue {
public:
    explicit RepeatingQueue(std::shared_ptr<MainQueue> queue)
        : queue_(std::move(queue))
    {}

    void async(std::function<void()> work) override { queue_->async(latest_ = std::move(work)); }
    void asyncAfter(double seconds, std::function<void()> work) override
    {
        queue_->asyncAfter(seconds, std::move(work));
    }
    Token repeat(double seconds, std::function<void()> work) override
    {
        return queue_->repeat(seconds, std::move(work));
    }
    void runLatestAgain() { latest_(); }

private:
    std::shared_ptr<MainQueue> queue_;
    std::function<void()> latest_;
};

/// Without trust, and the start-up's check can be made again.
class OnboardingCheck : public testing::Test {
protected:
    void SetUp() override
    {
        desktop.trust->isTrusted = false;
        Platform platform = desktop.platform();
        platform.mainQueue = queue;
        desktop.state = AppState::create(platform, desktop.windowFactory());
        desktop.queue->runPending();
        desktop.log->forget();
    }

    FakeDesktop desktop;
    std::shared_ptr<RepeatingQueue> queue = std::make_shared<RepeatingQueue>(desktop.queue);
};

class StartUp : public testing::Test {
protected:
    FakeDesktop desktop;
};

TEST_F(StartUp, TakesItsStepsInTheOneOrder)
{
    desktop.launchWithoutTurn();
    EXPECT_THAT(desktop.log->everything(),
                ElementsAre("loginItem.status", "defaults.read tesselclipboard.quickClearPolicy",
                            "defaults.read tesselclipboard.quickClearCustomSeconds",
                            "defaults.read tesselclipboard.hotKeyPreset",
                            "defaults.read tesselclipboard.panelTintOpacity", "pasteboard.changeCount",
                            "updater.make", "updater.start", "queue.repeat 0.7", "eventMonitors.add 1024",
                            "hotKey.installHandler", "hotKey.register 9 0x0300", "queue.async"));
}

TEST_F(StartUp, AsksForTheTrustOnTheNextTurnAndNeverAgain)
{
    desktop.launchWithoutTurn();
    desktop.log->forget();
    desktop.queue->runPending();
    EXPECT_THAT(desktop.log->everything(), ElementsAre("trust.isProcessTrusted"));

    desktop.log->forget();
    desktop.queue->advance(60);
    EXPECT_THAT(desktop.log->everything(), Not(Contains("trust.isProcessTrusted")));
}

TEST_F(StartUp, WithoutTrustOpensTheOnboardingWindowOnceAndActivates)
{
    desktop.trust->isTrusted = false;
    desktop.launchWithoutTurn();
    EXPECT_EQ(desktop.onboarding(), nullptr);
    desktop.log->forget();
    desktop.queue->runPending();
    EXPECT_THAT(desktop.log->effects(), ElementsAre("onboarding.make", "onboarding.showWindow",
                                                    "application.activate ignoring others"));
    ASSERT_NE(desktop.onboarding(), nullptr);
    EXPECT_TRUE(desktop.onboarding()->isWindowVisible());

    desktop.log->forget();
    desktop.queue->advance(60);
    EXPECT_THAT(desktop.log->effects(), IsEmpty());
}

TEST_F(OnboardingCheck, BringsAWindowThatIsThereForwardWithoutActivating)
{
    queue->runLatestAgain();
    EXPECT_THAT(desktop.log->effects(), ElementsAre("onboarding.showWindow"));
}

TEST_F(OnboardingCheck, MakesTheWindowAnewOnceItHasBeenClosed)
{
    closeAndDrop(desktop.state->onboardingController);
    desktop.log->forget();
    queue->runLatestAgain();
    EXPECT_THAT(desktop.log->effects(), ElementsAre("onboarding.make", "onboarding.showWindow",
                                                    "application.activate ignoring others"));
}

TEST_F(StartUp, WithTrustOpensNoWindow)
{
    desktop.launch();
    EXPECT_EQ(desktop.onboarding(), nullptr);
    EXPECT_THAT(desktop.log->effects(), Not(Contains("onboarding.make")));
}

TEST_F(StartUp, WithoutTrustAndWithoutAnOnboardingWindowDoesNothing)
{
    desktop.trust->isTrusted = false;
    const auto state = AppState::create(desktop.platform(), {});
    desktop.log->forget();
    desktop.queue->runPending();
    EXPECT_THAT(desktop.log->effects(), IsEmpty());
}

TEST_F(StartUp, BeginsWithAnEmptyHistory)
{
    const AppState& state = desktop.launch();
    EXPECT_TRUE(state.history->empty());
    EXPECT_TRUE(state.pinnedItemIDs->empty());
    EXPECT_TRUE(state.orderedHistory().empty());
    EXPECT_EQ(state.panelController, nullptr);
    EXPECT_EQ(state.settingsController, nullptr);
    EXPECT_EQ(state.aboutController, nullptr);
}

TEST_F(StartUp, ForgetsTheHistoryOfTheLastRun)
{
    desktop.launch();
    desktop.copy("A");
    desktop.state->togglePinned(desktop.item("A"));
    const AppState& next = desktop.launch();
    desktop.tick();
    EXPECT_TRUE(next.history->empty());
    EXPECT_TRUE(next.pinnedItemIDs->empty());
}

TEST_F(StartUp, DoesNotCaptureWhatIsOnThePasteboardAlready)
{
    desktop.pasteboard->copyFromElsewhere("before the launch");
    desktop.launch();
    desktop.tick();
    EXPECT_THAT(desktop.texts(), IsEmpty());
    desktop.copy("after the launch");
    EXPECT_THAT(desktop.texts(), ElementsAre("after the launch"));
}

TEST_F(StartUp, CapturesWhatIsCopiedBeforeTheFirstTick)
{
    desktop.launch();
    desktop.copy("A");
    EXPECT_THAT(desktop.texts(), ElementsAre("A"));
}

TEST_F(StartUp, RegistersTheStoredPreset)
{
    desktop.defaults->putStored(AppState::hotKeyPresetKey, "cmdOptionV");
    desktop.launch();
    const FakeHotKeyCenter::Registration expected = {9, 0x0900, {0x434C4950, 1}};
    EXPECT_THAT(desktop.hotKeyCenter->registrations(), ElementsAre(expected));
}

TEST_F(StartUp, GoesOnWithoutAnUpdater)
{
    Platform platform = desktop.platform();
    platform.makeUpdater = nullptr;
    AppState::create(platform, {})->checkForUpdates();
    platform.makeUpdater = [] { return nullptr; };
    AppState::create(platform, {})->checkForUpdates();
    EXPECT_THAT(desktop.log->effects(), Not(Contains("updater.checkForUpdates")));
}

TEST_F(StartUp, GoesOnWhereTheSystemRefusesTheMonitorAndTheHotKey)
{
    desktop.eventMonitors->refuses = true;
    desktop.hotKeyCenter->refusesHandlers = true;
    desktop.hotKeyCenter->refusesRegistrations = true;
    desktop.launch();
    desktop.copy("A");
    EXPECT_THAT(desktop.texts(), ElementsAre("A"));
    desktop.log->forget();
    desktop.quit();
    EXPECT_THAT(desktop.log->effects(), ElementsAre("queue.stopRepeating"));
}

TEST_F(StartUp, UpdatesAreLookedForOnRequest)
{
    AppState& state = desktop.launch();
    desktop.log->forget();
    state.checkForUpdates();
    EXPECT_THAT(desktop.log->effects(), ElementsAre("updater.checkForUpdates"));
}

TEST_F(StartUp, TheApplicationEndsOnRequest)
{
    AppState& state = desktop.launch();
    desktop.log->forget();
    state.terminate();
    EXPECT_THAT(desktop.log->effects(), ElementsAre("application.terminate"));
}

} // namespace
} // namespace tessel::test
