// Measures the panel as it is drawn, pixel by pixel, and holds it to the numbers that it was designed in.

#include <cmath>

#include <gtest/gtest.h>

#include "Measures/MeasuringFont.h"
#include "Measures/PanelMeasuring.h"

namespace tessel::test {

namespace {

class PanelMeasures : public testing::TestWithParam<double> {
protected:
    MeasuringFont font_;
};

TEST_P(PanelMeasures, AreThoseOfTheDesign)
{
    Measurements measurements(GetParam());
    measurements.take("the empty panel", [&] { measureEmptyPanel(measurements); });
    measurements.take("the tint", [&] { measureTint(measurements); });
    measurements.take("the list", [&] { measureList(measurements); });
    measurements.take("the list's end", [&] { measureEndOfList(measurements); });
    measurements.take("long titles", [&] { measureLongTitles(measurements); });
    measurements.take("a row's states", [&] { measureRowStates(measurements); });
    measurements.take("the shadow", [&] { measureRowShadow(measurements); });
    measurements.take("the glyph", [&] { measureGlyph(measurements); });
    measurements.expectAsDesigned();
}

INSTANTIATE_TEST_SUITE_P(AtScale, PanelMeasures, testing::Values(1.0, 1.25, 1.5, 2.0, 4.0),
                         [](const testing::TestParamInfo<double>& scale) {
                             return std::to_string(std::lround(scale.param * 100)) + "Percent";
                         });

} // namespace

} // namespace tessel::test
