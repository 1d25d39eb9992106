#include <memory>
#include <vector>

#include "DispatchMainQueue.h"
#include "Support/MacOSTest.h"
#include "Support/System.h"

namespace tessel::test {
namespace {

class MainQueueTests : public MacOSTest {
protected:
    DispatchMainQueue queue;
};

TEST_F(MainQueueTests, AsyncPutsABlockOnTheMainQueueThatRunsOnALaterTurn)
{
    int runs = 0;
    expectCall("dispatch_async(main queue, ^)");
    queue.async([&runs] { ++runs; });
    EXPECT_EQ(runs, 0);
    runNextBlock();
    EXPECT_EQ(runs, 1);
}

TEST_F(MainQueueTests, BlocksRunInTheOrderOfTheCalls)
{
    std::vector<int> order;
    expectCall("dispatch_async(main queue, ^)");
    queue.async([&order] { order.push_back(1); });
    expectCall("dispatch_async(main queue, ^)");
    queue.async([&order] { order.push_back(2); });
    runNextBlock();
    runNextBlock();
    EXPECT_EQ(order, (std::vector{1, 2}));
}

TEST_F(MainQueueTests, AsyncAfterCountsNanosecondsFromNow)
{
    int runs = 0;
    expectCall("dispatch_time(0, 120000000)", 77);
    expectCall("dispatch_after(77, main queue, ^)");
    queue.asyncAfter(0.12, [&runs] { ++runs; });
    EXPECT_EQ(runs, 0);
    runNextBlock();
    EXPECT_EQ(runs, 1);
}

TEST_F(MainQueueTests, ABlockThatIsDelayedRunsAfterOneThatCameLaterAndIsNot)
{
    std::vector<int> order;
    expectCall("dispatch_time(0, 120000000)", 77);
    expectCall("dispatch_after(77, main queue, ^)");
    queue.asyncAfter(0.12, [&order] { order.push_back(2); });
    expectCall("dispatch_async(main queue, ^)");
    queue.async([&order] { order.push_back(1); });
    runNextBlock();
    runNextBlock();
    EXPECT_EQ(order, (std::vector{1, 2}));
}

TEST_F(MainQueueTests, RepeatIsARepeatingTimerUntilTheTokenIsDropped)
{
    int runs = 0;
    expectCall("[NSTimer scheduledTimerWithTimeInterval:0.7 repeats:YES block:^]", Object{"timer"});
    Token token = queue.repeat(0.7, [&runs] { ++runs; });
    EXPECT_EQ(runs, 0);
    fireTimer("timer");
    fireTimer("timer");
    EXPECT_EQ(runs, 2);
    expectCall("[timer invalidate]");
    token.reset();
}

TEST_F(MainQueueTests, TheWorkMayDropItsOwnToken)
{
    Token token;
    int runs = 0;
    expectCall("[NSTimer scheduledTimerWithTimeInterval:0.7 repeats:YES block:^]", Object{"timer"});
    token = queue.repeat(0.7, [&token, &runs, held = std::make_shared<int>(5)] {
        token.reset();
        runs += *held; // What the work holds is still there.
    });
    expectCall("[timer invalidate]");
    fireTimer("timer");
    EXPECT_EQ(runs, 5);
}

TEST_F(MainQueueTests, WhatTheWorkHoldsGoesWithTheToken)
{
    const auto held = std::make_shared<int>(0);
    expectCall("[NSTimer scheduledTimerWithTimeInterval:0.7 repeats:YES block:^]", Object{"timer"});
    Token token = queue.repeat(0.7, [held] {});
    endTurn();
    EXPECT_EQ(held.use_count(), 2);
    expectCall("[timer invalidate]");
    token.reset();
    endTurn();
    EXPECT_EQ(held.use_count(), 1);
}

TEST_F(MainQueueTests, WhatABlockHoldsGoesOnceItHasRun)
{
    const auto held = std::make_shared<int>(0);
    expectCall("dispatch_async(main queue, ^)");
    queue.async([held] {});
    endTurn();
    EXPECT_EQ(held.use_count(), 2);
    runNextBlock();
    EXPECT_EQ(held.use_count(), 1);
}

} // namespace
} // namespace tessel::test
