#pragma once

#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "SelectionOwner.h"

namespace tessel::owners {

/// Where an owner plays its part; or several of them, who enter one after the other.
class OwnerStage {
public:
    OwnerStage(Behaviour behaviour, std::string selection);

    /// Plays until `end`, or until `stopDescriptor` becomes readable, or until all have ended by themselves.
    /// Says "owned" when the selection is owned for the first time, and "finished" when the last of several
    /// takings is done.
    void run(std::optional<Clock::time_point> end, int stopDescriptor,
             const std::function<void(std::string_view)>& say);

private:
    bool isEverybodyIn() const { return entered_ == behaviour_.crowdSize; }
    /// Lets the next one enter, and announces what is to be announced.
    void letEnter();
    void announce(const std::function<void(std::string_view)>& say);
    /// Waits for something to do.
    void wait(std::optional<Clock::time_point> end, int stopDescriptor);
    bool isStopped(int stopDescriptor) const;

    Behaviour behaviour_;
    std::string selection_;
    std::vector<std::unique_ptr<SelectionOwner>> owners_;
    int entered_ = 0;
    Clock::time_point nextEntry_ = Clock::now();
    bool hasSaidOwned_ = false;
    bool hasSaidFinished_ = false;
};

} // namespace tessel::owners
