#include "Support/ContinuousCorners.h"

#include <QtCore/QRectF>

#include <algorithm>
#include <cmath>
#include <numbers>

namespace tessel {

namespace {

/// How much further along its edges than a circle's a corner reaches where there is room, in radii.
constexpr double fullEasing = 0.528;

/// While a corner eases from an edge into its arc it turns by that angle for each radius that it reaches
/// further, in radians: with full easing by 37 degrees, which leaves 16 for the arc.
constexpr double turnPerEasing = 70 * std::numbers::pi / 180;

/// Half of a corner, by distances along its edge from the corner's apex (x), and from the edge (y). The other
/// half is its mirror image.
struct HalfCorner {
    /// It leaves the edge here, without any curvature,
    double extent;
    double firstHandle;
    double secondHandle;
    /// and becomes an arc here, in the direction of `arcHandle` and with the circle's curvature.
    QPointF arc;
    QPointF arcHandle;
};

HalfCorner halfCorner(double radius, double room)
{
    const double easing = std::min(fullEasing, room / radius - 1);
    const double turn = turnPerEasing * easing;
    const double tangent = std::tan(turn / 2);
    const QPointF arc(1 - std::sin(turn), 1 - std::cos(turn));
    // The arc's tangent meets the edge in the second handle. The first one's distance from it decides the
    // curvature at the arc: that of a Bézier curve at its end is 2/3 of the handles' cross product by the
    // last one's cube.
    const double secondHandle = arc.x() + tangent * std::cos(turn);
    const double firstHandle = secondHandle + 0.75 * tangent / (std::cos(turn / 2) * std::cos(turn / 2));
    // A Bézier curve's handles for an arc.
    const double arcAngle = std::numbers::pi / 2 - 2 * turn;
    const double handleLength = 4.0 / 3 * std::tan(arcAngle / 4);
    const QPointF arcHandle = arc + handleLength * QPointF(-std::cos(turn), std::sin(turn));
    return {(1 + easing) * radius, firstHandle * radius, secondHandle * radius, arc * radius,
            arcHandle * radius};
}

} // namespace

double continuousCornerExtent(double radius)
{
    return (1 + fullEasing) * radius;
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

    const HalfCorner half = halfCorner(cornerRadius, halfSide);
    const auto corner = [&](QPointF apex, QPointF first, QPointF second) {
        // `along` the one edge, and away from it along the other.
        const auto point = [&](double along, double away) { return apex + first * along + second * away; };
        path.lineTo(point(half.extent, 0));
        path.cubicTo(point(half.firstHandle, 0), point(half.secondHandle, 0),
                     point(half.arc.x(), half.arc.y()));
        path.cubicTo(point(half.arcHandle.x(), half.arcHandle.y()),
                     point(half.arcHandle.y(), half.arcHandle.x()), point(half.arc.y(), half.arc.x()));
        path.cubicTo(point(0, half.secondHandle), point(0, half.firstHandle), point(0, half.extent));
    };
    const QPointF left(-1, 0);
    const QPointF right(1, 0);
    const QPointF up(0, -1);
    const QPointF down(0, 1);
    path.moveTo(rectangle.topLeft() + right * half.extent);
    corner(rectangle.topRight(), left, down);
    corner(rectangle.bottomRight(), up, left);
    corner(rectangle.bottomLeft(), right, up);
    corner(rectangle.topLeft(), down, right);
    path.closeSubpath();
    return path;
}

} // namespace tessel
