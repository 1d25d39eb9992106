#include "History/ImageFingerprint.h"

#include <array>
#include <optional>
#include <string_view>

#include "Support/WholeNumber.h"

namespace tessel {

namespace {

constexpr std::string_view imagePrefix = "image:";

using SHA256Digest = std::array<std::byte, 32>;

std::optional<SHA256Digest> digestOfPNG(const PlatformImage& image, const Digest& digest)
{
    const auto tiff = image.tiffRepresentation();
    if (!tiff)
        return std::nullopt;
    const auto bitmap = tiff->makeBitmap();
    if (!bitmap)
        return std::nullopt;
    const auto hasher = digest.makeSHA256();
    if (!bitmap->writePNG([&hasher](std::span<const std::byte> bytes) { hasher->update(bytes); }))
        return std::nullopt;
    return hasher->finalize();
}

std::string lowercaseHexadecimal(const SHA256Digest& digest)
{
    constexpr std::string_view digits = "0123456789abcdef";
    std::string text;
    text.reserve(digest.size() * 2);
    for (const std::byte byte : digest) {
        const auto value = std::to_integer<unsigned>(byte);
        text += digits[value >> 4U];
        text += digits[value & 0xFU];
    }
    return text;
}

std::string sizeText(Size size)
{
    return std::to_string(truncatedToWhole(size.width)) + "x" + std::to_string(truncatedToWhole(size.height));
}

} // namespace

std::string imageFingerprint(const PlatformImage& image, const Digest& digest)
{
    const auto hash = digestOfPNG(image, digest);
    return std::string(imagePrefix) + (hash ? lowercaseHexadecimal(*hash) : sizeText(image.size()));
}

} // namespace tessel
