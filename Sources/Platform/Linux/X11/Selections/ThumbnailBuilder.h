#pragma once

#include <array>
#include <vector>

#include "Thumbnail.h"
#include "X11/Selections/PictureRows.h"

namespace tessel {

/// Makes the thumbnail of a picture from its rows, in one pass: the largest centred square, each pixel of the
/// thumbnail the exact mean of the area that it covers (a box filter). Computes in whole numbers, so that the
/// result is the same everywhere.
class ThumbnailBuilder final : public PictureRowSink {
public:
    bool begin(const PictureShape& shape) override;
    bool row(std::span<const std::byte> pixels) override;
    /// After the last row.
    Thumbnail finish() const;

private:
    static constexpr std::size_t side = Thumbnail::side;
    /// Sums of premultiplied red, green and blue (times 255), and of alpha.
    using Sums = std::array<std::uint64_t, PictureShape::samplesPerPixel>;

    Sums sumOfRow(std::span<const std::byte> pixels, std::size_t column) const;
    void addPixel(Sums& sums, const std::byte* pixel, std::uint64_t weight) const;

    PictureShape shape_;
    std::size_t square_ = 0; ///< Side of the centred square, in pixels of the picture.
    std::size_t left_ = 0;
    std::size_t top_ = 0;
    std::size_t rowNumber_ = 0;
    std::vector<Sums> sums_;
};

} // namespace tessel
