#include "Measures/Measurements.h"

#include <cmath>

#include <gtest/gtest.h>

namespace tessel::test {

void Measurements::take(const std::string& subject, const std::function<void()>& measure)
{
    try {
        measure();
    } catch (const std::exception& failure) {
        ADD_FAILURE() << subject << ": expected its parts where they can be measured: " << failure.what();
    }
}

void Measurements::note(const std::string& name, double value, const std::string& place)
{
    values_.insert({name, {value, place}});
}

void Measurements::expectAsDesigned() const
{
    for (const PanelMeasure& designed : panelMeasures) {
        const auto [first, end] = values_.equal_range(std::string(designed.name));
        EXPECT_NE(first, end) << designed.name << " has not been measured.";
        for (auto measured = first; measured != end; ++measured)
            expectAsDesigned(designed, measured->second);
    }
}

void Measurements::expectAsDesigned(const PanelMeasure& designed, const Value& measured) const
{
    const double difference = std::abs(measured.value - designed.value);
    EXPECT_LE(difference, tolerance(designed.unit))
        << designed.name << (measured.place.empty() ? "" : " (" + measured.place + ")") << ": expected "
        << designed.value << ", measured " << measured.value << " at scale " << scale_;
}

/// What whole device pixels and 256 levels may cost.
double Measurements::tolerance(Unit unit) const
{
    constexpr double rounding = 1e-6;
    const bool hasWholePixels = scale_ == std::floor(scale_);
    switch (unit) {
    case Unit::points:
        return (hasWholePixels ? 0.6 : 1) / scale_ + rounding; // Each edge is on the nearest pixel.
    case Unit::pen:
        return 0.3 + 0.8 / scale_;
    case Unit::filled:
        return 0.45 + 0.8 / scale_;
    case Unit::centre:
        return 0.5 + 0.6 / scale_; // Frames lie on whole points.
    case Unit::width:
        return 0.08 + 0.1 / scale_;
    case Unit::size:
        return hasWholePixels ? 0.1 : 0.5; // A view may cut off what its text has of a pixel.
    case Unit::tracking:
        return hasWholePixels ? 0.01 + 0.16 / scale_ : 0.5; // It is told with the size.
    case Unit::radius:
        return 0.25 + 1.1 / scale_;
    case Unit::opacity:
        return 0.005;
    case Unit::shadow:
        return 0.003 + 0.016 / scale_;
    case Unit::weight:
        return 20 + 30 / scale_;
    case Unit::ratio:
        return 0.01 + 0.06 / scale_;
    case Unit::count:
        return 0;
    }
    return 0;
}

} // namespace tessel::test
