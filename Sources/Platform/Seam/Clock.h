#pragma once

namespace tessel {

/// Wall-clock time in seconds since 1970-01-01 00:00 UTC. Moves with the system's clock when that is set.
using Date = double;

/// The system's wall clock.
class Clock {
public:
    virtual ~Clock() = default;

    virtual Date now() const = 0;
};

} // namespace tessel
