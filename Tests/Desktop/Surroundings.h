#pragma once

#include <cmath>
#include <filesystem>
#include <string>

#include "Desktop.h"

namespace tessel::desktop {

/// What a reference picture is taken in.
struct Surroundings {
    CompositorChoice compositor;
    double scale;

    /// Of the directory that its pictures are in.
    std::string name() const
    {
        return std::string(compositor == CompositorChoice::picom ? "compositor" : "no-compositor") + "-" +
               std::to_string(static_cast<int>(scale)) + "x";
    }
    DesktopOptions desktop() const
    {
        const auto pixels = [this](int points) { return static_cast<int>(std::lround(points * scale)); };
        return {.screen = {pixels(640), pixels(720)}, .compositor = compositor, .scale = scale};
    }
};

/// In points, away from every window.
constexpr Place farFromTheWindows = {60, 50};

/// Saves what is to be seen at and around a window, once nothing moves there any more.
inline void saveWithSurroundings(Desktop& desktop, const Frame& window, const std::filesystem::path& file)
{
    constexpr int margin = 24; // Points.
    const int border = static_cast<int>(margin * desktop.scale());
    desktop.pixels().readQuietScreen();
    const Frame surroundings = {window.x - border, window.y - border, window.width + 2 * border,
                                window.height + 2 * border};
    writePng(desktop.pixels().read(surroundings), file);
}

} // namespace tessel::desktop
