#include "Support/FrameMaker.h"

#include <QtGui/QPainter>

#include <algorithm>
#include <cmath>
#include <utility>

#include "Support/ContinuousCorners.h"

namespace tessel {

FrameMaker::FrameMaker(double cornerRadius, int overhang, double devicePixelRatio)
    : radius_(cornerRadius * devicePixelRatio)
    , overhang_(overhang)
    , devicePixelRatio_(devicePixelRatio)
    , side_(2 * (overhang + static_cast<int>(std::ceil(continuousCornerExtent(radius_)))) + 1)
{}

QImage FrameMaker::blank() const
{
    QImage image(side_, side_, QImage::Format_ARGB32_Premultiplied);
    image.fill(Qt::transparent);
    return image;
}

void FrameMaker::fill(QImage& image, const QColor& color) const
{
    QPainter painter(&image);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.fillPath(continuousRoundedRectangle(shape(), radius_), color);
}

void FrameMaker::stroke(QImage& image, const Outline& outline, int outermost) const
{
    const double width = outline.width * devicePixelRatio_;
    const double outside = std::min(std::floor(width / 2), static_cast<double>(outermost));
    const double inset = width / 2 - outside;
    QPainter painter(&image);
    painter.setRenderHint(QPainter::Antialiasing);
    QPen pen(outline.color, width);
    pen.setJoinStyle(Qt::MiterJoin);
    painter.strokePath(
        continuousRoundedRectangle(shape().adjusted(inset, inset, -inset, -inset), radius_ - inset), pen);
}

NinePatch FrameMaker::patch(QImage image) const
{
    return {std::move(image), overhang_};
}

QRectF FrameMaker::shape() const
{
    return QRectF(0, 0, side_, side_).adjusted(overhang_, overhang_, -overhang_, -overhang_);
}

} // namespace tessel
