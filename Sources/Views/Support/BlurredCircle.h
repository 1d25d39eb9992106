#pragma once

#include <QtGui/QColor>
#include <QtGui/QImage>

namespace tessel {

/// A filled circle that is blurred. Lengths are points.
struct BlurredCircle {
    double diameter;
    /// The blur is a Gaussian one with this standard deviation, as that of blurring filters is (Filter
    /// Effects Module Level 1, `blur()`). A shadow's radius means something else.
    double blurRadius;

    /// How much of the circle's colour there is at a distance from its middle, 0 to 1.
    double coverageAt(double distance) const;
    /// The circle in its middle, as far as it can be seen. The picture has `devicePixelRatio` pixels to a
    /// point, and an even number of them.
    QImage picture(const QColor& color, double devicePixelRatio) const;
};

} // namespace tessel
