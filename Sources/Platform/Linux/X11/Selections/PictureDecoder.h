#pragma once

#include <optional>
#include <string_view>

#include "X11/Selections/PictureRows.h"

namespace tessel {

/// Decodes an encoded picture of any kind that is let in: PNG by rows, so that it is never whole in memory
/// (an interlaced one has to be); JPEG, BMP, TIFF, WebP, GIF, ICO, XPM and PPM whole. What the bytes are is
/// seen from the bytes, not from the name that they came under. Samples come out as they are stored: neither
/// colour profiles nor gamma change them. May be used on any thread.
///
/// Equal pixels come out equal whatever form they came in, a picture without transparency like one whose
/// alpha is full everywhere. What cannot be equal: colours that were stored multiplied with their alpha (an
/// associated alpha in a TIFF) have lost steps, and come out as the nearest that they can have been; and the
/// toolkit reads a grey TIFF with alpha in 16 bits as 8-bit grey without it.
///
/// Pictures are rows of pixels: SVG is not let in, which is a program to be run; nor is XBM, a piece of C
/// that cannot be told from text.
namespace PictureDecoder {

/// A picture of more pixels is refused before it is decoded: some kilobytes can claim billions of them (a
/// decompression bomb). A screen of 7680 x 4320 has 33 million, the largest camera 150 million.
constexpr std::uint64_t mostPixels = 160'000'000;
/// A picture that has to be decoded whole may take this much: 7680 x 4320 pixels of 16-bit samples, and no
/// more.
constexpr std::size_t mostWholeBytes = std::size_t{272} << 20;

enum class Kind { png, jpeg, bmp, tiff, webp, gif, ico, xpm, ppm };

/// What `encoded` is, by its first bytes. None: nothing that is decoded here.
std::optional<Kind> kindOf(std::string_view encoded);

/// The shape that the picture claims. None: it cannot be read, or is too large.
std::optional<PictureShape> shapeOf(std::string_view encoded);

/// Feeds the rows of the whole picture to `sink`. False: it is broken, cut off or too large, or the sink or
/// the breath has stopped it; what the sink has received is then void.
bool decode(std::string_view encoded, PictureRowSink& sink, const Breath& breath);

/// Sets the toolkit's own limit to `mostWholeBytes`, and keeps its decoders from writing about broken
/// pictures to the log. Once for the process, before any other thread decodes.
void prepareToolkit();

} // namespace PictureDecoder

} // namespace tessel
