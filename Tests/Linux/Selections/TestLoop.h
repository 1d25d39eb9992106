#pragma once

#include <chrono>
#include <condition_variable>
#include <deque>
#include <functional>
#include <mutex>

namespace tessel {

/// The main thread's loop as far as the pasteboard needs one.
class TestLoop {
public:
    /// A condition that takes longer than this will not come true.
    static constexpr std::chrono::seconds patience{60};

    void post(std::function<void()> work)
    {
        const std::lock_guard lock(mutex_);
        work_.push_back(std::move(work));
        arrived_.notify_one();
    }

    template <class Condition>
    [[nodiscard]] bool runUntil(Condition condition, std::chrono::milliseconds longest = patience)
    {
        const auto end = std::chrono::steady_clock::now() + longest;
        while (!condition()) {
            std::unique_lock lock(mutex_);
            if (!arrived_.wait_until(lock, end, [&] { return !work_.empty(); }))
                return false;
            const auto work = std::move(work_.front());
            work_.pop_front();
            lock.unlock();
            work();
        }
        return true;
    }

private:
    std::mutex mutex_;
    std::condition_variable arrived_;
    std::deque<std::function<void()>> work_;
};

} // namespace tessel
