#pragma once

#include "PlatformImage.h"
#include "X11/Selections/SelectionValue.h"

namespace tessel {

/// An image that keeps its bytes as they came from the wire. A pixel counts as a point: what a picture says
/// about its resolution is seldom meant.
class EncodedImage final : public PlatformImage {
public:
    EncodedImage(EncodedPicture picture, Size size, Thumbnail thumbnail,
                 std::optional<std::string> fingerprint);

    const EncodedPicture& picture() const { return picture_; }

    std::unique_ptr<TIFFData> tiffRepresentation() const override;
    Size size() const override { return size_; }
    const std::optional<std::string>& preparedFingerprint() const override { return fingerprint_; }
    const Thumbnail& thumbnail() const override { return thumbnail_; }

private:
    EncodedPicture picture_;
    Size size_;
    Thumbnail thumbnail_;
    std::optional<std::string> fingerprint_;
};

} // namespace tessel
