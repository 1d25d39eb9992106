#include "Fakes/FakeImage.h"

#include <string_view>

namespace tessel::test {

namespace {

class FakeBitmap final : public BitmapImage {
public:
    FakeBitmap(std::string_view pngBytes, ImageEncoding encoding)
        : pngBytes_(pngBytes)
        , encoding_(encoding)
    {}

    bool writePNG(const ByteSink& sink) const override
    {
        if (encoding_ == ImageEncoding::bitmapCannotBeEncoded)
            return false;
        const auto bytes = std::as_bytes(std::span(pngBytes_));
        const std::size_t half = bytes.size() / 2;
        sink(bytes.first(half));
        if (encoding_ == ImageEncoding::bitmapFailsAfterSomeOutput)
            return false;
        sink(bytes.subspan(half));
        return true;
    }

private:
    std::string pngBytes_;
    ImageEncoding encoding_;
};

class FakeTIFF final : public TIFFData {
public:
    FakeTIFF(std::string_view pngBytes, ImageEncoding encoding)
        : pngBytes_(pngBytes)
        , encoding_(encoding)
    {}

    std::unique_ptr<BitmapImage> makeBitmap() const override
    {
        if (encoding_ == ImageEncoding::tiffCannotBeDecoded)
            return nullptr;
        return std::make_unique<FakeBitmap>(pngBytes_, encoding_);
    }

private:
    std::string pngBytes_;
    ImageEncoding encoding_;
};

} // namespace

std::shared_ptr<FakeImage> FakeImage::withPNG(std::string pngBytes, Size size)
{
    return std::make_shared<FakeImage>(std::move(pngBytes), size);
}

std::shared_ptr<FakeImage> FakeImage::failing(ImageEncoding encoding, Size size)
{
    return std::make_shared<FakeImage>("partial output", size, encoding);
}

std::shared_ptr<FakeImage> FakeImage::prepared(std::string fingerprint, Size size)
{
    auto image = std::make_shared<FakeImage>("", size);
    image->preparedFingerprint_ = std::move(fingerprint);
    return image;
}

std::unique_ptr<TIFFData> FakeImage::tiffRepresentation() const
{
    ++encodings_;
    if (encoding_ == ImageEncoding::hasNoTIFF)
        return nullptr;
    return std::make_unique<FakeTIFF>(pngBytes_, encoding_);
}

} // namespace tessel::test
