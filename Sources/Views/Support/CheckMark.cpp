#include "Support/CheckMark.h"

#include <QtGui/QPainter>
#include <QtGui/QPen>

namespace tessel {

void paintCheckMark(QPainter& painter, const QRectF& square, const QColor& color)
{
    const auto place = [&square](double x, double y) {
        return square.topLeft() + QPointF(x * square.width(), y * square.height());
    };
    painter.save();
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(QPen(color, square.width() * 0.14, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
    const QPointF points[] = {place(0.22, 0.54), place(0.42, 0.75), place(0.78, 0.25)};
    painter.drawPolyline(points, 3);
    painter.restore();
}

} // namespace tessel
