#pragma once

#include <QtGui/QColor>

#include "Support/NinePatch.h"

namespace tessel {

/// A filled and outlined rectangle with continuous corners, which is drawn often: only another colour or
/// scale makes it anew.
class CardPicture {
public:
    /// Both in points. The outline is wholly inside, because a view ends at its edges.
    CardPicture(double cornerRadius, double outlineWidth)
        : cornerRadius_(cornerRadius)
        , outlineWidth_(outlineWidth)
    {}

    /// `card` lies on whole device pixels.
    void draw(QPainter& painter, const QRectF& card, const QColor& fill, const QColor& outline);

private:
    double cornerRadius_;
    double outlineWidth_;
    NinePatch patch_;
    double ratio_ = 0;
    QColor fill_;
    QColor outline_;
};

} // namespace tessel
