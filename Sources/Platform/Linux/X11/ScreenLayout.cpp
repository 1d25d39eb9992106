#include "X11/ScreenLayout.h"

#include <algorithm>
#include <cmath>

namespace tessel {

namespace {

bool contains(const PixelRect& rect, double x, double y)
{
    return x >= rect.x && x < rect.right() && y >= rect.y && y < rect.bottom();
}

/// Where two screens claim a row or column of pixels because of their rounded extents, it is that of the
/// screen which begins there.
bool beginsAt(const PixelRect& rect, double x, double y)
{
    return x < rect.x + 1 || y < rect.y + 1;
}

} // namespace

PixelRect pixelsOf(const ScreenLayout& screen)
{
    return {screen.topLeft.x(), screen.topLeft.y(), std::round(screen.size.width() * screen.scale),
            std::round(screen.size.height() * screen.scale)};
}

QRectF toToolkitPoints(const PixelRect& pixels, const ScreenLayout& screen)
{
    const QPointF offset = QPointF(pixels.x, pixels.y) - screen.topLeft;
    return {screen.topLeft + offset / screen.scale,
            QSizeF(pixels.width / screen.scale, pixels.height / screen.scale)};
}

QPointF toToolkitPoint(double x, double y, const std::vector<ScreenLayout>& screens,
                       const ScreenLayout& mainScreen)
{
    const ScreenLayout* screen = nullptr;
    for (const ScreenLayout& candidate : screens) {
        const PixelRect pixels = pixelsOf(candidate);
        if (contains(pixels, x, y) && (screen == nullptr || beginsAt(pixels, x, y)))
            screen = &candidate;
    }
    return toToolkitPoints({x, y, 0, 0}, screen == nullptr ? mainScreen : *screen).topLeft();
}

} // namespace tessel
