#include "X11/ScreenSpace.h"

#include <algorithm>
#include <cmath>

namespace tessel {

namespace {

bool contains(const PixelRect& rect, double x, double y)
{
    return x >= rect.x && x < rect.right() && y >= rect.y && y < rect.bottom();
}

double mainBottom(const ScreenLayout& mainScreen)
{
    return mainScreen.y + mainScreen.size.height;
}

} // namespace

PixelRect pixelsOf(const ScreenLayout& screen)
{
    return {screen.x, screen.y, std::round(screen.size.width * screen.scale),
            std::round(screen.size.height * screen.scale)};
}

PixelRect toToolkitPoints(const PixelRect& pixels, const ScreenLayout& screen)
{
    return {screen.x + (pixels.x - screen.x) / screen.scale, screen.y + (pixels.y - screen.y) / screen.scale,
            pixels.width / screen.scale, pixels.height / screen.scale};
}

Point toGlobalPoints(double x, double y, const ScreenLayout& mainScreen)
{
    return {x - mainScreen.x, mainBottom(mainScreen) - y};
}

Rect toGlobalPoints(const PixelRect& toolkitPoints, const ScreenLayout& mainScreen)
{
    return {toGlobalPoints(toolkitPoints.x, toolkitPoints.bottom(), mainScreen),
            {toolkitPoints.width, toolkitPoints.height}};
}

Point topLeftInToolkitPoints(const Rect& global, const ScreenLayout& mainScreen)
{
    return {global.minX() + mainScreen.x, mainBottom(mainScreen) - global.maxY()};
}

Point pixelToGlobalPoint(double x, double y, const std::vector<ScreenLayout>& screens,
                         const ScreenLayout& mainScreen)
{
    const auto found = std::find_if(screens.begin(), screens.end(), [&](const ScreenLayout& screen) {
        return contains(pixelsOf(screen), x, y);
    });
    const ScreenLayout& screen = found == screens.end() ? mainScreen : *found;
    const PixelRect point = toToolkitPoints({x, y, 0, 0}, screen);
    return toGlobalPoints(point.x, point.y, mainScreen);
}

} // namespace tessel
