#pragma once

#include <QtCore/QRectF>

class QPainter;

namespace tessel {

/// The rectangle moved to the nearest whole device pixels, in the painter's coordinates: what is drawn there
/// is sharp at any scale. A painter that rotates gets the rectangle back as it is.
QRectF alignedToDevicePixels(const QPainter& painter, const QRectF& rectangle);

/// The same place in whole device pixels, of which there are `devicePixelRatio` to a point.
QRect nearestPixels(const QRectF& rectangle, double devicePixelRatio);

/// The number of device pixels to a point for that painter, which need not be its device's own: a widget can
/// be rendered into a picture of another scale.
double devicePixelRatio(const QPainter& painter);

} // namespace tessel
