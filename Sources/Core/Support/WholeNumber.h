#pragma once

#include <cstdint>

namespace tessel {

/// `value` truncated toward zero. A value that is not finite or lies outside the signed 64-bit range is a
/// fatal error.
std::int64_t truncatedToWhole(double value);

/// `value` rounded to the nearest whole number, halves away from zero. Fails like `truncatedToWhole`.
std::int64_t roundedToWhole(double value);

} // namespace tessel
