#pragma once

#include <string>

namespace tessel::desktop {

/// How a large PNG is written.
struct LargePng {
    int width = 7680;
    int height = 4320;
    int bitsPerSample = 8; ///< 8 or 16.
    bool isInterlaced = false;
};

/// A colourful picture without transparency, quickly encoded.
std::string encodeLargePng(const LargePng& description);

/// A small picture in the encoding of a MIME type, for instance "image/tiff". Throws `DesktopFailure` if
/// there is no encoder.
std::string encodeSmallPicture(const std::string& mimeType);

/// A PNG whose header claims `width` x `height` pixels of which next to none are there.
std::string claimingPng(std::uint32_t width, std::uint32_t height);

/// A small PNG with a wrong byte in the middle of its pixels.
std::string corruptPng();

/// The first half of a small PNG.
std::string truncatedPng();

} // namespace tessel::desktop
