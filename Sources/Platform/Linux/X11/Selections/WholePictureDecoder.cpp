#include "X11/Selections/WholePictureDecoder.h"

#include <algorithm>
#include <array>
#include <bit>
#include <cstring>
#include <limits>
#include <vector>

#include <QImage>
#include <QImageReader>
#include <QTransform>

#include "X11/Selections/BreathingBuffer.h"
#include "X11/Selections/TIFFDirectory.h"
#include "X11/Selections/TIFFLibrary.h"
#include "X11/Selections/ToolkitSilence.h"
#include "X11/Selections/WholeImage.h"

namespace tessel {

namespace {

using PictureDecoder::Kind;

const char* formatName(Kind kind)
{
    switch (kind) {
    case Kind::png:
        return "png";
    case Kind::jpeg:
        return "jpeg";
    case Kind::bmp:
        return "bmp";
    case Kind::tiff:
        return "tiff";
    case Kind::webp:
        return "webp";
    case Kind::gif:
        return "gif";
    case Kind::ico:
        return "ico";
    case Kind::xpm:
        return "xpm";
    case Kind::ppm:
        return "ppm";
    }
    return "";
}

bool isOfDeepSamples(QImage::Format format)
{
    const QPixelFormat description = QImage::toPixelFormat(format);
    return description.bitsPerPixel() > 32 || format == QImage::Format_Grayscale16;
}

/// Whether a picture of this size may be decoded.
bool isBearable(std::uint64_t width, std::uint64_t height, std::uint64_t bytesPerPixel)
{
    constexpr std::uint64_t longestSide = 1 << 24; // The products below stay whole.
    if (width == 0 || height == 0 || width > longestSide || height > longestSide)
        return false;
    const std::uint64_t pixels = width * height;
    return pixels <= PictureDecoder::mostPixels && pixels * bytesPerPixel <= PictureDecoder::mostWholeBytes;
}

/// Whether a TIFF may be decoded, by what its directory claims. Its decoder believes in tiles that are larger
/// than the picture, and in any number of samples, and makes room for them.
bool isBearable(const TIFFDirectory& directory)
{
    constexpr std::uint64_t mostSamples = 32;
    constexpr std::uint64_t mostBits = 64;
    if (directory.samplesPerPixel > mostSamples || directory.bitsPerSample > mostBits)
        return false;
    const std::uint64_t bytesPerPixel = (directory.samplesPerPixel * directory.bitsPerSample + 7) / 8;
    if (!isBearable(directory.width, directory.height, bytesPerPixel))
        return false;
    const bool isTiled = directory.tileWidth > 0 || directory.tileHeight > 0;
    constexpr std::uint64_t tilesOfWhole = 4; // A tile is in memory beside the picture.
    return !isTiled || isBearable(directory.tileWidth, directory.tileHeight, tilesOfWhole * bytesPerPixel);
}

/// How many scans there seem to be in a JPEG (ITU-T T.81, annex G). Inside a scan the marker cannot occur; a
/// preview beside the picture counts as well.
std::uint64_t scansOf(std::string_view jpeg)
{
    constexpr std::string_view startOfScan = "\xFF\xDA";
    std::uint64_t scans = 0;
    for (std::size_t at = jpeg.find(startOfScan); at != std::string_view::npos;
         at = jpeg.find(startOfScan, at + startOfScan.size()))
        ++scans;
    return scans;
}

/// Each scan of a progressive JPEG goes over the whole picture, in a few bytes, and its decoder keeps six
/// bytes for each pixel meanwhile.
bool hasBearableScans(std::string_view jpeg, std::uint64_t pixels)
{
    constexpr std::uint64_t mostScansOfOthers = 3; // The picture, and previews.
    constexpr std::uint64_t mostPixels = std::uint64_t{7680} * 4320;
    constexpr std::uint64_t mostVisits = 20 * mostPixels; // Encoders make about 10 scans.
    const std::uint64_t scans = scansOf(jpeg);
    return scans <= mostScansOfOthers || (pixels <= mostPixels && scans * pixels <= mostVisits);
}

/// One picture that is read by the one decoder for what its bytes are; nothing else is tried out on them.
class Reading {
public:
    Reading(std::string_view encoded, Kind kind, const Breath& breath)
        : encoded_(encoded)
        , kind_(kind)
        , buffer_(encoded, breath)
    {
        reader_.setAutoDetectImageFormat(false);
        reader_.setFormat(formatName(kind));
        reader_.setDevice(&buffer_);
    }

