#pragma once

#include <chrono>
#include <cstdint>
#include <functional>
#include <map>
#include <memory>
#include <optional>
#include <utility>

#include "Fakes/CallLog.h"
#include "Fakes/VirtualClock.h"
#include "MainQueue.h"

namespace tessel::test {

/// A main loop in virtual time. Nothing runs but inside `advance`, and there in the order of the due times
/// and, for equal ones, of the calls.
class VirtualMainQueue final : public MainQueue {
public:
    /// Moves `clock` along with its own time.
    VirtualMainQueue(std::shared_ptr<CallLog> log, std::shared_ptr<VirtualClock> clock);

    /// Lets `seconds` pass, and runs what falls due until then, its end included.
    void advance(double seconds);
    /// Runs what is due now, and what that makes due now.
    void runPending() { advance(0); }

    /// The jobs that wait to run, repeating ones included.
    std::size_t jobCount() const { return state_->jobs.size(); }

    void async(std::function<void()> work) override;
    void asyncAfter(double seconds, std::function<void()> work) override;
    Token repeat(double seconds, std::function<void()> work) override;

private:
    using Time = std::chrono::nanoseconds;

    struct Job {
        std::uint64_t number = 0;
        std::shared_ptr<const std::function<void()>> work;
        std::optional<Time> interval; ///< None: runs once.
    };
    struct State {
        /// By due time; equal ones in the order of the calls.
        std::multimap<Time, Job> jobs;
        Time now{};
        std::uint64_t nextNumber = 0;
    };

    std::uint64_t schedule(Time due, std::function<void()> work, std::optional<Time> interval);
    void runNext();
    void moveTo(Time time);

    std::shared_ptr<CallLog> log_;
    std::shared_ptr<VirtualClock> clock_;
    std::shared_ptr<State> state_ = std::make_shared<State>();
};

} // namespace tessel::test
