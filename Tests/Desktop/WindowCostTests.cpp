// What the windows with the drifting background cost while they are open, and after.

#include <algorithm>

#include "MachineSpeed.h"
#include "ProcessFigures.h"
#include "Sanitizers.h"
#include "SecondaryWindowTest.h"

namespace tessel::desktop {

namespace {

class WindowCostTest : public SecondaryWindowTest {
protected:
    /// The share of one core of the usual machine that the program uses: the least over several stretches,
    /// since nothing makes it use less than it needs.
    double processorShare()
    {
        constexpr int stretches = 5;
        double least = 1;
        for (int stretch = 0; stretch < stretches; ++stretch)
            least = std::min(least, shareOfOneStretch() / slowness());
        return least;
    }
    /// A sanitizer multiplies what everything costs.
    static void expectLessThan(double bound, double share)
    {
        if (!isSanitized) {
            EXPECT_LT(share, bound);
        }
    }

private:
    double shareOfOneStretch()
    {
        const auto begin = std::chrono::steady_clock::now();
        const auto before = usage(program_->process().pid());
        std::this_thread::sleep_for(4s);
        const auto used = usage(program_->process().pid()) - before;
        return std::chrono::duration<double>(used.processorTime) / (std::chrono::steady_clock::now() - begin);
    }
};

TEST_F(WindowCostTest, TheyDriftForLittleAndCostNothingOnceClosed)
{
    openSettings();
    openAbout();
    // Beside each other, so that neither is covered.
    settings().moveTo({20, 20});
    about().moveTo({500, 20});
    program_->waitUntilItHasRead();
    letTheProgramTick();
    const double open = processorShare();
    RecordProperty("PercentOpen", std::to_string(100 * open));
    expectLessThan(0.03, open);
    desktop_.keyboard().tap(XKB_KEY_Escape);
    desktop_.keyboard().tap(XKB_KEY_Escape);
    settings().waitUntilClosed();
    about().waitUntilClosed();
    letTheProgramTick();
    const double closed = processorShare();
    RecordProperty("PercentClosed", std::to_string(100 * closed));
    expectLessThan(0.005, closed);
}

} // namespace

} // namespace tessel::desktop
