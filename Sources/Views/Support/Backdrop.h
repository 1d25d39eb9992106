#pragma once

#include <array>

#include <QtCore/QRect>
#include <QtGui/QColor>
#include <QtGui/QImage>

#include "Support/GaussianBlur.h"

namespace tessel {

/// The colour of a material, and how much of it hides what is behind.
struct MaterialColor {
    QColor base;
    float opacity; ///< 0 to 1.

    /// For a window through which the window system lets shine what is behind it.
    QColor translucent() const;
    /// Where nothing is known of what is behind: as over a middling grey.
    QColor opaque() const;
};

/// How many device pixels in either direction become one of the small picture that a `Backdrop` is made of.
int backdropReduction(double devicePixelRatio);

/// What is behind a material, strongly blurred. It keeps a small picture only.
class Backdrop {
public:
    /// `reduced` shows what is behind at a fraction of its size: `reduction` device pixels in either
    /// direction are one of its own. Its top left corner lies at `corner`. The standard deviation of the blur
    /// is in device pixels.
    Backdrop(const QImage& reduced, QPoint corner, int reduction, double blurDeviation);

    /// An opaque picture of the material in front of this, for a rectangle of device pixels. Less colourful
    /// than what is behind; smooth, without visible steps; beyond what is known it continues as at the edge.
    QImage under(const MaterialColor& material, const QRect& rectangle) const;

private:
    std::array<Plane, 3> channels_; ///< Red, green, blue: 0 to 255.
    QPoint corner_;
    int reduction_;
};

} // namespace tessel
