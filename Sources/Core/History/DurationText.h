#pragma once

#include <string>

namespace tessel {

/// A short text for a duration, rounded to whole seconds, halves away from zero: "45s", "59m", "1h", "2h
/// 30m". A value that does not fit a 64-bit integer is a fatal error.
std::string durationText(double seconds);

/// A duration in its largest whole unit, truncated: "59s", "59m", "1h". What is below a minute, also below
/// zero, is in seconds. Fails like `durationText`.
std::string shortDurationLabel(double seconds);

} // namespace tessel
