#pragma once

#include <cstdint>
#include <vector>

namespace tessel {

/// A small square picture of an image, scaled to fill and cropped to its centre. Sharp in 32 points at up to
/// twice the scale.
struct Thumbnail {
    /// Width and height in pixels.
    static constexpr int side = 64;

    /// `side` x `side` premultiplied pixels, 0xAARRGGBB, row by row from the top; empty when there is no
    /// picture to show.
    std::vector<std::uint32_t> pixels;
};

} // namespace tessel
