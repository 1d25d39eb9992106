#include "X11/Selections/WholePictureDecoder.h"

#include <algorithm>
#include <bit>
#include <vector>

#include <QImage>
#include <QImageReader>

#include "X11/Selections/BreathingBuffer.h"

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
    }
    return "";
}

/// The one decoder for what the bytes are; nothing is tried out on them.
void prepare(QImageReader& reader, QIODevice& device, Kind kind)
{
    reader.setAutoDetectImageFormat(false);
    reader.setFormat(formatName(kind));
    reader.setDevice(&device);
    reader.setAutoTransform(true); // A photograph is shown the way it was taken.
}

bool isOfDeepSamples(QImage::Format format)
{
    const QPixelFormat description = QImage::toPixelFormat(format);
    return description.bitsPerPixel() > 32 || format == QImage::Format_Grayscale16;
}

/// Whether the picture may be decoded, by what its header claims.
bool isOfBearableSize(const QImageReader& reader)
{
    const QSize size = reader.size();
    if (!size.isValid() || size.isEmpty())
        return false;
    const auto pixels = static_cast<std::uint64_t>(size.width()) * static_cast<std::uint64_t>(size.height());
    if (pixels > PictureDecoder::mostPixels)
        return false;
    const bool isDeep = isOfDeepSamples(reader.imageFormat());
    const std::uint64_t bytesPerPixel = PictureShape::samplesPerPixel * (isDeep ? 2 : 1);
    return pixels * bytesPerPixel <= PictureDecoder::mostWholeBytes;
}

/// These decoders return what they have got when the data ends too early; that is not the picture.
bool isCutOff(const BreathingBuffer& buffer, Kind kind)
{
    switch (kind) {
    case Kind::jpeg:
        return buffer.isExhausted(); // It reads in blocks, the last of which may be short.
    case Kind::bmp:
        return buffer.hasComeShort(); // It reads row by row.
    default:
        return false;
    }
}

PictureShape shapeOfImage(const QImage& image)
{
    PictureShape shape;
    shape.width = static_cast<std::uint32_t>(image.width());
    shape.height = static_cast<std::uint32_t>(image.height());
    shape.bytesPerSample = isOfDeepSamples(image.format()) ? 2 : 1;
    return shape;
}

/// The toolkit's 16-bit samples are in the machine's byte order.
void putMoreSignificantByteFirst(std::span<std::byte> samples)
{
    if constexpr (std::endian::native == std::endian::little) {
        for (std::size_t index = 0; index + 1 < samples.size(); index += 2)
            std::swap(samples[index], samples[index + 1]);
    }
}

/// Converts a band of rows at a time, so that the picture is in memory once and not twice.
bool feedRows(const QImage& image, PictureRowSink& sink, const Breath& breath)
{
    const PictureShape shape = shapeOfImage(image);
    if (!sink.begin(shape))
        return false;
    const auto format = shape.bytesPerSample == 2 ? QImage::Format_RGBA64 : QImage::Format_RGBA8888;
    const int rowsAtOnce = std::max(1, static_cast<int>(bytesBetweenBreaths / shape.bytesPerRow()));
    std::vector<std::byte> row(shape.bytesPerRow());
    for (int top = 0; top < image.height(); top += rowsAtOnce) {
        const int count = std::min(rowsAtOnce, image.height() - top);
        const QImage band = image.copy(0, top, image.width(), count).convertToFormat(format);
        for (int line = 0; line < count; ++line) {
            const auto* pixels = reinterpret_cast<const std::byte*>(band.constScanLine(line));
            std::copy_n(pixels, row.size(), row.begin());
            if (shape.bytesPerSample == 2)
                putMoreSignificantByteFirst(row);
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
    BreathingBuffer buffer(encoded, never);
    QImageReader reader;
    prepare(reader, buffer, kind);
    if (!isOfBearableSize(reader))
        return std::nullopt;
    QSize size = reader.size();
    if (reader.transformation() & QImageIOHandler::TransformationRotate90)
        size.transpose();
    PictureShape shape;
    shape.width = static_cast<std::uint32_t>(size.width());
    shape.height = static_cast<std::uint32_t>(size.height());
    shape.bytesPerSample = isOfDeepSamples(reader.imageFormat()) ? 2 : 1;
    return shape;
}

bool WholePictureDecoder::decode(std::string_view encoded, Kind kind, PictureRowSink& sink,
                                 const Breath& breath)
{
    BreathingBuffer buffer(encoded, breath);
    QImageReader reader;
    prepare(reader, buffer, kind);
    if (!isOfBearableSize(reader))
        return false;
    const QImage image = reader.read();
    if (image.isNull() || buffer.isStopped() || reader.error() != QImageReader::UnknownError)
        return false;
    if (isCutOff(buffer, kind))
        return false;
    return feedRows(image, sink, breath);
}

} // namespace tessel
