#include <cstring>

#include <gtest/gtest.h>

#include <QImageReader>

#include "TestPictures.h"
#include "X11/Selections/ImagePreparation.h"
#include "X11/Selections/PictureConverter.h"
#include "X11/Selections/PictureDecoder.h"
#include "X11/Selections/StoredPNGEncoder.h"
#include "X11/Selections/ThumbnailBuilder.h"

namespace tessel {
namespace {

EncodedPicture picture(std::string bytes)
{
    return {std::make_shared<const std::string>(std::move(bytes)), "image/anything"};
}

std::shared_ptr<const EncodedImage> prepared(std::string bytes)
{
    return prepareImage(picture(std::move(bytes)), sha256OfPNG, Breath());
}

std::string fingerprint(std::string bytes)
{
    const auto image = prepared(std::move(bytes));
    return image ? image->preparedFingerprint().value_or("(none)") : "(no image)";
}

std::string canonicalPNG(const PlatformImage& image)
{
    std::string bytes;
    EXPECT_TRUE(image.tiffRepresentation()->makeBitmap()->writePNG([&](std::span<const std::byte> piece) {
        bytes.append(reinterpret_cast<const char*>(piece.data()), piece.size());
    }));
    return bytes;
}

/// Replaces the width and height that a PNG claims, with a right checksum.
std::string withClaimedSize(std::string png, std::uint32_t width, std::uint32_t height)
{
    const auto put = [&](std::size_t at, std::uint32_t value) {
        for (int byte = 0; byte < 4; ++byte)
            png[at + static_cast<std::size_t>(byte)] = static_cast<char>(value >> (24 - 8 * byte));
    };
    put(16, width);
    put(20, height);
    std::uint32_t checksum = 0xFFFFFFFF;
    for (std::size_t index = 12; index < 29; ++index) {
        checksum ^= static_cast<std::uint8_t>(png[index]);
        for (int bit = 0; bit < 8; ++bit)
            checksum = (checksum >> 1) ^ (checksum & 1 ? 0xEDB88320 : 0);
    }
    put(29, ~checksum);
    return png;
}

TEST(Pictures, EqualPixelsHaveOneFingerprintWhateverTheirForm)
{
    const QImage opaque = testImage(90, 70, QImage::Format_RGB888);
    const std::string expected = fingerprint(encodedImage(opaque, "png"));
    EXPECT_EQ(expected.size(), 70U);
    EXPECT_EQ(fingerprint(encodedImage(opaque, "png", 100)), expected) << "compressed otherwise";
    EXPECT_EQ(fingerprint(encodedImage(opaque.convertToFormat(QImage::Format_RGBA8888), "png")), expected);
    EXPECT_EQ(fingerprint(interlacedPNG(opaque)), expected);
    EXPECT_EQ(fingerprint(encodedImage(opaque, "bmp")), expected);
    EXPECT_EQ(fingerprint(encodedImage(opaque, "tiff")), expected);
    EXPECT_EQ(fingerprint(encodedImage(opaque, "webp", 100)), expected);
}

TEST(Pictures, PalettesAndGreysAreTheColoursThatTheyStandFor)
{
    const QImage grey = testImage(64, 64).convertToFormat(QImage::Format_Grayscale8);
    EXPECT_EQ(fingerprint(encodedImage(grey, "png")),
              fingerprint(encodedImage(grey.convertToFormat(QImage::Format_RGB888), "png")));
    const QImage palette = testImage(64, 64).convertToFormat(QImage::Format_Indexed8);
    EXPECT_EQ(fingerprint(encodedImage(palette, "png")),
              fingerprint(encodedImage(palette.convertToFormat(QImage::Format_RGBA8888), "png")));
    const QImage mono = grey.convertToFormat(QImage::Format_Mono);
    EXPECT_EQ(fingerprint(encodedImage(mono, "png")),
              fingerprint(encodedImage(mono.convertToFormat(QImage::Format_RGB888), "png")));
    EXPECT_EQ(fingerprint(encodedImage(mono, "png")), fingerprint(encodedImage(mono, "bmp")));
}

TEST(Pictures, DifferentPixelsHaveDifferentFingerprints)
{
    QImage image = testImage(90, 70, QImage::Format_RGB888);
    const std::string before = fingerprint(encodedImage(image, "png"));
    image.setPixelColor(89, 69, Qt::white);
    EXPECT_NE(fingerprint(encodedImage(image, "png")), before);
}

TEST(Pictures, SixteenBitSamplesAreKept)
{
    const QImage deep = testImage(50, 40, QImage::Format_RGBA64);
    const auto image = prepared(encodedImage(deep, "png"));
    ASSERT_TRUE(image);
    QImage decoded;
    const std::string png = canonicalPNG(*image);
    ASSERT_TRUE(decoded.loadFromData(reinterpret_cast<const uchar*>(png.data()), static_cast<int>(png.size()),
                                     "png"));
    EXPECT_EQ(decoded.convertToFormat(QImage::Format_RGBA64), deep);
    EXPECT_EQ(fingerprint(encodedImage(deep, "png")), fingerprint(interlacedPNG(deep)));
    EXPECT_EQ(fingerprint(encodedImage(deep, "png")), fingerprint(encodedImage(deep, "tiff")));
}

TEST(Pictures, TheCanonicalPNGHoldsThePixelsUncompressed)
{
    const QImage source = testImage(33, 21);
    const auto image = prepared(encodedImage(source, "png"));
    ASSERT_TRUE(image);
    const std::string png = canonicalPNG(*image);
    EXPECT_GE(png.size(), 33U * 21U * 4U);
    QImage decoded;
    ASSERT_TRUE(decoded.loadFromData(reinterpret_cast<const uchar*>(png.data()), static_cast<int>(png.size()),
                                     "png"));
    EXPECT_EQ(decoded.convertToFormat(QImage::Format_RGBA8888), source);
    EXPECT_EQ(canonicalPNG(*prepared(png)), png) << "it is not its own canonical form";
}

TEST(Pictures, TheBytesAreKeptAsTheyCame)
{
    const std::string bytes = encodedImage(testImage(20, 10), "png");
    const auto image = prepared(bytes);
    ASSERT_TRUE(image);
    EXPECT_EQ(*image->picture().bytes, bytes);
    EXPECT_EQ(image->size(), (Size{20, 10}));
}

TEST(Pictures, BrokenOnesAreNoImages)
{
    const std::string png = encodedImage(testImage(200, 200), "png");
    EXPECT_FALSE(prepared(""));
    EXPECT_FALSE(prepared("neither a picture nor anything"));
    for (const std::size_t length :
         {std::size_t{4}, std::size_t{8}, std::size_t{20}, std::size_t{40}, png.size() / 2, png.size() - 16})
        EXPECT_FALSE(prepared(png.substr(0, length))) << length << " bytes of " << png.size();
    std::string damaged = png;
    damaged[damaged.size() / 2] = static_cast<char>(~damaged[damaged.size() / 2]);
    EXPECT_FALSE(prepared(damaged));
    for (const char* format : {"jpeg", "bmp", "tiff", "webp"}) {
        const std::string whole = encodedImage(testImage(200, 200, QImage::Format_RGB888), format);
        EXPECT_TRUE(prepared(whole)) << format;
        EXPECT_FALSE(prepared(whole.substr(0, whole.size() / 2))) << format;
        EXPECT_FALSE(prepared(whole.substr(0, 20))) << format;
    }
}

TEST(Pictures, NoDamageDoesMoreThanCostThePicture)
{
    // Whatever byte is wrong, decoding ends, and well.
    for (const char* format : {"png", "jpeg", "bmp", "tiff", "webp"}) {
        const std::string whole = encodedImage(testImage(24, 24, QImage::Format_RGB888), format);
        for (std::size_t index = 0; index < std::min<std::size_t>(whole.size(), 400); ++index) {
            std::string damaged = whole;
            damaged[index] = static_cast<char>(damaged[index] ^ 0x55);
            prepared(std::move(damaged));
        }
    }
}

TEST(Pictures, DecompressionBombsAreRefusedBeforeTheyAreDecoded)
{
    const std::string png = encodedImage(testImage(100, 100), "png");
    EXPECT_FALSE(prepared(withClaimedSize(png, 60000, 60000)));
    EXPECT_FALSE(prepared(withClaimedSize(png, 0x7FFFFFFF, 0x7FFFFFFF)));
    EXPECT_FALSE(prepared(withClaimedSize(png, 0, 100)));
    EXPECT_FALSE(prepared(withClaimedSize(png, 100, 101))) << "one row more than there is";
    EXPECT_FALSE(PictureDecoder::shapeOf(withClaimedSize(png, 60000, 60000)));
    EXPECT_TRUE(PictureDecoder::shapeOf(withClaimedSize(png, 7680, 4320)));
}

TEST(Pictures, LongWorkTakesBreathsAndCanBeStopped)
{
    for (const char* format : {"png", "jpeg", "bmp", "tiff"}) {
        const EncodedPicture large =
            picture(encodedImage(testImage(1200, 1200, QImage::Format_RGB888), format));
        int breaths = 0;
        EXPECT_TRUE(prepareImage(large, sha256OfPNG, [&] { return ++breaths > 0; })) << format;
        EXPECT_GE(breaths, 5) << format;
        EXPECT_FALSE(prepareImage(large, sha256OfPNG, [&] { return false; })) << format;
        int left = 3;
        EXPECT_FALSE(prepareImage(large, sha256OfPNG, [&] { return --left > 0; })) << format;
        EXPECT_EQ(left, 0) << format << ": it went on after having been stopped";
    }
}

TEST(Pictures, AnImageWithoutARuleHasItsThumbnailAllTheSame)
{
    const auto image = prepareImage(picture(encodedImage(testImage(20, 10), "png")), {}, Breath());
    ASSERT_TRUE(image);
    EXPECT_FALSE(image->preparedFingerprint());
    EXPECT_EQ(image->thumbnail().pixels.size(), 64U * 64U);
}

std::vector<std::uint32_t> thumbnailOf(const QImage& source)
{
    const auto image = prepared(encodedImage(source, "png"));
    EXPECT_TRUE(image);
    return image ? image->thumbnail().pixels : std::vector<std::uint32_t>();
}

TEST(Thumbnails, OneColourStaysThatColour)
{
    for (const QSize size : {QSize(1, 1), QSize(3, 200), QSize(64, 64), QSize(1000, 77)}) {
        QImage source(size, QImage::Format_RGBA8888);
        source.fill(QColor(10, 20, 30));
        for (const std::uint32_t pixel : thumbnailOf(source))
            ASSERT_EQ(pixel, 0xFF0A141EU);
    }
}

TEST(Thumbnails, PixelsArePremultiplied)
{
    QImage source(100, 100, QImage::Format_RGBA8888);
    source.fill(QColor(255, 128, 0, 128));
    EXPECT_EQ(thumbnailOf(source).at(0), 0x80804000U);
    source.fill(QColor(255, 255, 255, 0));
    EXPECT_EQ(thumbnailOf(source).at(0), 0U);
}

TEST(Thumbnails, APictureOfItsSizeIsTakenAsItIs)
{
    const QImage source = testImage(64, 64, QImage::Format_RGB888).convertToFormat(QImage::Format_ARGB32);
    const auto pixels = thumbnailOf(source);
    for (int y = 0; y < 64; ++y) {
        for (int x = 0; x < 64; ++x)
            ASSERT_EQ(pixels.at(static_cast<std::size_t>(y * 64 + x)), source.pixel(x, y)) << x << " " << y;
    }
}

TEST(Thumbnails, TheCentreIsCutOut)
{
    QImage source(300, 100, QImage::Format_RGB888);
    source.fill(Qt::black);
    for (int y = 0; y < 100; ++y) {
        for (int x = 100; x < 200; ++x)
            source.setPixelColor(x, y, Qt::white);
    }
    for (const std::uint32_t pixel : thumbnailOf(source))
        ASSERT_EQ(pixel, 0xFFFFFFFFU);
}

TEST(Thumbnails, EachPixelIsTheMeanOfItsArea)
{
    // Two pixels of the picture to one of the thumbnail; then one and a half, where the borders do not meet.
    QImage stripes(128, 128, QImage::Format_RGB888);
    for (int y = 0; y < 128; ++y) {
        for (int x = 0; x < 128; ++x)
            stripes.setPixelColor(x, y, x % 2 == 0 ? QColor(200, 200, 200) : QColor(100, 100, 100));
    }
    EXPECT_EQ(thumbnailOf(stripes).at(0), 0xFF969696U);
    const auto uneven = thumbnailOf(stripes.copy(0, 0, 96, 96));
    EXPECT_EQ(uneven.at(0), 0xFFA7A7A7U); // (200 + 100 / 2) / 1.5
    EXPECT_EQ(uneven.at(1), 0xFFA7A7A7U); // (100 / 2 + 200) / 1.5
    EXPECT_EQ(uneven.at(2), 0xFF858585U + 0 * 0x000000U)
        << "the pattern repeats after three thumbnail pixels to four and a half";
}

TEST(Thumbnails, SixteenBitsAndEightGiveTheSame)
{
    const QImage deep = testImage(300, 200, QImage::Format_RGBA64);
    EXPECT_EQ(thumbnailOf(deep), thumbnailOf(deep.convertToFormat(QImage::Format_RGBA8888)));
}

QImage converted(const SelectionValue& value, const char* mimeType, const char* format)
{
    const SharedBytes bytes = convertPicture(value, mimeType, Breath());
    QImage image;
    EXPECT_TRUE(bytes && image.loadFromData(reinterpret_cast<const uchar*>(bytes->data()),
                                            static_cast<int>(bytes->size()), format))
        << mimeType;
    return image;
}

TEST(Conversions, FormsWithoutLossKeepEveryPixel)
{
    const QImage deep = testImage(120, 80, QImage::Format_RGBA64);
    SelectionValue value;
    value.picture = picture(encodedImage(deep, "png"));
    EXPECT_EQ(converted(value, "image/tiff", "tiff").convertToFormat(QImage::Format_RGBA64), deep);
    value.picture = picture(encodedImage(deep, "tiff"));
    EXPECT_EQ(converted(value, "image/png", "png").convertToFormat(QImage::Format_RGBA64), deep);
    const QImage opaque = testImage(120, 80, QImage::Format_RGB888);
    value.picture = picture(encodedImage(opaque, "png"));
    EXPECT_EQ(converted(value, "image/bmp", "bmp").convertToFormat(QImage::Format_RGB888), opaque);
}

TEST(Conversions, TransparencyGetsAWhiteGround)
{
    QImage source(40, 40, QImage::Format_RGBA8888);
    source.fill(QColor(255, 0, 0, 0));
    SelectionValue value;
    value.picture = picture(encodedImage(source, "png"));
    EXPECT_EQ(converted(value, "image/bmp", "bmp").pixelColor(5, 5), QColor(Qt::white));
    EXPECT_EQ(converted(value, "image/jpeg", "jpeg").pixelColor(5, 5), QColor(Qt::white));
}

TEST(Conversions, WhatIsBrokenOrUnknownOrStoppedIsNotConverted)
{
    SelectionValue value;
    value.picture = picture("broken");
    EXPECT_FALSE(convertPicture(value, "image/png", Breath()));
    value.picture = picture(encodedImage(testImage(1200, 1200), "png"));
    EXPECT_FALSE(convertPicture(value, "image/x-unknown", Breath()));
    EXPECT_FALSE(convertPicture(value, "image/bmp", [] { return false; }));
    EXPECT_FALSE(convertPicture(SelectionValue(), "image/png", Breath()));
}

} // namespace
} // namespace tessel
