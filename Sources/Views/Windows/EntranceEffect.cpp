#include "Windows/EntranceEffect.h"

#include <QtGui/QPainter>
#include <QtGui/QPixmap>

#include <algorithm>
#include <cmath>

namespace tessel {

EntranceEffect::EntranceEffect(double offset)
    : start_(offset)
{}

void EntranceEffect::setProgress(double progress)
{
    progress_ = progress;
    update();
}

QRectF EntranceEffect::boundingRectFor(const QRectF& source) const
{
    const double reach = std::abs(start_);
    return source.adjusted(0, -reach, 0, reach);
}

void EntranceEffect::draw(QPainter* painter)
{
    QPoint place;
    const QPixmap view = sourcePixmap(Qt::LogicalCoordinates, &place, NoPad);
    painter->save();
    painter->setOpacity(std::clamp(progress_, 0.0, 1.0));
    painter->setRenderHint(QPainter::SmoothPixmapTransform);
    painter->drawPixmap(QPointF(place) + QPointF(0, start_ * (1 - progress_)), view);
    painter->restore();
}

} // namespace tessel
