#include "MachineSpeed.h"

#include <time.h>

#include <algorithm>
#include <chrono>
#include <cstdint>
#include <vector>

namespace tessel::desktop {

namespace {

using Time = std::chrono::duration<double, std::milli>;

/// What the work takes on the machine of the figures in Documentation/Endurance.md.
constexpr Time usual{1.5};

Time processorTimeOfThisThread()
{
    timespec time{};
    ::clock_gettime(CLOCK_THREAD_CPUTIME_ID, &time);
    return std::chrono::seconds(time.tv_sec) + std::chrono::nanoseconds(time.tv_nsec);
}

/// Numbers are made, written and read: arithmetic and memory, as in the work of a clipboard.
std::uint32_t work(std::vector<std::uint32_t>& memory)
{
    std::uint32_t number = 1;
    for (auto& place : memory)
        place = number = number * 1664525 + 1013904223;
    for (const auto place : memory)
        number ^= place >> 7;
    return number;
}

} // namespace

double slowness()
{
    constexpr std::size_t numbers = std::size_t{1} << 20;
    constexpr int attempts = 5;
    std::vector<std::uint32_t> memory(numbers);
    Time best = Time::max();
    volatile std::uint32_t result = 0; // What nobody reads is not computed.
    for (int attempt = 0; attempt < attempts; ++attempt) {
        const auto before = processorTimeOfThisThread();
        result = work(memory);
        best = std::min(best, processorTimeOfThisThread() - before);
    }
    static_cast<void>(result);
    return std::max(1.0, best / usual);
}

} // namespace tessel::desktop
