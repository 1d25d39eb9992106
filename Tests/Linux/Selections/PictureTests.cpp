#include <cstring>

#include <gtest/gtest.h>

#include <set>

#include <QBuffer>
#include <QImageReader>

#include <malloc.h>

#include "FakeDisplay.h"
#include "PeakMemory.h"
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

/// As the program does it, before anything is decoded.
class PreparedToolkit : public ::testing::Environment {
    void SetUp() override { PictureDecoder::prepareToolkit(); }
};
const auto* const preparedToolkit = ::testing::AddGlobalTestEnvironment(new PreparedToolkit);

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
    std::string header = png.substr(16, 13);
    const auto put = [&](std::size_t at, std::uint32_t value) {
        for (int byte = 0; byte < 4; ++byte)
            header[at + static_cast<std::size_t>(byte)] = static_cast<char>(value >> (24 - 8 * byte));
    };
    put(0, width);
    put(4, height);
    return png.replace(8, 25, pngChunk("IHDR", header));
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

TEST(Pictures, TheAlphaOfATIFFIsThatOfThePNG)
{
    // Every alpha with every colour.
    QImage image(256, 256, QImage::Format_RGBA8888);
    for (int y = 0; y < 256; ++y) {
        for (int x = 0; x < 256; ++x)
            image.setPixelColor(x, y, QColor(x, 255 - x, x / 2, y));
    }
    const std::string expected = fingerprint(encodedImage(image, "png"));
    for (const TIFFOrder order : {TIFFOrder::littleEndian, TIFFOrder::bigEndian}) {
        EXPECT_EQ(fingerprint(baselineTIFF(image, TIFFAlpha::unassociated, order)), expected);
        EXPECT_EQ(fingerprint(baselineTIFF(image, TIFFAlpha::unspecified, order)), expected);
    }
    EXPECT_EQ(fingerprint(encodedImage(image, "tiff")), expected);
    EXPECT_EQ(fingerprint(bmpWithAlpha(image)), expected);
    const QImage grey = image.convertToFormat(QImage::Format_Alpha8)
                            .convertToFormat(QImage::Format_RGBA8888); // Black under every alpha.
    EXPECT_EQ(fingerprint(baselineTIFF(grey, TIFFAlpha::unassociated, TIFFOrder::littleEndian, true)),
              fingerprint(encodedImage(grey, "png")));
    QImage light = image;
    for (int y = 0; y < 256; ++y) {
        for (int x = 0; x < 256; ++x)
            light.setPixelColor(x, y, QColor(x, x, x, y));
    }
    EXPECT_EQ(fingerprint(baselineTIFF(light, TIFFAlpha::unassociated, TIFFOrder::littleEndian, true)),
              fingerprint(encodedImage(light, "png")));
}

TEST(Pictures, PremultipliedColoursAreDividedAndRoundedExactly)
{
    // What has been multiplied has lost steps; each sample comes out as the nearest one that it can have
    // been.
    QImage associated(256, 256, QImage::Format_RGBA8888);
    QImage expected(256, 256, QImage::Format_RGBA8888);
    for (int alpha = 0; alpha < 256; ++alpha) {
        for (int sample = 0; sample < 256; ++sample) {
            const int stored = std::min(sample, alpha);
            const int straight = alpha == 0 ? 0 : (stored * 255 + alpha / 2) / alpha;
            for (int channel = 0; channel < 3; ++channel) {
                associated.scanLine(alpha)[4 * sample + channel] = static_cast<uchar>(stored);
                expected.scanLine(alpha)[4 * sample + channel] = static_cast<uchar>(straight);
            }
            associated.scanLine(alpha)[4 * sample + 3] = static_cast<uchar>(alpha);
            expected.scanLine(alpha)[4 * sample + 3] = static_cast<uchar>(alpha);
        }
    }
    EXPECT_EQ(fingerprint(baselineTIFF(associated, TIFFAlpha::associated)),
              fingerprint(encodedImage(expected, "png")));
    QImage deep(64, 64, QImage::Format_RGBA64);
    QImage deepExpected = deep;
    for (int y = 0; y < 64; ++y) {
        for (int x = 0; x < 64; ++x) {
            const auto alpha = static_cast<quint16>(y * 1040);
            const auto stored = static_cast<quint16>(std::min<int>(x * 1031, alpha));
            const auto straight =
                static_cast<quint16>(alpha == 0 ? 0 : (std::uint64_t{stored} * 65535 + alpha / 2) / alpha);
            reinterpret_cast<QRgba64*>(deep.scanLine(y))[x] = qRgba64(stored, stored, stored, alpha);
            reinterpret_cast<QRgba64*>(deepExpected.scanLine(y))[x] =
                qRgba64(straight, straight, straight, alpha);
        }
    }
    EXPECT_EQ(fingerprint(baselineTIFF(deep, TIFFAlpha::associated)),
              fingerprint(encodedImage(deepExpected, "png")));
    EXPECT_EQ(fingerprint(baselineTIFF(deepExpected, TIFFAlpha::unassociated, TIFFOrder::bigEndian)),
              fingerprint(encodedImage(deepExpected, "png")));
}

