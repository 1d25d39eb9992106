#include "Panel/ScrollAnimation.h"

#include <cmath>
#include <utility>

namespace tessel {

double ScrollAnimation::advanced(double position, double seconds)
{
    constexpr double timeConstant = 0.045; // Seconds for two thirds of the way: felt as smooth, not as late.
    constexpr double closeEnough = 0.5;    // Points.
    if (!target_)
        return position;
    const double rest = (*target_ - position) * std::exp(-seconds / timeConstant);
    if (std::abs(rest) < closeEnough)
        return *std::exchange(target_, std::nullopt);
    return *target_ - rest;
}

} // namespace tessel
