#include <memory>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "Fakes/FakeDefaultsStore.h"
#include "Fakes/FakeUpdateFeed.h"
#include "Fakes/FakeUpdateUserDriver.h"
#include "Fakes/FakeWorkspace.h"
#include "Fakes/VirtualClock.h"
#include "Fakes/VirtualMainQueue.h"
#include "Updates/FeedUpdaterController.h"

namespace tessel::test {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

constexpr double hour = 3600;
constexpr double day = 24 * hour;
/// Seconds that a feed takes to come.
constexpr double loadingTime = 20;

UpdateItem item(const std::string& version)
{
    return {version, "Version " + version, "", "", "What is new.", "https://tessel-clipboard.example/get"};
}

class FeedUpdaterTest : public testing::Test {
protected:
    FeedUpdaterTest() { launch(); }

    UpdateSource source() { return {.feed = feed, .checkInterval = day, .systemVersion = "6.1.0"}; }
    /// The program starts, after the end of the one before.
    void launch() { launch(source()); }
    void launch(const UpdateSource& updateSource)
    {
        updater.reset();
        updater = std::make_unique<FeedUpdaterController>(
            FeedUpdaterController::Needs{driver, *remembered, *queue, *clock, *workspace}, updateSource,
            "1.0");
    }
    void startLongAfterACheck()
    {
        remembered->putStored(FeedUpdaterController::lastCheckKey, clock->now() - 30 * day);
        updater->start();
    }
    /// Lets it look by itself, and stops before the answer.
    void waitForACheck()
    {
        startLongAfterACheck();
        queue->advance(FeedUpdaterController::firstDelay);
        ASSERT_TRUE(feed->isLoading());
    }
    void answer(const std::vector<UpdateItem>& items) { feed->answer(items); }

