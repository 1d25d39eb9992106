#pragma once

#include <functional>

namespace tessel {

/// Runs the event loop until `condition` holds. False: it did not within a minute, which no working
/// program needs.
bool waitUntil(const std::function<bool()>& condition);

} // namespace tessel
