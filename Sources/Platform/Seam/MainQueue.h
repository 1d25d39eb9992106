#pragma once

#include <functional>

#include "Token.h"

namespace tessel {

/// The main thread's queue (Dispatch, `NSTimer`; the event loop). Only used on the main thread.
class MainQueue {
public:
    virtual ~MainQueue() = default;

    /// Runs `work` on a later turn of the main loop, in the order of the calls.
    virtual void async(std::function<void()> work) = 0;
    /// Runs `work` once, no earlier than `seconds` from now.
    virtual void asyncAfter(double seconds, std::function<void()> work) = 0;
    /// Runs `work` every `seconds`, first after one interval, until the token is dropped, which `work` itself
    /// may do.
    virtual Token repeat(double seconds, std::function<void()> work) = 0;
};

} // namespace tessel
