#include <cmath>
#include <limits>

#include <gtest/gtest.h>

#include "Fakes/FakeDigest.h"
#include "Fakes/FakeImage.h"
#include "History/ClipboardItem.h"
#include "History/ImageFingerprint.h"

namespace tessel::test {
namespace {

const FakeDigest digest;

ClipboardItem itemOf(ClipboardContent content)
{
    return {UUID::random(), std::move(content), 0};
}

std::string fingerprint(std::string text)
{
    return itemOf(std::make_shared<const std::string>(std::move(text))).fingerprint(digest);
}

std::string fingerprint(SharedImage image)
{
    return itemOf(std::move(image)).fingerprint(digest);
}

std::string fallbackFingerprint(Size size)
{
    return fingerprint(FakeImage::failing(ImageEncoding::hasNoTIFF, size));
}

TEST(ClipboardItem, FingerprintOfATextIsThePrefixAndTheText)
{
    EXPECT_EQ(fingerprint("abc"), "text:abc");
    EXPECT_EQ(fingerprint(""), "text:");
}

TEST(ClipboardItem, FingerprintOfATextKeepsItExactlyAsItIs)
{
    const std::string text = std::string(" \tGr\xC3\xBC\xC3\x9F"
                                         "e\r\n\0end \n",
                                         18);
    EXPECT_EQ(fingerprint(text), "text:" + text);
}

TEST(ClipboardItem, FingerprintOfATextHasNoLengthLimit)
{
    EXPECT_EQ(fingerprint(std::string(10'000, 'x')).size(), 10'005U);
}

TEST(ClipboardItem, TextsThatDifferOnlyInTrailingWhiteSpaceDiffer)
{
    EXPECT_NE(fingerprint("abc"), fingerprint("abc "));
    EXPECT_NE(fingerprint("abc"), fingerprint("abc\n"));
}

TEST(ClipboardItem, TextsThatDifferOnlyInLetterCaseDiffer)
{
    EXPECT_NE(fingerprint("abc"), fingerprint("Abc"));
}

TEST(ClipboardItem, FingerprintOfAnImageIsTheHashOfItsPNGInLowercaseDigits)
{
    const std::string expected = "image:ba7816bf8f01cfea414140de5dae2223b00361a396177a9cb410ff61f20015ad";
    EXPECT_EQ(fingerprint(FakeImage::withPNG("abc")), expected);
    EXPECT_EQ(expected.size(), 70U);
}

TEST(ClipboardItem, ImagesThatEncodeToTheSamePNGAreTheSameContentWhateverTheirSizeSays)
{
    EXPECT_EQ(fingerprint(FakeImage::withPNG("pixels", {10, 10})),
              fingerprint(FakeImage::withPNG("pixels", {20, 20})));
    EXPECT_NE(fingerprint(FakeImage::withPNG("pixels")), fingerprint(FakeImage::withPNG("other pixels")));
}

TEST(ClipboardItem, AnImageThatCanBeEncodedMayClaimAnySize)
{
    const double nan = std::numeric_limits<double>::quiet_NaN();
    EXPECT_EQ(fingerprint(FakeImage::withPNG("abc", {nan, nan})).size(), 70U);
}

TEST(ClipboardItem, AnImageWithoutTIFFIsKnownByItsSize)
{
    EXPECT_EQ(fingerprint(FakeImage::failing(ImageEncoding::hasNoTIFF, {640, 480})), "image:640x480");
}

TEST(ClipboardItem, AnImageWhoseTIFFCannotBeDecodedIsKnownByItsSize)
{
    EXPECT_EQ(fingerprint(FakeImage::failing(ImageEncoding::tiffCannotBeDecoded, {640, 480})),
              "image:640x480");
}

TEST(ClipboardItem, AnImageThatCannotBeEncodedAsPNGIsKnownByItsSize)
{
    EXPECT_EQ(fingerprint(FakeImage::failing(ImageEncoding::bitmapCannotBeEncoded, {640, 480})),
              "image:640x480");
}

TEST(ClipboardItem, OutputBeforeAFailedEncodingCountsForNothing)
{
    EXPECT_EQ(fingerprint(FakeImage::failing(ImageEncoding::bitmapFailsAfterSomeOutput, {640, 480})),
              "image:640x480");
}

TEST(ClipboardItem, DifferentImagesOfOneSizeThatCannotBeEncodedAreTheSameContent)
{
    EXPECT_EQ(fingerprint(FakeImage::failing(ImageEncoding::bitmapCannotBeEncoded, {32, 16})),
              fingerprint(FakeImage::failing(ImageEncoding::hasNoTIFF, {32, 16})));
}

TEST(ClipboardItem, SizesAreTruncatedTowardZero)
{
    EXPECT_EQ(fallbackFingerprint({99.9, 10.2}), "image:99x10");
    EXPECT_EQ(fallbackFingerprint({0.99, 0}), "image:0x0");
    EXPECT_EQ(fallbackFingerprint({-0.9, -5.7}), "image:0x-5");
}

TEST(ClipboardItem, SizesReachTheEndsOfTheSigned64BitRange)
{
    EXPECT_EQ(fallbackFingerprint({0x1p63 - 1024, -0x1p63}),
              "image:9223372036854774784x-9223372036854775808");
}

TEST(ClipboardItem, APreparedFingerprintIsTakenWithoutEncodingTheImageAgain)
{
    const auto image = FakeImage::prepared("image:0123");
    EXPECT_EQ(fingerprint(image), "image:0123");
    EXPECT_EQ(image->encodings(), 0);
}

TEST(ClipboardItem, PreparingUsesTheEncodingsEvenWhereAFingerprintIsThere)
{
    EXPECT_EQ(imageFingerprint(*FakeImage::withPNG("abc"), digest),
              "image:ba7816bf8f01cfea414140de5dae2223b00361a396177a9cb410ff61f20015ad");
}

TEST(ClipboardItem, KnowsWhetherItIsAnImage)
{
    EXPECT_TRUE(itemOf(SharedImage(FakeImage::withPNG("abc"))).isImage());
    EXPECT_FALSE(itemOf(std::make_shared<const std::string>("abc")).isImage());
}

TEST(ClipboardItem, CopiesShareTheImage)
{
    const ClipboardItem item = itemOf(SharedImage(FakeImage::withPNG("abc")));
    const ClipboardItem copy = item; // NOLINT(performance-unnecessary-copy-initialization)
    EXPECT_EQ(std::get<SharedImage>(copy.content), std::get<SharedImage>(item.content));
}

class ImageOfImpossibleSizeDeathTest : public testing::TestWithParam<double> {};

TEST_P(ImageOfImpossibleSizeDeathTest, AWidthThatIsNoWholeNumberStopsTheProcess)
{
    EXPECT_DEATH(fallbackFingerprint({GetParam(), 1}), "Fatal error");
}

TEST_P(ImageOfImpossibleSizeDeathTest, AHeightThatIsNoWholeNumberStopsTheProcess)
{
    EXPECT_DEATH(fallbackFingerprint({1, GetParam()}), "Fatal error");
}

INSTANTIATE_TEST_SUITE_P(Sizes, ImageOfImpossibleSizeDeathTest,
                         testing::Values(std::numeric_limits<double>::quiet_NaN(),
                                         std::numeric_limits<double>::infinity(),
                                         -std::numeric_limits<double>::infinity(), 0x1p63, -0x1p63 - 2048));

} // namespace
} // namespace tessel::test
