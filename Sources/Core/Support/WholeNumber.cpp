#include "Support/WholeNumber.h"

#include <cmath>

#include "Support/FatalError.h"

namespace tessel {

std::int64_t truncatedToWhole(double value)
{
    const double whole = std::trunc(value);
    constexpr double limit =
        0x1p63; // The first double above the range; its negative is the lowest value in it.
    if (!std::isfinite(whole) || whole < -limit || whole >= limit)
        fatalError("a number does not fit a 64-bit integer");
    return static_cast<std::int64_t>(whole);
}

std::int64_t roundedToWhole(double value)
{
    return truncatedToWhole(std::round(value));
}

} // namespace tessel
