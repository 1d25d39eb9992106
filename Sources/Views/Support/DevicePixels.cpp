#include "Support/DevicePixels.h"

#include <QtGui/QPainter>
#include <QtGui/QTransform>

#include <cmath>

namespace tessel {

namespace {

/// Each edge on the nearest whole number.
QRectF rounded(const QRectF& rectangle)
{
    const QPointF topLeft(std::round(rectangle.left()), std::round(rectangle.top()));
    const QPointF bottomRight(std::round(rectangle.right()), std::round(rectangle.bottom()));
    return {topLeft, bottomRight};
}

} // namespace

QRectF alignedToDevicePixels(const QPainter& painter, const QRectF& rectangle)
{
    const QTransform toDevice = painter.deviceTransform();
    if (toDevice.type() > QTransform::TxScale)
        return rectangle;
    return toDevice.inverted().mapRect(rounded(toDevice.mapRect(rectangle)));
}

QRect nearestPixels(const QRectF& rectangle, double devicePixelRatio)
{
    return rounded({rectangle.topLeft() * devicePixelRatio, rectangle.size() * devicePixelRatio})
        .toAlignedRect();
}

double devicePixelRatio(const QPainter& painter)
{
    return painter.deviceTransform().m11();
}

} // namespace tessel
