// What the windows with the drifting background cost while they are open, and after.

#include <algorithm>
#include <array>

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

/// A plain window over the whole screen, in front of all others.
class Cover {
public:
    explicit Cover(Desktop& desktop)
        : connection_(desktop.connection().get())
        , window_(xcb_generate_id(connection_))
    {
        const auto [width, height] = desktop.screen();
        const std::array<std::uint32_t, 2> blackWithoutFrame = {0, 1};
        xcb_create_window(connection_, XCB_COPY_FROM_PARENT, window_, desktop.connection().root(), 0, 0,
                          static_cast<std::uint16_t>(width), static_cast<std::uint16_t>(height), 0,
                          XCB_WINDOW_CLASS_INPUT_OUTPUT, XCB_COPY_FROM_PARENT,
                          XCB_CW_BACK_PIXEL | XCB_CW_OVERRIDE_REDIRECT, blackWithoutFrame.data());
        xcb_map_window(connection_, window_);
        xcb_flush(connection_);
    }
    ~Cover()
    {
        xcb_destroy_window(connection_, window_);
        xcb_flush(connection_);
    }
    Cover(const Cover&) = delete;
    Cover& operator=(const Cover&) = delete;

private:
    xcb_connection_t* connection_;
    xcb_window_t window_;
};

TEST_F(WindowCostTest, TheyCostNothingWhileOthersCoverThem)
{
    openSettings();
    letTheProgramTick();
    const double seen = processorShare();
    {
        const Cover cover(desktop_);
        letTheProgramTick();
        const double covered = processorShare();
        RecordProperty("PercentCovered", std::to_string(100 * covered));
        EXPECT_LT(covered, seen / 3);
        expectLessThan(0.005, covered);
    }
    letTheProgramTick();
    EXPECT_GT(processorShare(), seen / 3) << "it rests for ever";
}

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
