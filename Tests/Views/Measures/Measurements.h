#pragma once

#include <functional>
#include <map>
#include <string>

#include "Measures/PanelMeasures.h"

namespace tessel::test {

/// What has been measured of the panel at one scale.
class Measurements {
public:
    explicit Measurements(double scale)
        : scale_(scale)
    {}

    /// Device pixels to a point.
    double scale() const { return scale_; }
    /// Runs `measure`, which notes what it finds. It throws where it finds nothing, which fails the test.
    static void take(const std::string& subject, const std::function<void()>& measure);
    /// `place` says where, if there are several.
    void note(const std::string& name, double value, const std::string& place = {});
    /// Fails the test for each measure of the design that is not what it has to be.
    void expectAsDesigned() const;

private:
    struct Value {
        double value;
        std::string place;
    };

    void expectAsDesigned(const PanelMeasure& designed, const Value& measured) const;
    double tolerance(Unit unit) const;

    double scale_;
    std::multimap<std::string, Value> values_;
};

} // namespace tessel::test
