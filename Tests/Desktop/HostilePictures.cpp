#include "HostilePictures.h"

#include <array>
#include <memory>
#include <vector>

#include <QtCore/QBuffer>
#include <QtGui/QImage>
#include <QtGui/QImageWriter>
#include <png.h>
#include <zlib.h>

#include "Deadline.h"

namespace tessel::desktop {

namespace {

constexpr int channels = 3;

void fillRow(std::vector<png_byte>& row, int y, int bytesPerSample)
{
    std::uint32_t state = static_cast<std::uint32_t>(y) * 2654435761U + 1;
    for (std::size_t index = 0; index < row.size(); ++index) {
        // A ramp with a little noise, as photographs are.
        state = state * 1664525U + 1013904223U;
        const auto ramp = static_cast<std::uint32_t>(y) / 16 + static_cast<std::uint32_t>(index) / 64;
        const bool isLowByte = bytesPerSample == 2 && index % 2 == 1;
        row[index] = static_cast<png_byte>(isLowByte ? ramp * 7 : ramp + (state >> 31));
    }
}

void append(png_structp png, png_bytep bytes, std::size_t count)
{
    static_cast<std::string*>(png_get_io_ptr(png))->append(reinterpret_cast<const char*>(bytes), count);
}

QImage smallPicture()
{
    QImage image(120, 80, QImage::Format_RGB888);
    for (int y = 0; y < image.height(); ++y) {
        for (int x = 0; x < image.width(); ++x)
            image.setPixelColor(x, y, QColor(x * 2, y * 3, (x * y) % 256));
    }
    return image;
}

std::string smallPng()
{
    return encodeSmallPicture("image/png");
}

} // namespace

std::string encodeLargePng(const LargePng& description)
{
    std::string encoded;
    png_structp png = png_create_write_struct(PNG_LIBPNG_VER_STRING, nullptr, nullptr, nullptr);
    png_infop info = png_create_info_struct(png);
    png_set_write_fn(png, &encoded, &append, nullptr);
    png_set_compression_level(png, 1);
    png_set_filter(png, PNG_FILTER_TYPE_BASE, PNG_FILTER_NONE);
    png_set_IHDR(png, info, static_cast<png_uint_32>(description.width),
                 static_cast<png_uint_32>(description.height), description.bitsPerSample, PNG_COLOR_TYPE_RGB,
                 description.isInterlaced ? PNG_INTERLACE_ADAM7 : PNG_INTERLACE_NONE,
                 PNG_COMPRESSION_TYPE_DEFAULT, PNG_FILTER_TYPE_DEFAULT);
    png_write_info(png, info);
    const int bytesPerSample = description.bitsPerSample / 8;
    std::vector<png_byte> row(static_cast<std::size_t>(description.width) * channels *
                              static_cast<std::size_t>(bytesPerSample));
    for (int pass = png_set_interlace_handling(png); pass > 0; --pass) {
        for (int y = 0; y < description.height; ++y) {
            fillRow(row, y, bytesPerSample);
            png_write_row(png, row.data());
        }
    }
    png_write_end(png, info);
    png_destroy_write_struct(&png, &info);
    return encoded;
}

std::string encodeSmallPicture(const std::string& mimeType)
{
    QByteArray bytes;
    QBuffer buffer(&bytes);
    const QList<QByteArray> formats = QImageWriter::imageFormatsForMimeType(mimeType.c_str());
    if (formats.isEmpty() || !QImageWriter(&buffer, formats.front()).write(smallPicture()))
        throw DesktopFailure("there is no encoder for " + mimeType);
    return bytes.toStdString();
}

std::string claimingPng(std::uint32_t width, std::uint32_t height)
{
    // Signature 8, length 4, "IHDR" 4, width 4, height 4, five more bytes, and the checksum over type and
    // data.
    constexpr std::size_t typeOffset = 12;
    constexpr std::size_t widthOffset = 16;
    constexpr std::size_t heightOffset = 20;
    constexpr std::size_t checksumOffset = 29;
    std::string bytes = smallPng();
    const auto put = [&bytes](std::size_t offset, std::uint32_t value) {
        for (std::size_t index = 0; index < 4; ++index)
            bytes[offset + index] = static_cast<char>(value >> (24 - 8 * index) & 0xFF);
    };
    put(widthOffset, width);
    put(heightOffset, height);
    put(checksumOffset,
        static_cast<std::uint32_t>(crc32(0, reinterpret_cast<const Bytef*>(bytes.data()) + typeOffset,
                                         checksumOffset - typeOffset)));
    return bytes;
}

std::string corruptPng()
{
    std::string bytes = smallPng();
    bytes[bytes.size() / 2] = static_cast<char>(bytes[bytes.size() / 2] ^ 0x55);
    return bytes;
}

std::string truncatedPng()
{
    const std::string bytes = smallPng();
    return bytes.substr(0, bytes.size() / 2);
}

} // namespace tessel::desktop
