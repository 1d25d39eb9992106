#pragma once

#include <optional>
#include <string_view>

#include "X11/Selections/PictureRows.h"

namespace tessel {

/// Decodes a PNG (ISO/IEC 15948) row by row.
namespace PNGRowDecoder {

/// See `PictureDecoder::shapeOf`.
std::optional<PictureShape> shapeOf(std::string_view encoded);
/// See `PictureDecoder::decode`.
bool decode(std::string_view encoded, PictureRowSink& sink, const Breath& breath);

} // namespace PNGRowDecoder

} // namespace tessel