    /// None: it may not be decoded, by what its header claims.
    std::optional<PictureShape> shape()
    {
        if (kind_ == Kind::tiff && !prepareTIFF())
            return std::nullopt;
        QSize size = reader_.size();
        if (!size.isValid())
            return std::nullopt;
        const auto pixels =
            static_cast<std::uint64_t>(size.width()) * static_cast<std::uint64_t>(size.height());
        if (kind_ == Kind::jpeg && !hasBearableScans(encoded_, pixels))
            return std::nullopt;
        PictureShape shape;
        shape.bytesPerSample = isOfDeepSamples(reader_.imageFormat()) ? 2 : 1;
        if (!isBearable(static_cast<std::uint64_t>(size.width()), static_cast<std::uint64_t>(size.height()),
                        shape.bytesPerPixel()))
            return std::nullopt;
        transformation_ = reader_.transformation();
        if (transformation_ & QImageIOHandler::TransformationRotate90)
            size.transpose();
        shape.width = static_cast<std::uint32_t>(size.width());
        shape.height = static_cast<std::uint32_t>(size.height());
        return shape;
    }

    /// After `shape`. Null: it is broken or cut off, or the breath has stopped it.
    QImage read()
    {
        buffer_.forgetReads();
        WholeImage image(reader_.read());
        if (buffer_.isStopped() || reader_.error() != QImageReader::UnknownError || isCutOff())
            return {};
        if (formatWithAlpha_ && image->format() == QImage::Format_RGB32)
            image->reinterpretAsFormat(*formatWithAlpha_);
        return upright(*image);
    }

private:
    /// A photograph is shown the way it was taken (Exif 2.3, orientation). The toolkit would do the same, but
    /// free what it has turned at once.
    QImage upright(const QImage& image) const
    {
        const bool isMirrored = transformation_ & QImageIOHandler::TransformationMirror;
        const bool isFlipped = transformation_ & QImageIOHandler::TransformationFlip;
        const WholeImage turned(isMirrored || isFlipped ? image.mirrored(isMirrored, isFlipped) : image);
        constexpr qreal quarterTurn = 90;
        return transformation_ & QImageIOHandler::TransformationRotate90
                   ? turned->transformed(QTransform().rotate(quarterTurn))
                   : *turned;
    }

    bool prepareTIFF()
    {
        const auto directory = TIFFDirectory::firstOf(encoded_);
        if (!directory || !isBearable(*directory))
            return false;
        TIFFLibrary::silence();
        using Alpha = TIFFDirectory::Alpha;
        constexpr std::uint64_t greyAndAlpha = 2;
        // The decoder keeps the alpha of grey pixels, but says that there is none.
        if (directory->samplesPerPixel == greyAndAlpha && directory->alpha == Alpha::unassociated)
            formatWithAlpha_ = QImage::Format_ARGB32;
        else if (directory->samplesPerPixel == greyAndAlpha && directory->alpha == Alpha::associated)
            formatWithAlpha_ = QImage::Format_ARGB32_Premultiplied;
        // It multiplies 8-bit colours with an alpha that is called unassociated, and what is lost then does
        // not come back. It leaves them alone when it does not know what the alpha is.
        else if (directory->alpha == Alpha::unassociated)
            buffer_.replace(directory->alphaOffset, static_cast<char>(Alpha::unspecified));
        return true;
    }

    /// These decoders return what they have got when the data ends too early; that is not the picture.
    bool isCutOff() const
    {
        switch (kind_) {
        case Kind::jpeg:
        case Kind::gif:
            return buffer_.isExhausted(); // They read in blocks, the last of which may be short.
        case Kind::bmp:
            return buffer_.hasComeShort(); // It reads row by row.
        default:
            return false;
        }
    }

