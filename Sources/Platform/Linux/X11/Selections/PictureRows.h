#pragma once

#include <bit>
#include <cstddef>
#include <cstdint>
#include <functional>
#include <span>
#include <utility>

namespace tessel {

/// The shape of a decoded picture. A row is `width` pixels of red, green, blue and alpha (not premultiplied),
/// each of `bytesPerSample` bytes, the more significant byte first.
struct PictureShape {
    static constexpr std::size_t samplesPerPixel = 4;

    std::uint32_t width = 0;
    std::uint32_t height = 0;
    std::size_t bytesPerSample = 1; ///< 1 or 2.

    std::size_t bytesPerPixel() const { return samplesPerPixel * bytesPerSample; }
    std::size_t bytesPerRow() const { return width * bytesPerPixel(); }
    std::size_t bytes() const { return bytesPerRow() * height; }
};

/// Between the byte order of rows and that of the toolkit's 16-bit samples, which is the machine's; either
/// way.
inline void exchangeByteOrder(std::span<std::byte> samples)
{
    if constexpr (std::endian::native == std::endian::little) {
        for (std::size_t index = 0; index + 1 < samples.size(); index += 2)
            std::swap(samples[index], samples[index + 1]);
    }
}

/// Takes the rows of a picture from the top.
class PictureRowSink {
public:
    virtual ~PictureRowSink() = default;

    /// Before the first row. False: the picture is not wanted, and decoding fails.
    virtual bool begin(const PictureShape& shape) = 0;
    virtual bool row(std::span<const std::byte> pixels) = 0;
};

/// Called now and then during long work, so that other work of the same thread gets its turn. False: give the
/// long work up. An empty one never interrupts.
using Breath = std::function<bool()>;

/// Between two breaths about this many bytes of a decoded picture are worked on: less than a millisecond or
/// two.
constexpr std::size_t bytesBetweenBreaths = std::size_t{512} << 10;

} // namespace tessel
