#pragma once

#include <chrono>
#include <vector>

#include "Desktop.h"
#include "Program.h"

namespace tessel::bench {

/// What scrolling the panel by the wheel looked like, and what it cost.
struct Scrolling {
    /// From one painted frame to the next, while the list moved.
    std::vector<std::chrono::microseconds> frameIntervals;
    /// Of the whole program for each painted frame.
    std::chrono::microseconds processorTimePerFrame{};
};

/// Turns the wheel over the open panel, down and up again, as quickly as a hurried user does. The list must
/// be long enough to move all the time. Throws `DesktopFailure` where nothing moves.
Scrolling measureScrolling(desktop::Desktop& desktop, desktop::Program& program);

} // namespace tessel::bench
