#pragma once

#include <QtGui/QPainterPath>

namespace tessel {

/// How far along each edge a continuous corner of that radius reaches, where there is room: further than a
/// circular one.
double continuousCornerExtent(double radius);

/// A rounded rectangle with continuous corners. Each corner is one curve like a quarter of a superellipse:
/// it leaves the edge gently, with almost no curvature, and passes through the same point on the diagonal
/// as the circle of that radius. Where the sides are too short for that it approaches the circle, so that
/// half the height as radius gives a capsule. The radius is limited to half the shorter side.
QPainterPath continuousRoundedRectangle(const QRectF& rectangle, double radius);

} // namespace tessel
