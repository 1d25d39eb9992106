#pragma once

#include <chrono>

namespace tessel::owners {

using Clock = std::chrono::steady_clock;

} // namespace tessel::owners
