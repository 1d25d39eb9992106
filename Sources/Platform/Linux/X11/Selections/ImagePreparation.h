#pragma once

#include <functional>
#include <memory>
#include <string>

#include "X11/Selections/EncodedImage.h"
#include "X11/Selections/PictureRows.h"

namespace tessel {

/// The content identity of an image.
using FingerprintRule = std::function<std::string(const PlatformImage&)>;

/// Decodes a picture once, and makes of that one pass its thumbnail, its size and its fingerprint by `rule`
/// (an empty rule makes none). Null: the picture is broken or too large, or `breath` has stopped the work.
std::shared_ptr<const EncodedImage> prepareImage(const EncodedPicture& picture, const FingerprintRule& rule,
                                                 const Breath& breath);

} // namespace tessel
