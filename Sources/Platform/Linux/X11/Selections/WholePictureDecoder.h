#pragma once

#include <optional>
#include <string_view>

#include "X11/Selections/PictureDecoder.h"

namespace tessel {

/// Decodes the kinds of pictures that have to be whole in memory, with the toolkit's plugins.
namespace WholePictureDecoder {

/// See `PictureDecoder::shapeOf`.
std::optional<PictureShape> shapeOf(std::string_view encoded, PictureDecoder::Kind kind);
/// See `PictureDecoder::decode`.
bool decode(std::string_view encoded, PictureDecoder::Kind kind, PictureRowSink& sink, const Breath& breath);

} // namespace WholePictureDecoder

} // namespace tessel
