#pragma once

#include <chrono>
#include <string>

#include "HoldUpWatch.h"

namespace tessel::desktop {

/// What one misbehaving application cost the program.
struct EnduranceFigures {
    std::string hazard;
    std::chrono::milliseconds opening{}; ///< From the press of the hot key to a panel that can be used.
    HoldUp holdUp;
    double megabytesLeft = 0; ///< Anonymous memory beyond what it was before, once the history is cleared.
};

/// Appends a row of a Markdown table to the file that `TESSEL_ENDURANCE_RECORD` of the environment names;
/// does nothing without it.
void record(const EnduranceFigures& figures);

} // namespace tessel::desktop
