#include <gmock/gmock.h>

#include "Fakes/VirtualMainQueue.h"

namespace tessel::test {
namespace {

using testing::DoubleNear;
using testing::ElementsAre;
using testing::IsEmpty;

class VirtualMainQueueTest : public testing::Test {
protected:
    std::shared_ptr<VirtualClock> clock = std::make_shared<VirtualClock>();
    VirtualMainQueue queue{std::make_shared<CallLog>(), clock};
    std::vector<int> ran;

    std::function<void()> job(int name)
    {
        return [this, name] { ran.push_back(name); };
    }
};

TEST_F(VirtualMainQueueTest, RunsNothingBeforeTimePasses)
{
    queue.async(job(1));
    EXPECT_THAT(ran, IsEmpty());
    queue.runPending();
    EXPECT_THAT(ran, ElementsAre(1));
}

TEST_F(VirtualMainQueueTest, RunsByDueTimeAndThenInTheOrderOfTheCalls)
{
    queue.asyncAfter(2, job(5));
    queue.asyncAfter(1, job(3));
    queue.asyncAfter(1, job(4));
    queue.async(job(1));
    queue.async(job(2));
    queue.advance(2);
    EXPECT_THAT(ran, ElementsAre(1, 2, 3, 4, 5));
}

TEST_F(VirtualMainQueueTest, RunsWhatFallsDueAtTheVeryEnd)
{
    queue.asyncAfter(0.7, job(1));
    queue.advance(0.699);
    EXPECT_THAT(ran, IsEmpty());
    queue.advance(0.001);
    EXPECT_THAT(ran, ElementsAre(1));
}

TEST_F(VirtualMainQueueTest, RunsWhatAJobSchedulesForNowInALaterTurnOfTheSameMoment)
{
    queue.async([this] {
        queue.async(job(2));
        ran.push_back(1);
    });
    queue.runPending();
    EXPECT_THAT(ran, ElementsAre(1, 2));
}

TEST_F(VirtualMainQueueTest, RepeatsFromTheFirstIntervalUntilTheTokenIsDropped)
{
    Token token = queue.repeat(0.7, job(1));
    queue.runPending();
    EXPECT_THAT(ran, IsEmpty());
    queue.advance(7);
    EXPECT_EQ(ran.size(), 10U);
    token.reset();
    queue.advance(7);
    EXPECT_EQ(ran.size(), 10U);
    EXPECT_EQ(queue.jobCount(), 0U);
}

TEST_F(VirtualMainQueueTest, LetsARepeatingJobStopItself)
{
    Token token;
    token = queue.repeat(1, [&] {
        ran.push_back(1);
        token.reset();
    });
    queue.advance(5);
    EXPECT_THAT(ran, ElementsAre(1));
}

TEST_F(VirtualMainQueueTest, MovesTheWallClockToTheTimeOfEachJob)
{
    const Date start = clock->now();
    std::vector<double> times;
    const Token token = queue.repeat(0.5, [&] { times.push_back(clock->now() - start); });
    queue.advance(1.2);
    EXPECT_THAT(times, ElementsAre(DoubleNear(0.5, 1e-6), DoubleNear(1.0, 1e-6)));
    EXPECT_NEAR(clock->now() - start, 1.2, 1e-6);
}

TEST_F(VirtualMainQueueTest, IsNotMovedByAWallClockThatIsSet)
{
    queue.asyncAfter(10, job(1));
    clock->jump(1000);
    queue.advance(9);
    EXPECT_THAT(ran, IsEmpty());
    clock->jump(-1000);
    queue.advance(1);
    EXPECT_THAT(ran, ElementsAre(1));
}

} // namespace
} // namespace tessel::test
