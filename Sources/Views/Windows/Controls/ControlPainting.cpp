#include "Windows/Controls/ControlPainting.h"

#include <QtGui/QLinearGradient>
#include <QtGui/QPainter>
#include <QtGui/QPen>

#include "Support/ContinuousCorners.h"
#include "Support/DevicePixels.h"
#include "Windows/Controls/ControlColors.h"

namespace tessel {

void paintBezel(QPainter& painter, const QRectF& rectangle, double radius, const QColor& fill,
                const EdgeColors& edge)
{
    painter.save();
    painter.setRenderHint(QPainter::Antialiasing);
    const QRectF shape = alignedToDevicePixels(painter, rectangle);
    painter.fillPath(continuousRoundedRectangle(shape, radius), fill);

    const double line = 1 / devicePixelRatio(painter);
    QLinearGradient fromTopToBottom(shape.topLeft(), shape.bottomLeft());
    fromTopToBottom.setColorAt(0, edge.top);
    fromTopToBottom.setColorAt(1, edge.bottom);
    painter.strokePath(continuousRoundedRectangle(shape.adjusted(line / 2, line / 2, -line / 2, -line / 2),
                                                  radius - line / 2),
                       QPen(fromTopToBottom, line));
    painter.restore();
}

void paintDoubleChevron(QPainter& painter, const QRectF& rectangle, const QColor& color)
{
    constexpr double halfWidth = 2.75; // Points, as the others.
    constexpr double height = 2.75;
    constexpr double halfGap = 1.75;
    const QPointF center = rectangle.center();
    painter.save();
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(QPen(color, 1.5, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
    for (const double direction : {-1.0, 1.0}) {
        const double foot = direction * halfGap;
        const QPointF points[] = {center + QPointF(-halfWidth, foot),
                                  center + QPointF(0, foot + direction * height),
                                  center + QPointF(halfWidth, foot)};
        painter.drawPolyline(points, 3);
    }
    painter.restore();
}

} // namespace tessel
