#pragma once

#include <sys/types.h>

#include <atomic>
#include <thread>

namespace tessel::bench {

/// Watches the anonymous memory of a process from its construction on.
class PeakMemory {
public:
    explicit PeakMemory(pid_t process);
    ~PeakMemory();
    PeakMemory(const PeakMemory&) = delete;
    PeakMemory& operator=(const PeakMemory&) = delete;

    /// Ends the watch. The highest amount seen, in MB of 2^20 bytes.
    double finish();

private:
    void watch(pid_t process);

    std::atomic<bool> isOver_ = false;
    double peak_ = 0;
    std::thread thread_;
};

} // namespace tessel::bench
