#include "X11/Selections/ImagePreparation.h"

#include "X11/Selections/PictureDecoder.h"
#include "X11/Selections/PictureHandles.h"
#include "X11/Selections/ThumbnailBuilder.h"

namespace tessel {

namespace {

/// Makes the thumbnail of the rows that pass by on their way to the sink that has asked for them.
class RowTee final : public PictureRowSink {
public:
    RowTee(ThumbnailBuilder& thumbnail, PictureRowSink* sink)
        : thumbnail_(thumbnail)
        , sink_(sink)
    {}
    bool begin(const PictureShape& shape) override
    {
        return thumbnail_.begin(shape) && (!sink_ || sink_->begin(shape));
    }
    bool row(std::span<const std::byte> pixels) override
    {
        return thumbnail_.row(pixels) && (!sink_ || sink_->row(pixels));
    }

private:
    ThumbnailBuilder& thumbnail_;
    PictureRowSink* sink_; ///< Null: nobody else wants the rows.
};

/// The image as the fingerprint rule sees it: what the rule decodes leaves its thumbnail behind.
class ImageInPreparation final : public PlatformImage {
public:
    ImageInPreparation(const EncodedPicture& picture, const PictureShape& shape, const Breath& breath)
        : picture_(picture)
        , size_{static_cast<double>(shape.width), static_cast<double>(shape.height)}
        , breath_(breath)
    {}

    std::unique_ptr<TIFFData> tiffRepresentation() const override
    {
        return std::make_unique<PictureTIFF>([this](PictureRowSink& sink) { return decode(&sink); });
    }
    Size size() const override { return size_; }
    const std::optional<std::string>& preparedFingerprint() const override { return none_; }
    const Thumbnail& thumbnail() const override { return noThumbnail_; }

    bool decode(PictureRowSink* sink) const
    {
        ThumbnailBuilder builder;
        RowTee tee(builder, sink);
        thumbnail_.reset();
        if (!PictureDecoder::decode(*picture_.bytes, tee, breath_))
            return false;
        thumbnail_ = builder.finish();
        return true;
    }
    /// None: it has not been decoded, or it cannot be.
    const std::optional<Thumbnail>& decodedThumbnail() const { return thumbnail_; }

private:
    const EncodedPicture& picture_;
    Size size_;
    const Breath& breath_;
    const std::optional<std::string> none_;
    const Thumbnail noThumbnail_;
    mutable std::optional<Thumbnail> thumbnail_;
};

} // namespace

std::shared_ptr<const EncodedImage> prepareImage(const EncodedPicture& picture, const FingerprintRule& rule,
                                                 const Breath& breath)
{
    const auto shape = PictureDecoder::shapeOf(*picture.bytes);
    if (!shape)
        return nullptr;
    const ImageInPreparation image(picture, *shape, breath);
    std::optional<std::string> fingerprint;
    if (rule)
        fingerprint = rule(image);
    else
        image.decode(nullptr);
    if (!image.decodedThumbnail())
        return nullptr;
    return std::make_shared<const EncodedImage>(picture, image.size(), *image.decodedThumbnail(),
                                                std::move(fingerprint));
}

} // namespace tessel
