#include "Support/DevicePixels.h"

#include <QtGui/QPainter>
#include <QtGui/QTransform>

#include <cmath>

namespace tessel {

QRectF alignedToDevicePixels(const QPainter& painter, const QRectF& rectangle)
{
    const QTransform toDevice = painter.deviceTransform();
    if (toDevice.type() > QTransform::TxScale)
        return rectangle;
    const QRectF device = toDevice.mapRect(rectangle);
    const QPointF topLeft(std::round(device.left()), std::round(device.top()));
    const QPointF bottomRight(std::round(device.right()), std::round(device.bottom()));
    return toDevice.inverted().mapRect(QRectF(topLeft, bottomRight));
}

double devicePixelRatio(const QPainter& painter)
{
    return painter.deviceTransform().m11();
}

} // namespace tessel
