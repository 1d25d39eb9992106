#include "PeakMemory.h"

#include <algorithm>
#include <chrono>

#include "ProcessFigures.h"

namespace tessel::bench {

PeakMemory::PeakMemory(pid_t process)
    : thread_([this, process] { watch(process); })
{}

PeakMemory::~PeakMemory()
{
    finish();
}

void PeakMemory::watch(pid_t process)
{
    constexpr std::chrono::milliseconds interval{2};
    while (!isOver_) {
        peak_ = std::max(peak_, desktop::anonymousMegabytes(process));
        std::this_thread::sleep_for(interval);
    }
}

double PeakMemory::finish()
{
    isOver_ = true;
    if (thread_.joinable())
        thread_.join();
    return peak_;
}

} // namespace tessel::bench
