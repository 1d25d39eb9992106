#include "Support/NinePatch.h"

#include <QtGui/QPainter>

#include <array>
#include <utility>

#include "Support/DevicePixels.h"

namespace tessel {

namespace {

/// The three stretches of one axis: a corner, the line between, a corner.
struct Stretch {
    double start;
    double length;
};
using Axis = std::array<Stretch, 3>;

Axis targetAxis(double start, double length, double corner)
{
    return {{{start, corner}, {start + corner, length - 2 * corner}, {start + length - corner, corner}}};
}

} // namespace

NinePatch::NinePatch(QImage image, int overhang)
    : image_(std::move(image))
    , overhang_(overhang)
{}

void NinePatch::draw(QPainter& painter, const QRectF& rectangle) const
{
    drawParts(painter, rectangle, Parts::all);
}

void NinePatch::drawCorners(QPainter& painter, const QRectF& rectangle) const
{
    drawParts(painter, rectangle, Parts::cornersOnly);
}

void NinePatch::drawParts(QPainter& painter, const QRectF& rectangle, Parts parts) const
{
    const double pixel = 1 / devicePixelRatio(painter);
    const int cornerPixels = image_.width() / 2;
    const double corner = cornerPixels * pixel;
    const double overhang = overhang_ * pixel;
    const QRectF outer = rectangle.adjusted(-overhang, -overhang, overhang, overhang);
    const Axis columns = targetAxis(outer.left(), outer.width(), corner);
    const Axis rows = targetAxis(outer.top(), outer.height(), corner);
    const Axis source = targetAxis(0, image_.width(), cornerPixels);

    for (std::size_t row = 0; row < rows.size(); ++row) {
        for (std::size_t column = 0; column < columns.size(); ++column) {
            const bool isCorner = row != 1 && column != 1;
            const QRectF target(columns[column].start, rows[row].start, columns[column].length,
                                rows[row].length);
            if ((parts == Parts::cornersOnly && !isCorner) || target.isEmpty())
                continue;
            if (row == 1 && column == 1) {
                painter.fillRect(target, image_.pixelColor(cornerPixels, cornerPixels));
                continue;
            }
            painter.drawImage(
                target, image_,
                QRectF(source[column].start, source[row].start, source[column].length, source[row].length));
        }
    }
}

} // namespace tessel