    ToolkitSilence silence_;
    std::string_view encoded_;
    Kind kind_;
    BreathingBuffer buffer_;
    QImageReader reader_;
    QImageIOHandler::Transformations transformation_ = QImageIOHandler::TransformationNone;
    std::optional<QImage::Format> formatWithAlpha_; ///< What the decoder does not say.
};

PictureShape shapeOfImage(const QImage& image)
{
    PictureShape shape;
    shape.width = static_cast<std::uint32_t>(image.width());
    shape.height = static_cast<std::uint32_t>(image.height());
    shape.bytesPerSample = isOfDeepSamples(image.format()) ? 2 : 1;
    return shape;
}

/// Null: it may not be decoded, it is broken, or the breath has stopped it. The decoder ends before the image
/// is used, because some keep a share of it.
QImage readWhole(std::string_view encoded, Kind kind, const Breath& breath)
{
    Reading reading(encoded, kind, breath);
    const auto shape = reading.shape();
    if (!shape)
        return {};
    QImage image = reading.read();
    // An icon can hold a PNG of another size than it says.
    const PictureShape seen = shapeOfImage(image);
    return seen.width == shape->width && seen.height == shape->height ? image : QImage();
}

/// The colours of a row as they were before they were multiplied with its alpha: each the nearest of those
/// that can have been there. The toolkit's own division is only close, and not the same on every processor.
template <class Sample>
void divideByAlpha(std::span<std::byte> row)
{
    constexpr std::uint64_t opaque = std::numeric_limits<Sample>::max();
    std::array<Sample, PictureShape::samplesPerPixel> pixel = {};
    for (std::size_t at = 0; at + sizeof pixel <= row.size(); at += sizeof pixel) {
        std::memcpy(pixel.data(), row.data() + at, sizeof pixel);
        const std::uint64_t alpha = pixel[3];
        for (std::size_t sample = 0; sample < 3; ++sample) {
            const std::uint64_t straight = alpha == 0 ? 0 : (pixel[sample] * opaque + alpha / 2) / alpha;
            pixel[sample] = static_cast<Sample>(std::min(straight, opaque));
        }
        std::memcpy(row.data() + at, pixel.data(), sizeof pixel);
    }
}

/// The form with the same samples in the order of a row.
QImage::Format rowFormat(bool isDeep, bool isPremultiplied)
{
    if (isDeep)
        return isPremultiplied ? QImage::Format_RGBA64_Premultiplied : QImage::Format_RGBA64;
    return isPremultiplied ? QImage::Format_RGBA8888_Premultiplied : QImage::Format_RGBA8888;
}

/// Converts a band of rows at a time, so that the picture is in memory once and not twice.
bool feedRows(const QImage& image, PictureRowSink& sink, const Breath& breath)
{
    const PictureShape shape = shapeOfImage(image);
    if (!sink.begin(shape))
        return false;
    const bool isDeep = shape.bytesPerSample == 2;
    const bool isPremultiplied =
        QImage::toPixelFormat(image.format()).premultiplied() == QPixelFormat::Premultiplied;
    const int rowsAtOnce = std::max(1, static_cast<int>(bytesBetweenBreaths / shape.bytesPerRow()));
    std::vector<std::byte> row(shape.bytesPerRow());
    for (int top = 0; top < image.height(); top += rowsAtOnce) {
        const int count = std::min(rowsAtOnce, image.height() - top);
        const QImage band =
            image.copy(0, top, image.width(), count).convertToFormat(rowFormat(isDeep, isPremultiplied));
        for (int line = 0; line < count; ++line) {
            const auto* pixels = reinterpret_cast<const std::byte*>(band.constScanLine(line));
            std::copy_n(pixels, row.size(), row.begin());
            if (isPremultiplied && isDeep)
                divideByAlpha<std::uint16_t>(row);
            else if (isPremultiplied)
                divideByAlpha<std::uint8_t>(row);
            if (isDeep)
                exchangeByteOrder(row);
            if (!sink.row(row))
                return false;
        }
        if (breath && !breath())
            return false;
    }
    return true;
}

} // namespace

std::optional<PictureShape> WholePictureDecoder::shapeOf(std::string_view encoded, Kind kind)
{
    const Breath never;
    return Reading(encoded, kind, never).shape();
}

bool WholePictureDecoder::decode(std::string_view encoded, Kind kind, PictureRowSink& sink,
                                 const Breath& breath)
{
    const WholeImage image(readWhole(encoded, kind, breath));
    return !image->isNull() && feedRows(*image, sink, breath);
}

} // namespace tessel
