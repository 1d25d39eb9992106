#include "Desktop/QtMainQueue.h"

#include <gtest/gtest.h>

#include <QtCore/QCoreApplication>
#include <QtCore/QElapsedTimer>

#include <string>
#include <thread>

namespace tessel {
namespace {

class QtMainQueueTest : public testing::Test {
protected:
    /// Runs the event loop until the condition holds, for a minute at most.
    template <class Condition>
    bool runUntil(Condition condition)
    {
        QElapsedTimer elapsed;
        elapsed.start();
        while (!condition() && elapsed.elapsed() < 60'000)
            QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents, 100);
        return condition();
    }

    int argumentCount_ = 0;
    QCoreApplication application_{argumentCount_, nullptr};
    QtMainQueue queue_;
};

TEST_F(QtMainQueueTest, RunsWorkLaterInTheOrderOfTheCalls)
{
    std::string order;
    queue_.async([&order] { order += 'a'; });
    queue_.async([&order] { order += 'b'; });
    EXPECT_EQ(order, "");
    EXPECT_TRUE(runUntil([&order] { return order.size() == 2; }));
    EXPECT_EQ(order, "ab");
}

TEST_F(QtMainQueueTest, NeverRunsDelayedWorkTooEarly)
{
    QElapsedTimer elapsed;
    elapsed.start();
    bool ran = false;
    queue_.asyncAfter(0.12, [&ran] { ran = true; });
    EXPECT_TRUE(runUntil([&ran] { return ran; }));
    EXPECT_GE(elapsed.nsecsElapsed(), 120'000'000);
}

TEST_F(QtMainQueueTest, RepeatsUntilTheTokenIsDropped)
{
    int ticks = 0;
    int control = 0;
    Token token = queue_.repeat(0.01, [&ticks] { ++ticks; });
    EXPECT_TRUE(runUntil([&ticks] { return ticks >= 3; }));
    token.reset();
    const int stopped = ticks;
    const Token other = queue_.repeat(0.01, [&control] { ++control; });
    EXPECT_TRUE(runUntil([&control] { return control >= 3; }));
    EXPECT_EQ(ticks, stopped);
}

TEST_F(QtMainQueueTest, ATokenMayBeDroppedFromInsideItsOwnTick)
{
    Token token;
    int ticks = 0;
    token = queue_.repeat(0.001, [&] {
        ++ticks;
        token.reset();
    });
    bool done = false;
    EXPECT_TRUE(runUntil([&ticks] { return ticks == 1; }));
    queue_.asyncAfter(0.02, [&done] { done = true; });
    EXPECT_TRUE(runUntil([&done] { return done; }));
    EXPECT_EQ(ticks, 1);
}

TEST_F(QtMainQueueTest, TakesWorkFromAnotherThread)
{
    std::thread::id ranOn;
    bool ran = false;
    std::thread poster([&] {
        queue_.post([&] {
            ranOn = std::this_thread::get_id();
            ran = true;
        });
    });
    EXPECT_TRUE(runUntil([&ran] { return ran; }));
    poster.join();
    EXPECT_EQ(ranOn, std::this_thread::get_id());
}

} // namespace
} // namespace tessel
