#pragma once

#include <vector>

namespace tessel {

/// A rectangle of device pixels. Its origin is the top left corner of the window that it belongs to, y
/// growing downwards; it may reach beyond that window.
struct PixelRectangle {
    int x = 0;
    int y = 0;
    int width = 0;
    int height = 0;

    bool operator==(const PixelRectangle&) const = default;
};

/// An area of device pixels: rectangles that do not overlap, from top to bottom.
using PixelRegion = std::vector<PixelRectangle>;

} // namespace tessel
