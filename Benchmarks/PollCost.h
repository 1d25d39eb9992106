#pragma once

#include <string>

namespace tessel::bench {

/// What the program does every 0.7 seconds while nothing is copied, in microseconds.
struct PollCost {
    double poll = 0; ///< With 100 entries in the history, on the pasteboard of an X display.
    double idle = 0; ///< The same turn of the main queue with nothing to do in it.
};

/// Measured inside this process, in virtual time.
PollCost measurePoll(const std::string& displayName);

} // namespace tessel::bench
