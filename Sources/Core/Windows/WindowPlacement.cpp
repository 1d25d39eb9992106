#include "Windows/WindowPlacement.h"

#include <algorithm>
#include <cmath>

namespace tessel {

Point centeredOrigin(Size window, const Rect& visibleFrame)
{
    const double left = visibleFrame.minX() + (visibleFrame.size.width - window.width) / 2;
    const double bottom = visibleFrame.minY() + (visibleFrame.size.height - window.height) / 2;
    return {
        std::floor(std::max(left, visibleFrame.minX())),
        std::floor(std::min(bottom, visibleFrame.maxY() - window.height)),
    };
}

} // namespace tessel
