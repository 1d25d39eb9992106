#pragma once

#include <QtGui/QPainterPath>

namespace tessel {

/// How far along each edge a continuous corner of that radius reaches, where there is room: further than a
/// circular one.
double continuousCornerExtent(double radius);

/// A rounded rectangle with continuous corners: a corner leaves its edge without any curvature, which then
/// changes without a jump; around the diagonal it is an arc of the circle. Where the sides are too short for
/// that it approaches the circle, so that half the height as radius gives a capsule. The radius is limited to
/// half the shorter side.
QPainterPath continuousRoundedRectangle(const QRectF& rectangle, double radius);

} // namespace tessel
