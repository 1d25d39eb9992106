#pragma once

#include <vector>

#include <QtGui/QFont>

namespace tessel::test {

/// A font to measure with, made by hand and, while this object lives, the system font: every letter is a
/// solid box, so that sizes, weights, spacings and opacities of texts can be read from pixels exactly,
/// whichever fonts a machine has.
///
/// The line is as high as the font's size, without a descent. Capitals, digits and signs fill it; small
/// letters fill its lower half. A letter's box begins at the pen, and tells by its width what weight it is
/// of.
class MeasuringFont {
public:
    /// How far the pen moves for a letter and for a space, as a part of the font's size.
    static constexpr double advance = 0.8;
    static constexpr double thinAdvance = 0.055;
    /// The weight of letters whose boxes have that width, as a part of the font's size.
    static double weightOf(double width);

    MeasuringFont();
    ~MeasuringFont();
    MeasuringFont(const MeasuringFont&) = delete;
    MeasuringFont& operator=(const MeasuringFont&) = delete;

private:
    QFont before_;
    std::vector<int> fonts_;
};

} // namespace tessel::test
