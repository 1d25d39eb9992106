#include "Panel/PanelGeometry.h"

#include <algorithm>

namespace tessel {

Size panelContentSize(std::size_t entryCount)
{
    constexpr double width = 460;
    constexpr double heightWithoutRows = 118;
    constexpr double heightPerRow = 72;
    constexpr std::size_t mostRows = 6;
    constexpr double minimumHeight = 220;
    constexpr double maximumHeight = 560;

    const std::size_t rows = std::clamp<std::size_t>(entryCount, 1, mostRows);
    const double height = heightWithoutRows + heightPerRow * static_cast<double>(rows);
    return {width, std::clamp(height, minimumHeight, maximumHeight)};
}

Point panelOrigin(Point pointer, Size panel, const Rect& visibleFrame)
{
    constexpr double pointerOffset = 12;

    // The upper bound comes last: a panel larger than the frame keeps its right and top edges inside.
    const double right = visibleFrame.maxX() - panel.width;
    const double top = visibleFrame.maxY() - panel.height;
    return {
        std::min(std::max(pointer.x + pointerOffset, visibleFrame.minX()), right),
        std::min(std::max(pointer.y - panel.height - pointerOffset, visibleFrame.minY()), top),
    };
}

bool mouseInRect(Point pointer, const Rect& rect)
{
    return pointer.x >= rect.minX() && pointer.x < rect.maxX() && pointer.y > rect.minY() &&
           pointer.y <= rect.maxY();
}

std::optional<Screen> screenContaining(Point pointer, const std::vector<Screen>& screens)
{
    const auto found = std::find_if(screens.begin(), screens.end(), [pointer](const Screen& screen) {
        return mouseInRect(pointer, screen.frame);
    });
    return found != screens.end() ? std::optional(*found) : std::nullopt;
}

std::optional<Screen> screenInUse(Point pointer, const std::vector<Screen>& screens,
                                  const std::optional<Screen>& mainScreen)
{
    const auto screen = screenContaining(pointer, screens);
    return screen ? screen : mainScreen;
}

} // namespace tessel