    std::shared_ptr<CallLog> log = std::make_shared<CallLog>();
    std::shared_ptr<VirtualClock> clock = std::make_shared<VirtualClock>();
    std::shared_ptr<VirtualMainQueue> queue = std::make_shared<VirtualMainQueue>(log, clock);
    std::shared_ptr<FakeDefaultsStore> remembered = std::make_shared<FakeDefaultsStore>(log);
    std::shared_ptr<FakeWorkspace> workspace = std::make_shared<FakeWorkspace>(log);
    std::shared_ptr<FakeUpdateFeed> feed = std::make_shared<FakeUpdateFeed>();
    FakeUpdateUserDriver driver;
    std::unique_ptr<FeedUpdaterController> updater;
};

// Asked.

TEST_F(FeedUpdaterTest, SaysThatItLooksAndThatThereIsNothingNewer)
{
    updater->checkForUpdates();
    EXPECT_TRUE(driver.shows<UpdateIsSought>());
    EXPECT_EQ(driver.occasion, UpdateOccasion::asked);
    answer({item("1.0"), item("0.9")});
    EXPECT_EQ(driver.status<ProgramIsUpToDate>().currentVersion, "1.0");
    EXPECT_EQ(driver.occasion, UpdateOccasion::asked);
}

TEST_F(FeedUpdaterTest, ShowsTheNewestVersion)
{
    updater->checkForUpdates();
    answer({item("1.1"), item("1.2")});
    EXPECT_EQ(driver.status<UpdateIsFound>().item, item("1.2"));
    EXPECT_EQ(driver.status<UpdateIsFound>().currentVersion, "1.0");
}

TEST_F(FeedUpdaterTest, ShowsNoVersionThatThisSystemCannotRun)
{
    UpdateItem later = item("2.0");
    later.minimumSystemVersion = "6.2";
    updater->checkForUpdates();
    answer({later});
    EXPECT_TRUE(driver.shows<ProgramIsUpToDate>());
}

TEST_F(FeedUpdaterTest, ShowsEachFailure)
{
    for (const auto failure :
         {UpdateFeedFailure::offline, UpdateFeedFailure::notTrusted, UpdateFeedFailure::misconfigured}) {
        updater->checkForUpdates();
        EXPECT_TRUE(driver.shows<UpdateIsSought>());
        feed->answer(failure);
        EXPECT_EQ(driver.status<UpdateFeedFailure>(), failure);
        driver.answer(UpdateAnswer::dismiss);
        EXPECT_EQ(driver.shown, std::nullopt);
    }
}

TEST_F(FeedUpdaterTest, SaysThatPackagesBringUpdatesWhereNobodyHasNamedAFeed)
{
    auto packaged = source();
    packaged.feed = nullptr;
    launch(packaged);
    updater->checkForUpdates();
    EXPECT_TRUE(driver.shows<PackagesBringUpdates>());
    driver.answer(UpdateAnswer::dismiss);
    EXPECT_EQ(driver.shown, std::nullopt);
}

TEST_F(FeedUpdaterTest, CancelEndsTheLoading)
{
    updater->checkForUpdates();
    driver.answer(UpdateAnswer::dismiss);
    EXPECT_FALSE(feed->isLoading());
    EXPECT_EQ(driver.shown, std::nullopt);
    EXPECT_THAT(remembered->writes(), IsEmpty());
    updater->checkForUpdates();
    EXPECT_EQ(feed->loads, 2);
    EXPECT_TRUE(driver.shows<UpdateIsSought>());
}

TEST_F(FeedUpdaterTest, AskedAgainWhileItLooksItComesForward)
{
    updater->checkForUpdates();
    updater->checkForUpdates();
    EXPECT_EQ(driver.timesForward, 1);
    EXPECT_EQ(driver.timesShown, 1);
    EXPECT_EQ(feed->loads, 1);
}

TEST_F(FeedUpdaterTest, AskedAgainBeforeTheAnswerTheQuestionComesForward)
{
    updater->checkForUpdates();
    answer({item("1.1")});
    updater->checkForUpdates();
    EXPECT_EQ(driver.timesForward, 1);
    EXPECT_EQ(feed->loads, 1);
    EXPECT_TRUE(driver.shows<UpdateIsFound>());
}

TEST_F(FeedUpdaterTest, AskedAgainAfterTheResultItLooksAgain)
{
    updater->checkForUpdates();
    answer({});
    updater->checkForUpdates();
    EXPECT_TRUE(driver.shows<UpdateIsSought>());
    answer({item("1.1")});
    EXPECT_TRUE(driver.shows<UpdateIsFound>());
}

// Answered.

TEST_F(FeedUpdaterTest, OpensTheDownloadPageOnlyWhenToldTo)
{
    for (const auto choice : {UpdateAnswer::dismiss, UpdateAnswer::skip, UpdateAnswer::openDownloadPage}) {
        EXPECT_THAT(workspace->openedURLs(), IsEmpty());
        updater->checkForUpdates();
        answer({item("1.1")});
        driver.answer(choice);
        EXPECT_EQ(driver.shown, std::nullopt);
    }
    EXPECT_THAT(workspace->openedURLs(), ElementsAre("https://tessel-clipboard.example/get"));
}

TEST_F(FeedUpdaterTest, RemembersTheSkippedVersionOnly)
{
    updater->checkForUpdates();
    answer({item("1.1")});
    remembered->forgetWrites();
    driver.answer(UpdateAnswer::skip);
    EXPECT_THAT(remembered->writes(),
                ElementsAre(testing::Pair(std::string(FeedUpdaterController::skippedVersionKey),
                                          FakeDefaultsStore::StoredValue("1.1"))));
}

TEST_F(FeedUpdaterTest, ShowsASkippedVersionToWhoAsks)
{
    remembered->putStored(FeedUpdaterController::skippedVersionKey, "1.1");
    updater->checkForUpdates();
    answer({item("1.1")});
    EXPECT_TRUE(driver.shows<UpdateIsFound>());
}

// By itself.

TEST_F(FeedUpdaterTest, LooksAMinuteAfterTheStartWhereItHasNeverLooked)
{
    updater->start();
    queue->advance(FeedUpdaterController::firstDelay - 1);
    EXPECT_EQ(feed->loads, 0);
    queue->advance(1);
    EXPECT_EQ(feed->loads, 1);
}

TEST_F(FeedUpdaterTest, LooksByItselfOnceADay)
{
    updater->start();
    queue->advance(FeedUpdaterController::firstDelay);
    for (int days = 1; days <= 5; ++days) {
        EXPECT_EQ(feed->loads, days);
        queue->advance(loadingTime);
        answer({});
        queue->advance(day - loadingTime - 1);
        EXPECT_EQ(feed->loads, days);
        queue->advance(1);
    }
}

TEST_F(FeedUpdaterTest, LooksByItselfOnceAnHour)
{
    auto hourly = source();
    hourly.checkInterval = hour;
    launch(hourly);
    updater->start();
    queue->advance(FeedUpdaterController::firstDelay);
    for (int hours = 1; hours <= 5; ++hours) {
        EXPECT_EQ(feed->loads, hours);
        queue->advance(loadingTime);
        answer({});
        queue->advance(hour - loadingTime);
    }
}

TEST_F(FeedUpdaterTest, AClockThatIsSetRightByMinutesMakesNoDifference)
{
    waitForACheck();
    answer({});
    clock->jump(-hour / 4);
    queue->advance(day);
    EXPECT_EQ(feed->loads, 2);
}

TEST_F(FeedUpdaterTest, SaysNothingOfWhatNobodyWantsToKnow)
{
    waitForACheck();
    EXPECT_EQ(driver.timesShown, 0);
    answer({item("1.0")});
    queue->advance(day);
    feed->answer(UpdateFeedFailure::notTrusted);
    EXPECT_EQ(driver.timesShown, 0);
}

TEST_F(FeedUpdaterTest, ShowsANewVersionUnasked)
{
    waitForACheck();
    answer({item("1.1")});
    EXPECT_TRUE(driver.shows<UpdateIsFound>());
    EXPECT_EQ(driver.occasion, UpdateOccasion::unasked);
}

TEST_F(FeedUpdaterTest, RemindsADayLater)
{
    waitForACheck();
    answer({item("1.1")});
    driver.answer(UpdateAnswer::dismiss);
    queue->advance(day - hour);
    EXPECT_FALSE(feed->isLoading());
    queue->advance(hour);
    answer({item("1.1")});
    EXPECT_TRUE(driver.shows<UpdateIsFound>());
}

TEST_F(FeedUpdaterTest, IsSilentAboutASkippedVersionUntilThereIsANewerOne)
{
    remembered->putStored(FeedUpdaterController::skippedVersionKey, "1.1.0");
    waitForACheck();
    answer({item("1.1")});
    EXPECT_EQ(driver.timesShown, 0);
    queue->advance(day);
    answer({item("1.1"), item("1.1.1")});
    EXPECT_EQ(driver.status<UpdateIsFound>().item, item("1.1.1"));
}

TEST_F(FeedUpdaterTest, DoesNotLookWhileItsUserHasNotAnswered)
{
    waitForACheck();
    answer({item("1.1")});
    queue->advance(30 * day);
    EXPECT_EQ(feed->loads, 1);
}

TEST_F(FeedUpdaterTest, DoesNotLookTwiceAtOnce)
{
    waitForACheck();
    queue->advance(30 * day);
    EXPECT_EQ(feed->loads, 1);
}

TEST_F(FeedUpdaterTest, ALookOfItsOwnBecomesTheUsers)
{
    waitForACheck();
    updater->checkForUpdates();
    EXPECT_EQ(feed->loads, 1);
    EXPECT_TRUE(driver.shows<UpdateIsSought>());
    answer({});
    EXPECT_TRUE(driver.shows<ProgramIsUpToDate>());
}

TEST_F(FeedUpdaterTest, ALookAfterACancelledOneIsItsOwnAgain)
{
    updater->checkForUpdates();
    driver.answer(UpdateAnswer::dismiss);
    waitForACheck();
    answer({});
    EXPECT_EQ(driver.shown, std::nullopt);
}

TEST_F(FeedUpdaterTest, AskedItNeedNotLookByItself)
{
    updater->checkForUpdates();
    answer({});
    driver.answer(UpdateAnswer::dismiss);
    updater->start();
    queue->advance(day - hour);
    EXPECT_EQ(feed->loads, 1);
}

TEST_F(FeedUpdaterTest, WithoutANetworkItTriesAgainTheNextHour)
{
    waitForACheck();
    feed->answer(UpdateFeedFailure::offline);
    queue->advance(hour);
    EXPECT_EQ(feed->loads, 2);
    feed->answer(UpdateFeedFailure::serverTrouble);
    queue->advance(day - hour);
    EXPECT_EQ(feed->loads, 2);
}

TEST_F(FeedUpdaterTest, NeverLooksByItselfUnlessConfigured)
{
    auto quiet = source();
    quiet.checkInterval = std::nullopt;
    launch(quiet);
    startLongAfterACheck();
    EXPECT_EQ(queue->jobCount(), 0U);

    auto packaged = source();
    packaged.feed = nullptr;
    launch(packaged);
    startLongAfterACheck();
    EXPECT_EQ(queue->jobCount(), 0U);
}

TEST_F(FeedUpdaterTest, AnIntervalOfSecondsIsAnHour)
{
    auto hasty = source();
    hasty.checkInterval = 1;
    launch(hasty);
    startLongAfterACheck();
    queue->advance(FeedUpdaterController::firstDelay);
    answer({});
    launch(hasty);
    updater->start();
    queue->advance(hour - 1);
    EXPECT_EQ(feed->loads, 1);
    queue->advance(FeedUpdaterController::firstDelay + 1);
    EXPECT_EQ(feed->loads, 2);
}

// Clocks.

TEST_F(FeedUpdaterTest, RemembersOverItsEndWhenItLooked)
{
    waitForACheck();
    answer({});
    launch();
    updater->start();
    queue->advance(day - FeedUpdaterController::firstDelay - hour);
    EXPECT_EQ(feed->loads, 1);
    queue->advance(2 * hour);
    EXPECT_EQ(feed->loads, 2);
}

TEST_F(FeedUpdaterTest, LooksWithinAnHourAfterWeeksOfSleep)
{
    waitForACheck();
    answer({});
    clock->jump(21 * day); // No timer has seen these days.
    queue->advance(hour);
    EXPECT_EQ(feed->loads, 2);
}

TEST_F(FeedUpdaterTest, AClockThatIsSetBackALittleMakesNoDifference)
{
    waitForACheck();
    answer({});
    clock->jump(-hour);
    queue->advance(day);
    EXPECT_EQ(feed->loads, 1);
    queue->advance(hour);
    EXPECT_EQ(feed->loads, 2);
}

TEST_F(FeedUpdaterTest, ATimeFarInTheFutureDoesNotEndItsLooking)
{
    remembered->putStored(FeedUpdaterController::lastCheckKey, clock->now() + 3650 * day);
    updater->start();
    queue->advance(FeedUpdaterController::firstDelay);
    EXPECT_EQ(feed->loads, 1);
}

TEST_F(FeedUpdaterTest, WhatIsRememberedWronglyCountsAsNothing)
{
    remembered->putStored(FeedUpdaterController::lastCheckKey, "yesterday");
    remembered->putStored(FeedUpdaterController::skippedVersionKey, 1.1);
    updater->start();
    queue->advance(FeedUpdaterController::firstDelay);
    answer({item("1.1")});
    EXPECT_TRUE(driver.shows<UpdateIsFound>());
}

// The end.

TEST_F(FeedUpdaterTest, ItsEndEndsEverything)
{
    waitForACheck();
    updater->checkForUpdates();
    updater.reset();
    EXPECT_FALSE(feed->isLoading());
    EXPECT_EQ(driver.shown, std::nullopt);
    EXPECT_EQ(queue->jobCount(), 0U);
}

} // namespace
} // namespace tessel::test
