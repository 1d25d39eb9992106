#pragma once

#include <map>
#include <string>

#include <QImage>

#include "PlatformImage.h"

namespace tessel {

/// A picture in which every pixel differs from its neighbours; with transparency where `format` has it.
QImage testImage(int width, int height, QImage::Format format = QImage::Format_RGBA8888);
/// The picture in the toolkit's encoding `format`, for instance "png".
std::string encodedImage(const QImage& image, const char* format, int quality = -1);
/// How the pixels of a picture go into a TIFF (TIFF 6.0, section 18).
enum class TIFFAlpha { none = -1, unspecified = 0, associated = 1, unassociated = 2 };
enum class TIFFOrder { littleEndian, bigEndian };
/// A baseline TIFF (TIFF 6.0, part 1) of the samples as they stand in `image`, 8 or 16 bits each: red, green
/// and blue, or one grey when `isGrey`, and the alpha behind them.
std::string baselineTIFF(const QImage& image, TIFFAlpha alpha, TIFFOrder order = TIFFOrder::littleEndian,
                         bool isGrey = false);
/// A BMP with a version 5 header (BITFIELDS), which has a place for alpha.
std::string bmpWithAlpha(const QImage& image);
/// A GIF of an image of at most 128 colours.
std::string encodedGIF(const QImage& image);
/// A picture of each format that is let in, by the name of the format.
std::map<std::string, std::string> picturesOfEachFormat(int width, int height);
/// A chunk of a PNG with its checksum.
std::string pngChunk(const std::string& name, const std::string& content);
/// An Adam7-interlaced PNG (ISO/IEC 15948, section 8) of 8- or 16-bit samples.
std::string interlacedPNG(const QImage& image);
/// The rule that the program prepares images with, on its own: a SHA-256 of what the bitmap encodes to.
std::string sha256OfPNG(const PlatformImage& image);

} // namespace tessel
