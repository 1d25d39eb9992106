#pragma once

#include "Clock.h"

namespace tessel {

/// The system's wall clock, as `NSDate` reads it.
class FoundationClock final : public Clock {
public:
    Date now() const override;
};

} // namespace tessel
