#include "ScreenSpace.h"

#include <QtGui/QGuiApplication>
#include <QtGui/QScreen>

namespace tessel::screenSpace {

std::optional<QPointF> originOfSeam()
{
    const QScreen* screen = QGuiApplication::primaryScreen();
    if (screen == nullptr)
        return std::nullopt;
    return QRectF(screen->geometry()).bottomLeft();
}

Point toSeam(QPointF point, QPointF originOfSeam)
{
    return {point.x() - originOfSeam.x(), originOfSeam.y() - point.y()};
}

Rect toSeam(const QRectF& rectangle, QPointF originOfSeam)
{
    return {toSeam(rectangle.bottomLeft(), originOfSeam), {rectangle.width(), rectangle.height()}};
}

QRect toToolkit(const Rect& frame)
{
    const QPoint origin = originOfSeam().value_or(QPointF()).toPoint();
    return {origin.x() + qRound(frame.minX()), origin.y() - qRound(frame.maxY()), qRound(frame.size.width),
            qRound(frame.size.height)};
}

Rect toSeam(const QRect& frame)
{
    return toSeam(QRectF(frame), originOfSeam().value_or(QPointF()));
}

} // namespace tessel::screenSpace
