#include "X11/Selections/EncodedImage.h"

#include "X11/Selections/PictureDecoder.h"
#include "X11/Selections/PictureHandles.h"

namespace tessel {

EncodedImage::EncodedImage(EncodedPicture picture, Size size, Thumbnail thumbnail,
                           std::optional<std::string> fingerprint)
    : picture_(std::move(picture))
    , size_(size)
    , thumbnail_(std::move(thumbnail))
    , fingerprint_(std::move(fingerprint))
{}

std::unique_ptr<TIFFData> EncodedImage::tiffRepresentation() const
{
    return std::make_unique<PictureTIFF>([bytes = picture_.bytes](PictureRowSink& sink) {
        return PictureDecoder::decode(*bytes, sink, Breath());
    });
}

} // namespace tessel
