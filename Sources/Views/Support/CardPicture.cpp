#include "Support/CardPicture.h"

#include "Support/DevicePixels.h"
#include "Support/FrameMaker.h"

namespace tessel {

void CardPicture::draw(QPainter& painter, const QRectF& card, const QColor& fill, const QColor& outline)
{
    const double ratio = devicePixelRatio(painter);
    if (ratio != ratio_ || fill != fill_ || outline != outline_) {
        constexpr int nothingOutside = 0;
        const FrameMaker maker(cornerRadius_, nothingOutside, ratio);
        QImage image = maker.blank();
        maker.fill(image, fill);
        maker.stroke(image, {outlineWidth_, outline}, nothingOutside);
        patch_ = maker.patch(image);
        ratio_ = ratio;
        fill_ = fill;
        outline_ = outline;
    }
    patch_.draw(painter, card);
}

} // namespace tessel
