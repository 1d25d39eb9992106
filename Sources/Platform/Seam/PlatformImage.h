#pragma once

#include <cstddef>
#include <functional>
#include <memory>
#include <optional>
#include <span>
#include <string>

#include "Geometry.h"
#include "Thumbnail.h"

namespace tessel {

/// Receives encoded bytes piece by piece, in order.
using ByteSink = std::function<void(std::span<const std::byte>)>;

/// A decoded picture, or a handle that decodes while it is encoded (`NSBitmapImageRep`).
class BitmapImage {
public:
    virtual ~BitmapImage() = default;

    /// Encodes the bitmap as PNG with default options (`representationUsingType:properties:` with type 4 and
    /// an empty dictionary), streaming it into `sink`. False: it cannot be encoded; what the sink has
    /// received is then void.
    virtual bool writePNG(const ByteSink& sink) const = 0;
};

/// The TIFF encoding of an image, or a handle that stands for it (`TIFFRepresentation`).
class TIFFData {
public:
    virtual ~TIFFData() = default;

    /// Decodes the data into a bitmap. Null: it cannot be decoded.
    virtual std::unique_ptr<BitmapImage> makeBitmap() const = 0;
};

/// An image as it was read from the pasteboard (`NSImage`). Immutable once it has been handed to the main
/// thread, and shared by reference from then on.
class PlatformImage {
public:
    virtual ~PlatformImage() = default;

    /// The TIFF encoding of the image. Null: it has none.
    virtual std::unique_ptr<TIFFData> tiffRepresentation() const = 0;

    /// In points. Not necessarily finite or integral: this is what the image claims.
    virtual Size size() const = 0;

    /// The content identity that was computed when the image was prepared off the main thread, or none when
    /// it was not: then it has to be computed from the encodings above.
    virtual const std::optional<std::string>& preparedFingerprint() const = 0;

    /// For the row that shows the image.
    virtual const Thumbnail& thumbnail() const = 0;
};

using SharedImage = std::shared_ptr<const PlatformImage>;

} // namespace tessel
