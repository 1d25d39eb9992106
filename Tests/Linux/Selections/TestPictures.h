#pragma once

#include <string>

#include <QImage>

#include "PlatformImage.h"

namespace tessel {

/// A picture in which every pixel differs from its neighbours; with transparency where `format` has it.
QImage testImage(int width, int height, QImage::Format format = QImage::Format_RGBA8888);
/// The picture in the toolkit's encoding `format`, for instance "png".
std::string encodedImage(const QImage& image, const char* format, int quality = -1);
/// An Adam7-interlaced PNG (ISO/IEC 15948, section 8) of 8- or 16-bit samples.
std::string interlacedPNG(const QImage& image);
/// The rule that the program prepares images with, on its own: a SHA-256 of what the bitmap encodes to.
std::string sha256OfPNG(const PlatformImage& image);

} // namespace tessel
