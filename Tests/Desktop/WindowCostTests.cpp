// What the windows with the drifting background cost while they are open, and after.

#include "ProcessFigures.h"
#include "SecondaryWindowTest.h"

namespace tessel::desktop {

namespace {

class WindowCostTest : public SecondaryWindowTest {
protected:
    /// The share of one core that the program uses over some seconds.
    double processorShare()
    {
        constexpr auto span = 10s;
        const auto before = usage(program_->process().pid());
        std::this_thread::sleep_for(span);
        const auto used = usage(program_->process().pid()) - before;
        return std::chrono::duration<double>(used.processorTime) / std::chrono::duration<double>(span);
    }
};

TEST_F(WindowCostTest, TheyDriftForLittleAndCostNothingOnceClosed)
{
    openSettings();
    openAbout();
    // Beside each other, so that neither is covered.
    desktop_.windows().move(settings().find().value().window, 20, 20);
    settings().waitForFrame({20, 20, settingsSize.width, settingsSize.height});
    desktop_.windows().move(about().find().value().window, 500, 20);
    about().waitForFrame({500, 20, aboutSize.width, aboutSize.height});
    letTheProgramTick();
    const double open = processorShare();
    RecordProperty("PercentOpen", std::to_string(100 * open));
    EXPECT_LT(open, 0.09) << "three times what it may be, for the sake of slow machines";
    desktop_.keyboard().tap(XKB_KEY_Escape);
    desktop_.keyboard().tap(XKB_KEY_Escape);
    settings().waitUntilClosed();
    about().waitUntilClosed();
    letTheProgramTick();
    const double closed = processorShare();
    RecordProperty("PercentClosed", std::to_string(100 * closed));
    EXPECT_LT(closed, 0.005);
}

} // namespace

} // namespace tessel::desktop