TEST(Pictures, AnAlphaThatIsFullEverywhereMakesNoDifference)
{
    const QImage opaque = testImage(40, 30, QImage::Format_RGB888);
    const QImage withAlpha = opaque.convertToFormat(QImage::Format_RGBA8888);
    const std::string expected = fingerprint(encodedImage(opaque, "png"));
    EXPECT_EQ(fingerprint(encodedImage(withAlpha, "png")), expected);
    EXPECT_EQ(fingerprint(interlacedPNG(withAlpha)), expected);
    EXPECT_EQ(fingerprint(bmpWithAlpha(withAlpha)), expected);
    for (const TIFFAlpha alpha :
         {TIFFAlpha::none, TIFFAlpha::unspecified, TIFFAlpha::associated, TIFFAlpha::unassociated})
        EXPECT_EQ(fingerprint(baselineTIFF(withAlpha, alpha)), expected) << static_cast<int>(alpha);
}

TEST(Pictures, FormsWithLossAreThePixelsThatTheyDecodeTo)
{
    for (const auto& [format, bytes] : picturesOfEachFormat(90, 70)) {
        QImage decoded;
        ASSERT_TRUE(decoded.loadFromData(reinterpret_cast<const uchar*>(bytes.data()),
                                         static_cast<int>(bytes.size()), format.c_str()))
            << format;
        EXPECT_EQ(fingerprint(bytes),
                  fingerprint(encodedImage(decoded.convertToFormat(QImage::Format_RGBA8888), "png")))
            << format;
    }
    const QImage transparent = testImage(40, 30);
    EXPECT_EQ(fingerprint(encodedImage(transparent, "webp", 100)),
              fingerprint(encodedImage(transparent, "png")));
}

TEST(Pictures, WhatAPictureSaysAboutColoursAndResolutionIsNoPartOfItsPixels)
{
    const std::string png = encodedImage(testImage(40, 30), "png");
    const std::string expected = fingerprint(png);
    const auto with = [&](const std::string& chunk) {
        std::string changed = png;
        changed.insert(33, chunk); // Behind the header.
        return fingerprint(changed);
    };
    using namespace std::string_literals;
    EXPECT_EQ(with(pngChunk("gAMA", "\0\1\x86\xA0"s)), expected);
    EXPECT_EQ(with(pngChunk("sRGB", "\0"s)), expected);
    EXPECT_EQ(with(pngChunk("cHRM", std::string(32, '\1'))), expected);
    EXPECT_EQ(with(pngChunk("iCCP", "a profile that is none\0\0damaged"s)), expected);
    EXPECT_EQ(with(pngChunk("tEXt", "Comment\0a text"s)), expected);
    EXPECT_NE(with(pngChunk("IDAT", "damaged")), expected);
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
}

TEST(Pictures, OnesThatAreCutOffAreNoImages)
{
    for (const auto& [format, whole] : picturesOfEachFormat(60, 50)) {
        EXPECT_TRUE(prepared(whole)) << format;
        for (const std::size_t part : {1U, 2U, 5U, 10U, 15U, 19U})
            EXPECT_FALSE(prepared(whole.substr(0, whole.size() * part / 20))) << format << " " << part;
        EXPECT_FALSE(prepared(whole.substr(0, 20))) << format;
    }
}

