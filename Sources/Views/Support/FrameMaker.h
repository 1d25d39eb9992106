#pragma once

#include <QtGui/QColor>
#include <QtGui/QImage>

#include "Support/NinePatch.h"

namespace tessel {

/// The line along a shape's edge.
struct Outline {
    double width; ///< In points.
    QColor color;
};

/// Makes the frames of one shape with continuous corners at one scale. All other lengths in it are device
/// pixels.
class FrameMaker {
public:
    /// `cornerRadius` is in points. `overhang` is how far the pictures reach beyond the shape.
    FrameMaker(double cornerRadius, int overhang, double devicePixelRatio);

    /// A transparent picture of a frame, with room for the overhang.
    QImage blank() const;
    /// Paints the shape in one colour.
    void fill(QImage& image, const QColor& color) const;
    /// Strokes the shape's edge, half of the line on either side of it, and at most `outermost` outside. Its
    /// outer edge is moved inwards to a whole pixel, where the halves are not whole themselves, so that the
    /// line is sharp.
    void stroke(QImage& image, const Outline& outline, int outermost) const;
    /// The frame for shapes of all sizes.
    NinePatch patch(QImage image) const;

private:
    QRectF shape() const;

    double radius_;
    int overhang_;
    double devicePixelRatio_;
    int side_;
};

} // namespace tessel
