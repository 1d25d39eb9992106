#pragma once

#include <functional>
#include <utility>

#include "PlatformImage.h"
#include "X11/Selections/PictureRows.h"

namespace tessel {

/// Decodes one picture into a sink, whenever and as often as it is called. False as for
/// `PictureDecoder::decode`.
using PictureSource = std::function<bool(PictureRowSink&)>;

/// A bitmap that is never there: its rows go from the encoded picture to the encoded PNG.
class PictureBitmap final : public BitmapImage {
public:
    explicit PictureBitmap(PictureSource source)
        : source_(std::move(source))
    {}
    bool writePNG(const ByteSink& sink) const override;

private:
    PictureSource source_;
};

/// Stands for the TIFF encoding of a picture.
class PictureTIFF final : public TIFFData {
public:
    explicit PictureTIFF(PictureSource source)
        : source_(std::move(source))
    {}
    std::unique_ptr<BitmapImage> makeBitmap() const override;

private:
    PictureSource source_;
};

} // namespace tessel
