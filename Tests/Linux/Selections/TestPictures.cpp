#include "TestPictures.h"

#include <cstdio>
#include <stdexcept>
#include <utility>
#include <vector>

#include <QBuffer>
#include <QImageWriter>
#include <openssl/evp.h>
#include <png.h>

namespace tessel {

QImage testImage(int width, int height, QImage::Format format)
{
    QImage image(width, height, QImage::Format_RGBA64);
    for (int y = 0; y < height; ++y) {
        auto* row = reinterpret_cast<QRgba64*>(image.scanLine(y));
        for (int x = 0; x < width; ++x) {
            const auto sample = [](int value) { return static_cast<quint16>((value & 0xFF) * 257); };
            row[x] = qRgba64(sample(x * 7 + y), sample(y * 3), sample(x ^ y), sample(255 - (x + y) % 200));
        }
    }
    return image.convertToFormat(format);
}

std::string encodedImage(const QImage& image, const char* format, int quality)
{
    QByteArray bytes;
    QBuffer buffer(&bytes);
    buffer.open(QIODevice::WriteOnly);
    QImageWriter writer(&buffer, format);
    writer.setQuality(quality);
    if (!writer.write(image))
        throw std::runtime_error(std::string("cannot encode ") + format);
    return bytes.toStdString();
}

namespace {

/// Appends numbers in a byte order.
class NumberWriter {
public:
    explicit NumberWriter(TIFFOrder order)
        : order_(order)
    {}
    void put(std::uint32_t value, int bytes)
    {
        for (int index = 0; index < bytes; ++index) {
            const int shift = order_ == TIFFOrder::littleEndian ? index : bytes - 1 - index;
            text.push_back(static_cast<char>(value >> (8 * shift)));
        }
    }
    std::string text;

private:
    TIFFOrder order_;
};

/// Puts GIF codes together, the lowest bit first.
class GIFCodes {
public:
    void put(unsigned code, int bits)
    {
        pending_ |= code << pendingBits_;
        pendingBits_ += bits;
        for (; pendingBits_ >= 8; pendingBits_ -= 8, pending_ >>= 8)
            bytes_.push_back(static_cast<char>(pending_ & 0xFF));
    }
    std::string take()
    {
        put(0, (8 - pendingBits_ % 8) % 8);
        return std::exchange(bytes_, {});
    }

private:
    unsigned pending_ = 0;
    int pendingBits_ = 0;
    std::string bytes_;
};

std::string samplesOf(const QImage& image, TIFFAlpha alpha, TIFFOrder order, bool isGrey)
{
    const bool isDeep = image.depth() == 64;
    NumberWriter samples(order);
    for (int y = 0; y < image.height(); ++y) {
        for (int x = 0; x < image.width(); ++x) {
            const auto* deep = reinterpret_cast<const quint16*>(image.constScanLine(y)) + 4 * x;
            const uchar* flat = image.constScanLine(y) + 4 * x;
            for (int sample = isGrey ? 2 : 0; sample < (alpha == TIFFAlpha::none ? 3 : 4); ++sample)
                samples.put(isDeep ? deep[sample] : flat[sample], isDeep ? 2 : 1);
        }
    }
    return samples.text;
}

} // namespace

std::string baselineTIFF(const QImage& image, TIFFAlpha alpha, TIFFOrder order, bool isGrey)
{
    const std::string samples = samplesOf(image, alpha, order, isGrey);
    const std::uint32_t bits = image.depth() == 64 ? 16 : 8;
    const std::uint32_t count = (isGrey ? 1U : 3U) + (alpha == TIFFAlpha::none ? 0U : 1U);
    const auto height = static_cast<std::uint32_t>(image.height());
    constexpr std::uint32_t headerBytes = 8;
    constexpr std::uint32_t bitsAt = headerBytes;
    constexpr std::uint32_t samplesAt = bitsAt + 8;
    NumberWriter tiff(order);
    tiff.text.append(2, order == TIFFOrder::littleEndian ? 'I' : 'M');
    tiff.put(42, 2);
    tiff.put(samplesAt + static_cast<std::uint32_t>(samples.size() + samples.size() % 2), 4);
    for (int sample = 0; sample < 4; ++sample)
        tiff.put(bits, 2);
    tiff.text += samples;
    tiff.text.resize(tiff.text.size() + samples.size() % 2);
    const auto shortEntry = [&](std::uint32_t tag, std::uint32_t value) {
        tiff.put(tag, 2);
        tiff.put(3, 2);
        tiff.put(1, 4);
        tiff.put(value, 2);
        tiff.put(0, 2);
    };
    const auto longEntry = [&](std::uint32_t tag, std::uint32_t value) {
        tiff.put(tag, 2);
        tiff.put(4, 2);
        tiff.put(1, 4);
        tiff.put(value, 4);
    };
    tiff.put(alpha == TIFFAlpha::none ? 9 : 10, 2);
    shortEntry(256, static_cast<std::uint32_t>(image.width()));
    shortEntry(257, height);
    if (count <= 2) {
        tiff.put(258, 2);
        tiff.put(3, 2);
        tiff.put(count, 4);
        tiff.put(bits, 2);
        tiff.put(count == 2 ? bits : 0, 2);
    } else {
        tiff.put(258, 2);
        tiff.put(3, 2);
        tiff.put(count, 4);
        tiff.put(bitsAt, 4);
    }
    shortEntry(259, 1);
    shortEntry(262, isGrey ? 1 : 2);
    longEntry(273, samplesAt);
    shortEntry(277, count);
    shortEntry(278, height);
    longEntry(279, static_cast<std::uint32_t>(samples.size()));
    if (alpha != TIFFAlpha::none)
        shortEntry(338, static_cast<std::uint32_t>(alpha));
    tiff.put(0, 4);
    return tiff.text;
}

std::string bmpWithAlpha(const QImage& image)
{
    const QImage pixels = image.convertToFormat(QImage::Format_ARGB32);
    constexpr std::uint32_t headerBytes = 124;
    constexpr std::uint32_t pixelsAt = 14 + headerBytes;
    const auto pixelBytes = static_cast<std::uint32_t>(4 * pixels.width() * pixels.height());
    NumberWriter bmp(TIFFOrder::littleEndian);
    bmp.text = "BM";
    bmp.put(pixelsAt + pixelBytes, 4);
    bmp.put(0, 4);
    bmp.put(pixelsAt, 4);
    bmp.put(headerBytes, 4);
    bmp.put(static_cast<std::uint32_t>(pixels.width()), 4);
    bmp.put(static_cast<std::uint32_t>(pixels.height()), 4);
    bmp.put(1, 2);
    bmp.put(32, 2);
    bmp.put(3, 4); // BITFIELDS.
    bmp.put(pixelBytes, 4);
    for (int unused = 0; unused < 4; ++unused)
        bmp.put(0, 4);
    for (const std::uint32_t mask : {0x00FF0000U, 0x0000FF00U, 0x000000FFU, 0xFF000000U})
        bmp.put(mask, 4);
    bmp.put(0x73524742, 4); // "sRGB".
    bmp.text.resize(pixelsAt);
    for (int y = pixels.height(); y-- > 0;) {
        for (int x = 0; x < pixels.width(); ++x)
            bmp.put(pixels.pixel(x, y), 4);
    }
    return bmp.text;
}

std::string encodedGIF(const QImage& image)
{
    constexpr int codeBits = 7;
    constexpr unsigned clear = 1U << codeBits;
    const QImage pixels = image.convertToFormat(QImage::Format_Indexed8);
    NumberWriter gif(TIFFOrder::littleEndian);
    gif.text = "GIF89a";
    gif.put(static_cast<std::uint32_t>(pixels.width()), 2);
    gif.put(static_cast<std::uint32_t>(pixels.height()), 2);
    gif.put(0x80 | (codeBits - 1), 1);
    gif.put(0, 2);
    for (int colour = 0; colour < static_cast<int>(clear); ++colour) {
        const QRgb value = pixels.colorTable().value(colour);
        for (const int sample : {qRed(value), qGreen(value), qBlue(value)})
            gif.put(static_cast<std::uint32_t>(sample), 1);
    }
    gif.put(0x2C, 1);
    gif.put(0, 4);
    gif.put(static_cast<std::uint32_t>(pixels.width()), 2);
    gif.put(static_cast<std::uint32_t>(pixels.height()), 2);
    gif.put(0, 1);
    gif.put(codeBits, 1);
    // The code is cleared before it would grow, so that every code is one pixel.
    GIFCodes codes;
    unsigned sinceClear = clear;
    for (int y = 0; y < pixels.height(); ++y) {
        for (int x = 0; x < pixels.width(); ++x, ++sinceClear) {
            if (sinceClear >= clear - 3)
                codes.put(clear, codeBits + 1), sinceClear = 0;
            codes.put(pixels.constScanLine(y)[x], codeBits + 1);
        }
    }
    codes.put(clear + 1, codeBits + 1);
    const std::string data = codes.take();
    for (std::size_t at = 0; at < data.size(); at += 255) {
        const std::string block = data.substr(at, 255);
        gif.put(static_cast<std::uint32_t>(block.size()), 1);
        gif.text += block;
    }
    gif.put(0, 1);
    gif.put(0x3B, 1);
    return gif.text;
}

std::map<std::string, std::string> picturesOfEachFormat(int width, int height)
{
    const QImage opaque = testImage(width, height, QImage::Format_RGB888);
    std::map<std::string, std::string> pictures;
    for (const char* format : {"png", "jpeg", "bmp", "tiff", "ico", "ppm"})
        pictures[format] = encodedImage(opaque, format);
    pictures["webp"] = encodedImage(opaque, "webp", 100);
    QImage few = opaque;
    for (int y = 0; y < height; ++y) {
        for (int x = 0; x < width; ++x)
            few.setPixelColor(x, y, QColor((x + y) % 8 * 30, y % 4 * 60, x % 3 * 90));
    }
    pictures["gif"] = encodedGIF(few);
    pictures["xpm"] = encodedImage(few, "xpm");
    return pictures;
}

std::string pngChunk(const std::string& name, const std::string& content)
{
    NumberWriter chunk(TIFFOrder::bigEndian);
    chunk.put(static_cast<std::uint32_t>(content.size()), 4);
    chunk.text += name + content;
    std::uint32_t checksum = 0xFFFFFFFF;
    for (const char byte : name + content) {
        checksum ^= static_cast<std::uint8_t>(byte);
        for (int bit = 0; bit < 8; ++bit)
            checksum = (checksum >> 1) ^ (checksum & 1 ? 0xEDB88320 : 0);
    }
    chunk.put(~checksum, 4);
    return chunk.text;
}

std::string interlacedPNG(const QImage& image)
{
    const bool isDeep = image.format() == QImage::Format_RGBA64;
    const QImage pixels = image.convertToFormat(isDeep ? QImage::Format_RGBA64 : QImage::Format_RGBA8888);
    png_structp png = png_create_write_struct(PNG_LIBPNG_VER_STRING, nullptr, nullptr, nullptr);
    png_infop info = png_create_info_struct(png);
    std::string bytes;
    png_set_write_fn(
        png, &bytes,
        [](png_structp self, png_bytep piece, png_size_t count) {
            static_cast<std::string*>(png_get_io_ptr(self))
                ->append(reinterpret_cast<const char*>(piece), count);
        },
        [](png_structp) {});
    png_set_IHDR(png, info, static_cast<png_uint_32>(pixels.width()),
                 static_cast<png_uint_32>(pixels.height()), isDeep ? 16 : 8, PNG_COLOR_TYPE_RGB_ALPHA,
                 PNG_INTERLACE_ADAM7, PNG_COMPRESSION_TYPE_DEFAULT, PNG_FILTER_TYPE_DEFAULT);
    png_set_compression_level(png, 1);
    png_write_info(png, info);
    if (isDeep)
        png_set_swap(png);
    std::vector<png_bytep> rows;
    for (int y = 0; y < pixels.height(); ++y)
        rows.push_back(const_cast<png_bytep>(pixels.constScanLine(y)));
    png_write_image(png, rows.data());
    png_write_end(png, nullptr);
    png_destroy_write_struct(&png, &info);
    return bytes;
}

std::string sha256OfPNG(const PlatformImage& image)
{
    const auto tiff = image.tiffRepresentation();
    const auto bitmap = tiff ? tiff->makeBitmap() : nullptr;
    EVP_MD_CTX* context = EVP_MD_CTX_new();
    EVP_DigestInit_ex(context, EVP_sha256(), nullptr);
    const bool isEncoded = bitmap && bitmap->writePNG([&](std::span<const std::byte> bytes) {
        EVP_DigestUpdate(context, bytes.data(), bytes.size());
    });
    std::vector<unsigned char> digest(32);
    EVP_DigestFinal_ex(context, digest.data(), nullptr);
    EVP_MD_CTX_free(context);
    if (!isEncoded)
        return "image:cannot be encoded";
    std::string text = "image:";
    for (const unsigned char byte : digest) {
        char digits[3];
        std::snprintf(digits, sizeof digits, "%02x", byte);
        text += digits;
    }
    return text;
}

} // namespace tessel
