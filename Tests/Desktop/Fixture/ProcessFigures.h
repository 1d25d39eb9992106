#pragma once

#include <sys/types.h>

#include <chrono>
#include <cstdint>

namespace tessel::desktop {

/// Anonymous memory of a process, in MB of 2^20 bytes (`Anonymous` of `smaps_rollup`): what it alone is to
/// blame for. Throws `DesktopFailure` if it cannot be read.
double anonymousMegabytes(pid_t process);

/// What all threads of a process have used so far.
struct Usage {
    std::chrono::nanoseconds processorTime{};
    /// How often a thread has gone to sleep of its own, and thus was woken.
    std::uint64_t wakeUps = 0;

    Usage operator-(const Usage& earlier) const
    {
        return {processorTime - earlier.processorTime, wakeUps - earlier.wakeUps};
    }
};

Usage usage(pid_t process);

} // namespace tessel::desktop
