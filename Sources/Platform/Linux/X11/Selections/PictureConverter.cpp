#include "X11/Selections/PictureConverter.h"

#include <algorithm>
#include <bit>
#include <cstring>
#include <optional>

#include <QImage>
#include <QImageWriter>

#include "X11/Selections/PictureDecoder.h"
#include "X11/Selections/ToolkitSilence.h"
#include "X11/Selections/WholeImage.h"

namespace tessel {

namespace {

struct Form {
    std::string_view mimeType;
    const char* writerFormat;
    /// As `QImageWriter::setQuality` takes it. For PNG: how little to compress; a paste is waited for, so
    /// fast goes first.
    int quality;
    bool hasAlpha;
    bool isCompressed;
};

constexpr Form forms[] = {
    {"image/png", "png", 85, true, true},
    {"image/tiff", "tiff", -1, true, false},
    {"image/bmp", "bmp", -1, false, false},
    {"image/jpeg", "jpeg", 92, false, true},
};

/// Collects the rows in a picture of the toolkit, without transparency where the form has none.
class ImageCollector final : public PictureRowSink {
public:
    explicit ImageCollector(const Form& form)
        : form_(form)
    {}

    bool begin(const PictureShape& shape) override
    {
        shape_ = shape;
        const bool isDeep = shape.bytesPerSample == 2 && form_.hasAlpha;
        if (shape.width * std::uint64_t{shape.height} * (isDeep ? 8 : 4) > PictureDecoder::mostWholeBytes)
            return false;
        // What the encoders take as it is; of anything else they make a copy.
        const auto format = isDeep           ? QImage::Format_RGBA64
                            : form_.hasAlpha ? QImage::Format_RGBA8888
                                             : QImage::Format_RGB32;
        *image_ = QImage(static_cast<int>(shape.width), static_cast<int>(shape.height), format);
        return !image_->isNull();
    }

    bool row(std::span<const std::byte> pixels) override
    {
        auto* destination = reinterpret_cast<std::byte*>(image_->scanLine(rowNumber_++));
        if (form_.hasAlpha)
            std::ranges::copy(pixels, destination);
        else
            copyOverWhite(pixels, destination);
        if (form_.hasAlpha && shape_.bytesPerSample == 2)
            exchangeByteOrder({destination, pixels.size()});
        return true;
    }

    const QImage& image() const { return *image_; }

private:
    void copyOverWhite(std::span<const std::byte> pixels, std::byte* destination) const
    {
        constexpr std::uint32_t opaque = 255;
        const std::size_t step = shape_.bytesPerSample;
        for (std::size_t column = 0; column < shape_.width; ++column) {
            const std::byte* pixel = pixels.data() + column * shape_.bytesPerPixel();
            const auto alpha = std::to_integer<std::uint32_t>(pixel[3 * step]);
            const auto overWhite = [&](std::size_t sample) {
                const auto colour = std::to_integer<std::uint32_t>(pixel[sample * step]);
                return static_cast<int>((colour * alpha + opaque * (opaque - alpha) + opaque / 2) / opaque);
            };
            const QRgb colour = qRgb(overWhite(0), overWhite(1), overWhite(2));
            std::memcpy(destination + column * sizeof colour, &colour, sizeof colour);
        }
    }

    const Form& form_;
    PictureShape shape_;
    int rowNumber_ = 0;
    WholeImage image_{QImage()};
};

/// Where the toolkit's encoders write to. Seekable, because the TIFF encoder goes back to mend its directory.
class BreathingOutput final : public QIODevice {
public:
    /// Room that is never written to costs no memory; growing would cost a copy.
    BreathingOutput(const Breath& breath, std::size_t expectedBytes)
        : breath_(breath)
    {
        bytes_.reserve(expectedBytes);
        open(QIODevice::ReadWrite | QIODevice::Unbuffered);
    }
    bool isSequential() const override { return false; }
    qint64 size() const override { return static_cast<qint64>(bytes_.size()); }
    std::string takeBytes() { return std::move(bytes_); }
    bool isStopped() const { return isStopped_; }

protected:
    qint64 readData(char* destination, qint64 length) override
    {
        const auto position = static_cast<std::size_t>(pos());
        if (position >= bytes_.size() || length <= 0)
            return 0;
        const std::size_t count = std::min(static_cast<std::size_t>(length), bytes_.size() - position);
        std::memcpy(destination, bytes_.data() + position, count);
        return static_cast<qint64>(count);
    }
    qint64 writeData(const char* source, qint64 length) override
    {
        const auto position = static_cast<std::size_t>(pos());
        const auto count = static_cast<std::size_t>(length);
        bytesSinceBreath_ += count;
        if (bytesSinceBreath_ >= bytesBetweenBreaths && breath_) {
            bytesSinceBreath_ = 0;
            isStopped_ = isStopped_ || !breath_();
        }
        if (isStopped_)
            return -1;
        if (position + count > bytes_.size())
            bytes_.resize(position + count);
        std::memcpy(bytes_.data() + position, source, count);
        return length;
    }

private:
    const Breath& breath_;
    std::string bytes_;
    std::size_t bytesSinceBreath_ = 0;
    bool isStopped_ = false;
};

SharedBytes encode(const QImage& image, const Form& form, const Breath& breath)
{
    const ToolkitSilence silence;
    constexpr std::size_t frameBytes = std::size_t{1} << 20; // Of headers and directories.
    BreathingOutput output(
        breath, form.isCompressed ? 0 : static_cast<std::size_t>(image.sizeInBytes()) + frameBytes);
    QImageWriter writer(&output, form.writerFormat);
    if (form.quality >= 0)
        writer.setQuality(form.quality);
    if (!writer.write(image) || output.isStopped())
        return nullptr;
    return std::make_shared<const std::string>(output.takeBytes());
}

SharedBytes encodeItself(const PlatformImage& image)
{
    const auto tiff = image.tiffRepresentation();
    const auto bitmap = tiff ? tiff->makeBitmap() : nullptr;
    std::string bytes;
    const ByteSink collect = [&](std::span<const std::byte> piece) {
        bytes.append(reinterpret_cast<const char*>(piece.data()), piece.size());
    };
    if (!bitmap || !bitmap->writePNG(collect))
        return nullptr;
    return std::make_shared<const std::string>(std::move(bytes));
}

} // namespace

SharedBytes convertPicture(const SelectionValue& value, std::string_view mimeType, const Breath& breath)
{
    const auto form = std::ranges::find(forms, mimeType, &Form::mimeType);
    if (form == std::end(forms))
        return nullptr;
    if (!value.picture.bytes)
        return value.foreignImage ? encodeItself(*value.foreignImage) : nullptr;
    ImageCollector collector(*form);
    if (!PictureDecoder::decode(*value.picture.bytes, collector, breath))
        return nullptr;
    return encode(collector.image(), *form, breath);
}

} // namespace tessel
