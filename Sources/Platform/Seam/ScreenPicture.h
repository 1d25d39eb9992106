#pragma once

#include <cstdint>
#include <vector>

#include "PixelRectangle.h"

namespace tessel {

/// Asks for what the screen shows in a rectangle.
struct ScreenPictureRequest {
    PixelRectangle rectangle;
    /// How many pixels of the screen, in either direction, become one of the picture, which has their average
    /// colour. A power of two.
    int reduction = 1;
};

/// What the screen showed in a rectangle at one moment.
struct ScreenPicture {
    /// What of the rectangle that was asked for lies on the screen.
    PixelRectangle rectangle;
    int reduction = 1;
    /// The extent of `rectangle` divided by `reduction` and rounded up.
    int width = 0;
    int height = 0;
    /// Rows from the top, 0xFFRRGGBB. Empty: the picture could not be taken.
    std::vector<std::uint32_t> pixels;
};

} // namespace tessel
