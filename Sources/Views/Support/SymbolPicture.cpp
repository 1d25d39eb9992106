#include "Support/SymbolPicture.h"

#include <QtGui/QPainter>

#include "Support/DevicePixels.h"
#include "Support/Symbol.h"

namespace tessel {

void SymbolPicture::draw(QPainter& painter, const QRect& place, const QColor& color)
{
    const double ratio = devicePixelRatio(painter);
    const bool isCurrent = image_.devicePixelRatio() == ratio && color_ == color &&
                           image_.deviceIndependentSize() == QSizeF(place.size());
    if (!isCurrent) {
        image_ = renderedSymbol(name_, place.size(), color, ratio);
        color_ = color;
    }
    painter.drawImage(alignedToDevicePixels(painter, place).topLeft(), image_);
}

} // namespace tessel
