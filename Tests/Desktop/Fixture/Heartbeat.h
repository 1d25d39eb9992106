#pragma once

#include <sys/types.h>

#include <atomic>
#include <chrono>
#include <string>
#include <thread>
#include <vector>

namespace tessel::desktop {

/// Where a program answers on its main thread: a name and an object of the session bus.
struct BusAddress {
    std::string name;
    std::string path;
};

/// What a heartbeat has seen.
struct HeartbeatReport {
    std::size_t samples = 0;
    std::chrono::microseconds median{};
    std::chrono::microseconds percentile99{};
    /// The longest time that the main thread took to answer: how long it was held up, plus one round trip.
    std::chrono::microseconds longest{};
    /// The longest time less what was spent waiting for a processor.
    std::chrono::microseconds longestAtWork{};
    /// The longest that the main thread itself ran before it answered; of what it did while the others on the
    /// way were waiting, only what goes beyond their wait.
    std::chrono::microseconds longestRun{};
};

/// Asks a program's main thread for an answer about every millisecond, and records how long each answer took.
/// A machine's own hiccups show in the heartbeat of an idle process at the same time, which is to be
/// subtracted. What the processes on the way of an answer waited for a processor is recorded apart.
class Heartbeat {
public:
    /// Begins at once; throws `DesktopFailure` if the program does not answer at all. The main threads of
    /// `processes` are those that an answer passes through, or that the program may be waiting for: its own,
    /// the bus's, the X server's. The first of them is the program's.
    Heartbeat(const std::string& sessionBusAddress, BusAddress program, std::vector<pid_t> processes = {});
    ~Heartbeat();
    Heartbeat(const Heartbeat&) = delete;
    Heartbeat& operator=(const Heartbeat&) = delete;

    /// Ends after the answer that is awaited, however long it takes. To be called once.
    HeartbeatReport finish();

private:
    void listen(const std::string& sessionBusAddress, const BusAddress& program,
                const std::vector<pid_t>& processes);

    std::atomic<bool> isEnding_ = false;
    std::atomic<bool> hasLost_ = false;
    std::vector<std::chrono::microseconds> answers_;
    std::chrono::microseconds longestAtWork_{};
    std::chrono::microseconds longestRun_{};
    std::thread thread_;
};

} // namespace tessel::desktop
