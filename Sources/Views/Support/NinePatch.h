#pragma once

#include <QtGui/QImage>

class QPainter;

namespace tessel {

/// A frame drawn once, in device pixels, and then stretched to any size: four corners, four edges of which
/// one line each is kept, and a middle of one plain colour.
class NinePatch {
public:
    NinePatch() = default;
    /// `image` is square with an odd side: two corners and the one line between them. `overhang` is how far
    /// the picture reaches beyond the rectangle that it frames, in device pixels.
    NinePatch(QImage image, int overhang);

    /// Draws the frame around `rectangle`, which lies on whole device pixels of the painter.
    void draw(QPainter& painter, const QRectF& rectangle) const;
    /// Draws the four corners and nothing between them.
    void drawCorners(QPainter& painter, const QRectF& rectangle) const;

private:
    enum class Parts { all, cornersOnly };
    void drawParts(QPainter& painter, const QRectF& rectangle, Parts parts) const;

    QImage image_;
    int overhang_ = 0;
};

} // namespace tessel
