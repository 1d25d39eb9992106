#include "Support/RoundedRegion.h"

#include <cmath>
#include <vector>

#include <QtGui/QImage>
#include <QtGui/QPainter>

#include "Support/ContinuousCorners.h"

namespace tessel {

namespace {

/// How many pixels are missing at either end of each row of a corner, from the outermost row inwards.
std::vector<int> insets(const QSize& size, double cornerRadius, int leastCoverage)
{
    const int extent = static_cast<int>(std::ceil(continuousCornerExtent(cornerRadius)));
    QImage corner(std::min(extent, size.width() / 2), std::min(extent, size.height() / 2),
                  QImage::Format_ARGB32_Premultiplied);
    corner.fill(Qt::transparent);
    QPainter painter(&corner);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.fillPath(continuousRoundedRectangle(QRectF(QPointF(), size), cornerRadius), Qt::black);
    painter.end();

    std::vector<int> insets;
    for (int y = 0; y < corner.height(); ++y) {
        int x = 0;
        while (x < corner.width() && qAlpha(corner.pixel(x, y)) < leastCoverage)
            ++x;
        insets.push_back(x);
    }
    return insets;
}

void addRow(PixelRegion& region, const PixelRectangle& row)
{
    const bool continues = !region.empty() && region.back().x == row.x && region.back().width == row.width;
    if (continues)
        region.back().height += row.height;
    else if (row.width > 0 && row.height > 0)
        region.push_back(row);
}

} // namespace

PixelRegion roundedRegion(const QSize& size, double cornerRadius, int leastCoverage)
{
    const std::vector<int> missing = insets(size, cornerRadius, leastCoverage);
    const int cornerRows = static_cast<int>(missing.size());
    const auto row = [&](int y, int inset, int height) {
        return PixelRectangle{inset, y, size.width() - 2 * inset, height};
    };
    PixelRegion region;
    for (int y = 0; y < cornerRows; ++y)
        addRow(region, row(y, missing[static_cast<std::size_t>(y)], 1));
    addRow(region, row(cornerRows, 0, size.height() - 2 * cornerRows));
    for (int y = cornerRows - 1; y >= 0; --y)
        addRow(region, row(size.height() - 1 - y, missing[static_cast<std::size_t>(y)], 1));
    return region;
}

} // namespace tessel
