#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string_view>

namespace tessel {

/// What the first directory of a TIFF (TIFF 6.0, section 2) claims, as far as it matters before the picture
/// is decoded.
struct TIFFDirectory {
    /// The values of ExtraSamples (TIFF 6.0, section 18).
    enum class Alpha { none = -1, unspecified = 0, associated = 1, unassociated = 2 };

    std::uint64_t width = 0;
    std::uint64_t height = 0;
    std::uint64_t bitsPerSample = 1; ///< The largest.
    std::uint64_t samplesPerPixel = 1;
    std::uint64_t tileWidth = 0; ///< 0: the picture comes in strips.
    std::uint64_t tileHeight = 0;
    Alpha alpha = Alpha::none;
    std::size_t alphaOffset = 0; ///< Of the byte in the file that says what the alpha is.

    /// None: it is damaged.
    static std::optional<TIFFDirectory> firstOf(std::string_view encoded);
};

} // namespace tessel
