#pragma once

#include <string>

#include "Digest.h"
#include "PlatformImage.h"

namespace tessel {

/// "image:" followed by the SHA-256 of the image's re-encoded PNG as 64 lowercase hexadecimal digits. Where
/// the image has no TIFF encoding, or that cannot be decoded or encoded as PNG: "image:", width, "x" and
/// height in points, truncated toward zero; a size that does not fit a 64-bit integer is then a fatal error.
/// May run on any thread.
std::string imageFingerprint(const PlatformImage& image, const Digest& digest);

} // namespace tessel
