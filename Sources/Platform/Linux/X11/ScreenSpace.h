#pragma once

#include <vector>

#include "Geometry.h"
#include "X11/Struts.h"

namespace tessel {

/// One screen as the view toolkit lays it out: each screen keeps its place in pixels, and counts its own
/// extent in points from there.
struct ScreenLayout {
    double x = 0;     ///< The left edge, in pixels of the root window.
    double y = 0;     ///< The top edge, in pixels of the root window.
    Size size;        ///< In points.
    double scale = 1; ///< Pixels for each point.

    friend bool operator==(const ScreenLayout&, const ScreenLayout&) = default;
};

/// The screen in pixels.
PixelRect pixelsOf(const ScreenLayout& screen);

/// A rectangle inside a screen, from pixels to the toolkit's points: the origin is the top left corner, y
/// grows downwards.
PixelRect toToolkitPoints(const PixelRect& pixels, const ScreenLayout& screen);

/// A location in the toolkit's points, or a rectangle in them, in global points, whose origin is the bottom
/// left corner of the main screen.
Point toGlobalPoints(double x, double y, const ScreenLayout& mainScreen);
Rect toGlobalPoints(const PixelRect& toolkitPoints, const ScreenLayout& mainScreen);

/// The way back, for whoever places a window: the top left corner, in the toolkit's points, of a rectangle in
/// global points.
Point topLeftInToolkitPoints(const Rect& global, const ScreenLayout& mainScreen);

/// A location in pixels of the root window, in global points. It belongs to the screen that contains it;
/// outside all of them, to the main screen.
Point pixelToGlobalPoint(double x, double y, const std::vector<ScreenLayout>& screens,
                         const ScreenLayout& mainScreen);

} // namespace tessel