TEST(Pictures, NothingIsWrittenAboutBrokenOnes)
{
    testing::internal::CaptureStderr();
    for (const auto& [format, whole] : picturesOfEachFormat(24, 24)) {
        prepared(whole.substr(0, whole.size() / 2));
        for (std::size_t index = 0; index < whole.size(); index += 3) {
            std::string damaged = whole;
            damaged[index] = static_cast<char>(~damaged[index]);
            prepared(std::move(damaged));
        }
    }
    EXPECT_EQ(testing::internal::GetCapturedStderr(), "");
}

TEST(Pictures, NoDamageDoesMoreThanCostThePicture)
{
    // Whatever byte is wrong, decoding ends, and well.
    for (const auto& [format, whole] : picturesOfEachFormat(24, 24)) {
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

/// Replaces the value of one entry in a little-endian TIFF that `baselineTIFF` has made.
std::string withEntry(std::string tiff, std::uint16_t tag, std::uint16_t newTag, std::uint32_t value)
{
    std::uint32_t directory = 0;
    std::memcpy(&directory, tiff.data() + 4, sizeof directory);
    std::uint16_t count = 0;
    std::memcpy(&count, tiff.data() + directory, sizeof count);
    for (std::size_t at = directory + 2; count > 0; --count, at += 12) {
        std::uint16_t present = 0;
        std::memcpy(&present, tiff.data() + at, sizeof present);
        if (present != tag)
            continue;
        constexpr std::uint16_t longType = 4;
        std::memcpy(tiff.data() + at, &newTag, sizeof newTag);
        std::memcpy(tiff.data() + at + 2, &longType, sizeof longType);
        std::memcpy(tiff.data() + at + 8, &value, sizeof value);
    }
    return tiff;
}

TEST(Pictures, AbsurdHeadersOfEveryFormatAreRefusedWithoutMuchMemory)
{
    const PeakMemory memory;
    const auto put = [](std::string bytes, std::size_t at, const std::string& value) {
        return bytes.replace(at, value.size(), value);
    };
    auto pictures = picturesOfEachFormat(40, 30);
    EXPECT_FALSE(prepared(put(pictures["bmp"], 18, "\xFF\xFF\xFF\x7F\xFF\xFF\xFF\x7F")));
    EXPECT_FALSE(prepared(put(pictures["bmp"], 18, std::string("\0\xFF\0\0\0\xFF\0\0", 8))));
    EXPECT_FALSE(prepared(put(pictures["gif"], 6, "\xFF\xFF\xFF\xFF")));
    EXPECT_FALSE(prepared("P6\n65535 65535\n255\nand nothing more"));
    EXPECT_FALSE(prepared("P6\n99999999999 99999999999\n255\n"));
    EXPECT_FALSE(prepared("P3\n20000 20000\n255\n1 2 3"));
    EXPECT_FALSE(prepared("/* XPM */\nstatic char *a[] = {\n\"32767 32767 2 1\",\n\"a c #000000\"};"));
    EXPECT_FALSE(prepared("/* XPM */\nstatic char *a[] = {\n\"3 3 2000000000 9\",\n\"a c #000000\"};"));
    const std::string jpegSize = "\xFF\xC0";
    const std::size_t frame = pictures["jpeg"].find(jpegSize);
    ASSERT_NE(frame, std::string::npos);
    EXPECT_FALSE(prepared(put(pictures["jpeg"], frame + 5, "\xFF\xDC\xFF\xDC")));
    const std::string tiff = baselineTIFF(testImage(40, 30), TIFFAlpha::none);
    EXPECT_TRUE(prepared(tiff));
    EXPECT_FALSE(prepared(withEntry(tiff, 256, 256, 0x7FFFFFFF)));
    EXPECT_FALSE(prepared(withEntry(withEntry(tiff, 256, 256, 20000), 257, 257, 20000)));
    EXPECT_FALSE(prepared(withEntry(tiff, 277, 277, 60000))) << "samples";
    // The strips turned into tiles that are far larger than the picture.
    EXPECT_FALSE(prepared(withEntry(withEntry(tiff, 278, 322, 30000), 279, 323, 30000)));
    EXPECT_LT(memory.growth(), std::size_t{64} << 20);
}

TEST(Pictures, AnIconThatHoldsAnotherSizeThanItSaysIsRefused)
{
    const auto icon = [](int side, char claimedSide) {
        const std::string png = encodedImage(testImage(side, side), "png");
        std::string bytes("\0\0\1\0\1\0", 6);
        bytes += std::string{claimedSide, claimedSide} + std::string("\0\0\1\0\x20\0", 6);
        for (int shift = 0; shift < 32; shift += 8)
            bytes.push_back(static_cast<char>(png.size() >> shift));
        return bytes + std::string("\x16\0\0\0", 4) + png;
    };
    EXPECT_TRUE(prepared(icon(32, 32)));
    EXPECT_FALSE(prepared(icon(400, 32)));
}

TEST(Pictures, AJPEGOfEndlessScansIsRefused)
{
    // Each scan of a progressive picture costs a pass over all of it, and can be a few bytes long.
    std::string jpeg = encodedImage(testImage(1200, 1000), "jpeg");
    ASSERT_TRUE(PictureDecoder::shapeOf(jpeg));
    const std::size_t scan = jpeg.find("\xFF\xDA");
    ASSERT_NE(scan, std::string::npos);
    for (int number = 0; number < 1000; ++number)
        jpeg.insert(scan, "\xFF\xDA short");
    EXPECT_FALSE(PictureDecoder::shapeOf(jpeg));
}

TEST(Pictures, APhotographIsShownTheWayItWasTaken)
{
    const QImage image = testImage(40, 30, QImage::Format_RGB888);
    const std::string jpeg = encodedImage(image, "jpeg");
    constexpr std::size_t startOfImage = 2;
    for (char orientation = 1; orientation <= 8; ++orientation) {
        std::string exif("\xFF\xE1\0\x22"
                         "Exif\0\0"
                         "II\x2A\0\x08\0\0\0"
                         "\x01\0\x12\x01\x03\0\x01\0\0\0?\0\0\0\0\0\0\0",
                         36);
        exif[28] = orientation;
        std::string photograph = jpeg;
        photograph.insert(startOfImage, exif);
        QByteArray bytes = QByteArray::fromStdString(photograph);
        QBuffer buffer(&bytes);
        QImageReader reader(&buffer);
        reader.setAutoTransform(true);
        const QImage expected = reader.read();
        ASSERT_EQ(expected.width() == image.height(), orientation >= 5) << int{orientation};
        EXPECT_EQ(fingerprint(photograph), fingerprint(encodedImage(expected, "png"))) << int{orientation};
    }
}

TEST(Pictures, EveryRasterFormatOfTheToolkitIsLetIn)
{
    const std::set<QByteArray> leftOut = {"image/svg+xml",   "image/svg+xml-compressed",
                                          "image/x-xbitmap", "image/vnd.wap.wbmp",
                                          "image/x-tga",     "image/x-icns",
                                          "image/x-mng",     "video/x-mng",
                                          "image/jp2"};
    const SelectionAtoms atoms = fakeAtoms();
    for (const QByteArray& type : QImageReader::supportedMimeTypes()) {
        const bool isLetIn = atoms.pictureTarget(type.toStdString()) != noAtom;
        EXPECT_NE(isLetIn, leftOut.contains(type)) << type.toStdString();
    }
    for (const auto& [format, bytes] : picturesOfEachFormat(20, 10))
        EXPECT_TRUE(PictureDecoder::kindOf(bytes)) << format;
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

TEST(Conversions, OfALargePictureTakeThePictureAndItsNewFormAndNoMore)
{
    SelectionValue value;
    {
        QImage large(3840, 2160, QImage::Format_RGB888);
        large.fill(Qt::darkCyan);
        value.picture = picture(encodedImage(large, "png", 100));
    }
    mallopt(M_MMAP_THRESHOLD, 1 << 20); // As the worker has it.
    constexpr std::size_t decodedBytes = std::size_t{3840} * 2160 * 4;
    for (const char* mimeType : {"image/bmp", "image/tiff", "image/jpeg", "image/png"}) {
        const PeakMemory memory;
        const SharedBytes bytes = convertPicture(value, mimeType, Breath());
        ASSERT_TRUE(bytes);
        EXPECT_LE(memory.growth(), decodedBytes + bytes->size() + bytes->size() / 4 + (std::size_t{16} << 20))
            << mimeType << " of " << bytes->size();
    }
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
