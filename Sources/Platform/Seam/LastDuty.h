#pragma once

#include <functional>

namespace tessel {

/// What is left to do when nothing else of the program is there any more. Runs its argument when it is done,
/// on a turn of the main loop, and needs nothing else of the backend.
using LastDuty = std::function<void(std::function<void()>)>;

} // namespace tessel
