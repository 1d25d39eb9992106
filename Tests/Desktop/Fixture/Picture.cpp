#include "Picture.h"

#include <png.h>

#include <fstream>

#include "Deadline.h"

namespace tessel::desktop {

namespace {

png_image describe(int width, int height)
{
    png_image image{};
    image.version = PNG_IMAGE_VERSION;
    image.width = static_cast<png_uint_32>(width);
    image.height = static_cast<png_uint_32>(height);
    image.format = PNG_FORMAT_RGB;
    return image;
}

} // namespace

Picture makeTestPicture(int width, int height, std::uint32_t seed)
{
    Picture picture{width, height, {}};
    picture.pixels.reserve(static_cast<std::size_t>(width) * static_cast<std::size_t>(height));
    std::uint32_t state = seed * 2654435761U + 1;
    for (int y = 0; y < height; ++y) {
        for (int x = 0; x < width; ++x) {
            // A smooth ramp with a little noise, as photographs and screenshots are.
            state = state * 1664525U + 1013904223U;
            const auto noise = static_cast<std::uint8_t>(state >> 29);
            const auto red = static_cast<std::uint8_t>(x * 255 / width ^ noise);
            const auto green = static_cast<std::uint8_t>(y * 255 / height ^ noise);
            const auto blue = static_cast<std::uint8_t>((x + y) * 2 + static_cast<int>(seed));
            picture.pixels.push_back({red, green, blue});
        }
    }
    return picture;
}

std::string encodePng(const Picture& picture)
{
    auto image = describe(picture.width, picture.height);
    png_alloc_size_t size = 0;
    constexpr int keepEightBits = 0;
    constexpr png_int_32 usualStride = 0;
    if (!png_image_write_get_memory_size(image, size, keepEightBits, picture.pixels.data(), usualStride,
                                         nullptr))
        throw DesktopFailure("cannot encode a picture");
    std::string bytes(size, '\0');
    if (!png_image_write_to_memory(&image, bytes.data(), &size, keepEightBits, picture.pixels.data(),
                                   usualStride, nullptr))
        throw DesktopFailure("cannot encode a picture");
    bytes.resize(size);
    return bytes;
}

Picture decodePng(const std::string& bytes)
{
    auto image = describe(0, 0);
    if (!png_image_begin_read_from_memory(&image, bytes.data(), bytes.size()))
        throw DesktopFailure(std::string("not a PNG picture: ") + image.message);
    image.format = PNG_FORMAT_RGB;
    Picture picture{static_cast<int>(image.width), static_cast<int>(image.height), {}};
    picture.pixels.resize(std::size_t{image.width} * image.height);
    if (!png_image_finish_read(&image, nullptr, picture.pixels.data(), 0, nullptr))
        throw DesktopFailure(std::string("a damaged PNG picture: ") + image.message);
    return picture;
}

void writePng(const Picture& picture, const std::filesystem::path& file)
{
    std::ofstream stream(file, std::ios::binary);
    stream << encodePng(picture);
    if (!stream.flush())
        throw DesktopFailure("cannot write " + file.string());
}

} // namespace tessel::desktop
