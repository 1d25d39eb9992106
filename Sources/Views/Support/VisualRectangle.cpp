#include "Support/VisualRectangle.h"

namespace tessel {

QRectF visualRectangle(Qt::LayoutDirection direction, const QRectF& bounds, const QRectF& rectangle)
{
    if (direction != Qt::RightToLeft)
        return rectangle;
    return rectangle.translated(bounds.left() + bounds.right() - rectangle.left() - rectangle.right(), 0);
}

} // namespace tessel
