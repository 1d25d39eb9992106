#pragma once

#include <cmath>
#include <cstdint>
#include <limits>

#include "Support/WholeNumber.h"

namespace tessel {

/// The age limit of the custom quick-clear policy where none is stored, in seconds.
inline constexpr double defaultCustomSeconds = 900;

/// An age limit moved into its range, 30 to 21600 seconds. What is not a number becomes the lower end.
inline double clampedCustomSeconds(double seconds)
{
    return std::fmin(std::fmax(seconds, 30), 21600);
}

/// A tint opacity moved into the range that the user can choose, 0.1 to 0.7. What is not a number becomes the
/// lower end.
inline double clampedPanelOpacity(double opacity)
{
    return std::fmin(std::fmax(opacity, 0.1), 0.7);
}

/// A tint opacity in whole per cents, truncated.
inline std::int64_t tintPercent(double opacity)
{
    return truncatedToWhole(opacity * 100);
}

/// True when a clamped value has to replace the current one.
inline bool differs(double clamped, double current)
{
    return !(std::abs(clamped - current) <= std::numeric_limits<double>::epsilon());
}

} // namespace tessel
