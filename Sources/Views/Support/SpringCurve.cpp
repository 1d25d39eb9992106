#include "Support/SpringCurve.h"

#include <cmath>
#include <numbers>

namespace tessel {

SpringCurve::SpringCurve(double response, double dampingFraction)
    : decay_(dampingFraction * 2 * std::numbers::pi / response)
    , frequency_(std::sqrt(1 - dampingFraction * dampingFraction) * 2 * std::numbers::pi / response)
{}

double SpringCurve::at(double seconds) const
{
    if (seconds <= 0)
        return 0;
    const double swing =
        std::cos(frequency_ * seconds) + decay_ / frequency_ * std::sin(frequency_ * seconds);
    return 1 - std::exp(-decay_ * seconds) * swing;
}

double SpringCurve::settlingTime() const
{
    constexpr double thousandth = 0.001;
    // The swings stay below this envelope.
    const double envelope = std::hypot(1, decay_ / frequency_);
    return std::log(envelope / thousandth) / decay_;
}

} // namespace tessel
