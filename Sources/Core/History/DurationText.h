#pragma once

#include <string>

namespace tessel {

/// A short text for a duration, rounded to whole seconds, halves away from zero: "45s", "59m", "1h", "2h
/// 30m". A value that does not fit a 64-bit integer is a fatal error.
std::string durationText(double seconds);

} // namespace tessel
