#include "X11/Selections/ThumbnailBuilder.h"

#include <algorithm>

namespace tessel {

// Lengths along a side are counted in units of which a picture's pixel has `side` and a thumbnail's pixel has
// `square_`: then every border between pixels, of the one and of the other, is at a whole number.

bool ThumbnailBuilder::begin(const PictureShape& shape)
{
    shape_ = shape;
    square_ = std::min(shape.width, shape.height);
    left_ = (shape.width - square_) / 2;
    top_ = (shape.height - square_) / 2;
    rowNumber_ = 0;
    sums_.assign(side * side, {});
    return square_ > 0;
}

bool ThumbnailBuilder::row(std::span<const std::byte> pixels)
{
    const std::size_t number = rowNumber_++;
    if (number < top_ || number >= top_ + square_)
        return true;
    const std::uint64_t rowBegin = (number - top_) * side;
    const std::uint64_t rowEnd = rowBegin + side;
    const std::size_t firstLine = rowBegin / square_;
    const std::size_t lastLine = (rowEnd - 1) / square_;
    for (std::size_t column = 0; column < side; ++column) {
        const Sums sums = sumOfRow(pixels, column);
        for (std::size_t line = firstLine; line <= lastLine; ++line) {
            const std::uint64_t weight = std::min<std::uint64_t>(rowEnd, (line + 1) * square_) -
                                         std::max<std::uint64_t>(rowBegin, line * square_);
            Sums& target = sums_[line * side + column];
            for (std::size_t sample = 0; sample < sums.size(); ++sample)
                target[sample] += sums[sample] * weight;
        }
    }
    return true;
}

/// What the row adds to the thumbnail's pixels in `column`.
ThumbnailBuilder::Sums ThumbnailBuilder::sumOfRow(std::span<const std::byte> pixels, std::size_t column) const
{
    const std::size_t begin = column * square_;
    const std::size_t end = begin + square_;
    const std::size_t firstPixel = begin / side;
    const std::size_t lastPixel = (end - 1) / side;
    const std::size_t bytesPerPixel = shape_.bytesPerPixel();
    const std::byte* pixel = pixels.data() + (left_ + firstPixel) * bytesPerPixel;
    Sums sums = {};
    addPixel(sums, pixel, std::min((firstPixel + 1) * side, end) - begin);
    if (lastPixel == firstPixel)
        return sums;
    Sums inner = {};
    for (std::size_t index = firstPixel + 1; index < lastPixel; ++index)
        addPixel(inner, pixel += bytesPerPixel, 1);
    for (std::size_t sample = 0; sample < sums.size(); ++sample)
        sums[sample] += inner[sample] * side;
    addPixel(sums, pixel + bytesPerPixel, end - lastPixel * side);
    return sums;
}

void ThumbnailBuilder::addPixel(Sums& sums, const std::byte* pixel, std::uint64_t weight) const
{
    // Of two bytes the first is the more significant one, and enough for a thumbnail.
    const std::size_t step = shape_.bytesPerSample;
    const std::uint64_t alpha = weight * std::to_integer<std::uint64_t>(pixel[3 * step]);
    sums[0] += std::to_integer<std::uint64_t>(pixel[0]) * alpha;
    sums[1] += std::to_integer<std::uint64_t>(pixel[step]) * alpha;
    sums[2] += std::to_integer<std::uint64_t>(pixel[2 * step]) * alpha;
    sums[3] += alpha;
}

Thumbnail ThumbnailBuilder::finish() const
{
    constexpr std::uint64_t opaque = 255;
    const std::uint64_t area = std::uint64_t{square_} * square_;
    const auto mean = [](std::uint64_t sum, std::uint64_t count) {
        return static_cast<std::uint32_t>((sum + count / 2) / count);
    };
    Thumbnail thumbnail;
    thumbnail.pixels.reserve(side * side);
    for (const Sums& sums : sums_) {
        const std::uint32_t alpha = mean(sums[3], area);
        const std::uint32_t red = mean(sums[0], area * opaque);
        const std::uint32_t green = mean(sums[1], area * opaque);
        const std::uint32_t blue = mean(sums[2], area * opaque);
        thumbnail.pixels.push_back(alpha << 24 | red << 16 | green << 8 | blue);
    }
    return thumbnail;
}

} // namespace tessel
