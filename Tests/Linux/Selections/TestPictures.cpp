#include "TestPictures.h"

#include <cstdio>
#include <stdexcept>
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
