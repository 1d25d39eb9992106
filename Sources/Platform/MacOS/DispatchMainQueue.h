#pragma once

#include "MainQueue.h"

namespace tessel {

/// The main dispatch queue, and timers of the main run loop in its default mode.
class DispatchMainQueue final : public MainQueue {
public:
    void async(std::function<void()> work) override;
    void asyncAfter(double seconds, std::function<void()> work) override;
    Token repeat(double seconds, std::function<void()> work) override;
};

} // namespace tessel
