#pragma once

#include <memory>
#include <string>
#include <utility>

#include "PlatformImage.h"

namespace tessel::test {

/// The point at which the way from an image to its PNG ends.
enum class ImageEncoding {
    succeeds,
    hasNoTIFF,
    tiffCannotBeDecoded,
    bitmapCannotBeEncoded,      ///< Nothing reaches the sink.
    bitmapFailsAfterSomeOutput, ///< Half of the bytes reach the sink before the failure.
};

/// An image that "encodes" to bytes that the test gives, in several pieces, or fails on the way.
class FakeImage final : public PlatformImage {
public:
    FakeImage(std::string pngBytes, Size size, ImageEncoding encoding = ImageEncoding::succeeds)
        : pngBytes_(std::move(pngBytes))
        , size_(size)
        , encoding_(encoding)
    {}

    /// An image whose PNG encoding is these bytes.
    static std::shared_ptr<FakeImage> withPNG(std::string pngBytes, Size size = {16, 16});
    /// An image that cannot be encoded.
    static std::shared_ptr<FakeImage> failing(ImageEncoding encoding, Size size);
    /// An image whose identity was computed when it was received.
    static std::shared_ptr<FakeImage> prepared(std::string fingerprint, Size size = {16, 16});

    /// How often the image was asked for its TIFF encoding.
    int encodings() const { return encodings_; }

    std::unique_ptr<TIFFData> tiffRepresentation() const override;
    Size size() const override { return size_; }
    const std::optional<std::string>& preparedFingerprint() const override { return preparedFingerprint_; }
    const Thumbnail& thumbnail() const override { return thumbnail_; }

    /// To be filled before the image is shown.
    void setThumbnail(Thumbnail thumbnail) { thumbnail_ = std::move(thumbnail); }

private:
    std::string pngBytes_;
    Size size_;
    ImageEncoding encoding_;
    std::optional<std::string> preparedFingerprint_;
    Thumbnail thumbnail_;
    mutable int encodings_ = 0;
};

} // namespace tessel::test
