#pragma once

#include <chrono>

#include "Clock.h"

namespace tessel::test {

/// A wall clock that the virtual queue moves, and that a test can set apart from it.
class VirtualClock final : public Clock {
public:
    Date now() const override { return base_ + std::chrono::duration<double>(elapsed_).count(); }

    /// The user, or the network, sets the clock.
    void set(Date date)
    {
        base_ = date;
        elapsed_ = {};
    }
    void jump(double seconds) { set(now() + seconds); }

    /// Time passes.
    void advance(std::chrono::nanoseconds interval) { elapsed_ += interval; }

private:
    Date base_ = 1'700'000'000;
    std::chrono::nanoseconds elapsed_{};
};

} // namespace tessel::test
