#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <filesystem>
#include <string>
#include <vector>

namespace tessel::desktop {

/// Red, green and blue, 0 to 255 each.
using Colour = std::array<std::uint8_t, 3>;

/// An opaque picture of 8 bits per channel, rows from the top.
struct Picture {
    int width = 0;
    int height = 0;
    std::vector<Colour> pixels;

    const Colour& at(int x, int y) const
    {
        return pixels[static_cast<std::size_t>(y) * static_cast<std::size_t>(width) +
                      static_cast<std::size_t>(x)];
    }
    bool operator==(const Picture&) const = default;
};

/// A picture in which no two neighbouring pixels are equal and that does not compress to nothing, the same
/// for the same arguments.
Picture makeTestPicture(int width, int height, std::uint32_t seed);

/// The picture as a PNG file's bytes.
std::string encodePng(const Picture& picture);
/// The picture in a PNG file's bytes; throws `DesktopFailure` if it cannot be read.
Picture decodePng(const std::string& bytes);
void writePng(const Picture& picture, const std::filesystem::path& file);

} // namespace tessel::desktop
