#include "Support/ContinuousCorners.h"

#include <QtCore/QRectF>

#include <algorithm>
#include <numbers>

namespace tessel {

namespace {

/// In radii. With it the corner's curvature, going along the edge into it, grows from about a tenth of the
/// circle's.
constexpr double extentPerRadius = 1.528;

/// A circle of radius 1 in a corner passes the diagonal at this distance from both edges.
constexpr double circleOnDiagonal = 1 - std::numbers::sqrt2 / 2;

/// The control points' distance from the corner's ends, as a part of its extent, so that the curve passes
/// through the circle's point on the diagonal: a Bézier curve's middle is ends and control points weighted
/// 1, 3, 3, 1.
double handleFraction(double extent, double radius)
{
    return (4 - 8 * circleOnDiagonal * radius / extent) / 3;
}

} // namespace

double continuousCornerExtent(double radius)
{
    return extentPerRadius * radius;
}

QPainterPath continuousRoundedRectangle(const QRectF& rectangle, double radius)
{
    const double halfSide = std::min(rectangle.width(), rectangle.height()) / 2;
    const double cornerRadius = std::min(radius, halfSide);
    QPainterPath path;
    if (cornerRadius <= 0) {
        path.addRect(rectangle);
        return path;
    }

    const double extent = std::min(continuousCornerExtent(cornerRadius), halfSide);
    const double rest = extent * (1 - handleFraction(extent, cornerRadius));
    const auto corner = [&](QPointF apex, QPointF inwards, QPointF outwards) {
        path.lineTo(apex + inwards * extent);
        path.cubicTo(apex + inwards * rest, apex + outwards * rest, apex + outwards * extent);
    };
    const QPointF left(-1, 0);
    const QPointF right(1, 0);
    const QPointF up(0, -1);
    const QPointF down(0, 1);
    path.moveTo(rectangle.topLeft() + right * extent);
    corner(rectangle.topRight(), left, down);
    corner(rectangle.bottomRight(), up, left);
    corner(rectangle.bottomLeft(), right, up);
    corner(rectangle.topLeft(), down, right);
    path.closeSubpath();
    return path;
}

} // namespace tessel
