#pragma once

#include "Clock.h"

namespace tessel {

/// The system's wall clock.
class SystemClock final : public Clock {
public:
    Date now() const override;
};

} // namespace tessel
