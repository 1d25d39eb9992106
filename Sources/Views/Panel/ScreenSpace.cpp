#include "Panel/ScreenSpace.h"

#include <QtGui/QGuiApplication>
#include <QtGui/QScreen>

namespace tessel::screenSpace {

namespace {

/// Where the seam's origin lies in the toolkit's space.
QPoint originOfSeam()
{
    const QScreen* screen = QGuiApplication::primaryScreen();
    if (screen == nullptr)
        return {};
    const QRect geometry = screen->geometry();
    return {geometry.left(), geometry.top() + geometry.height()};
}

} // namespace

QRect toToolkit(const Rect& rectangle)
{
    const QPoint origin = originOfSeam();
    return {QPoint(origin.x() + qRound(rectangle.minX()), origin.y() - qRound(rectangle.maxY())),
            QSize(qRound(rectangle.size.width), qRound(rectangle.size.height))};
}

Rect fromToolkit(const QRect& rectangle)
{
    const QPoint origin = originOfSeam();
    const double left = rectangle.left() - origin.x();
    const double bottom = origin.y() - (rectangle.top() + rectangle.height());
    return {{left, bottom},
            {static_cast<double>(rectangle.width()), static_cast<double>(rectangle.height())}};
}

} // namespace tessel::screenSpace
