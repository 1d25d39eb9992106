#pragma once

#include <vector>

#include <QtCore/QPointF>
#include <QtCore/QRectF>

#include "X11/Struts.h"

namespace tessel {

/// One screen as the view toolkit lays it out: each screen keeps its place in pixels, and counts its own
/// extent in points from there.
struct ScreenLayout {
    QPointF topLeft;  ///< In pixels of the root window, and in the toolkit's points.
    QSizeF size;      ///< In points.
    double scale = 1; ///< Pixels for each point.

    QRectF frame() const { return {topLeft, size}; }
};

/// The screen in pixels. The toolkit rounds the extent of a screen to whole points, so that this may be one
/// pixel off where a point is not a whole number of pixels.
PixelRect pixelsOf(const ScreenLayout& screen);

/// A rectangle inside a screen, from pixels to the toolkit's points.
QRectF toToolkitPoints(const PixelRect& pixels, const ScreenLayout& screen);

/// A location in pixels of the root window, in the toolkit's points. It belongs to the screen that contains
/// it; outside all of them, to `mainScreen`.
QPointF toToolkitPoint(double x, double y, const std::vector<ScreenLayout>& screens,
                       const ScreenLayout& mainScreen);

} // namespace tessel
