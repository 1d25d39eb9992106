#include <optional>
#include <string>

#include "AppKitPasteboard.h"
#include "Support/MacOSTest.h"

namespace tessel::test {
namespace {

/// An image that was read from the pasteboard.
class ImageTests : public MacOSTest {
protected:
    ImageTests()
    {
        expectCall("[NSPasteboard generalPasteboard]", Object{"pasteboard"});
        AppKitPasteboard pasteboard([](const PlatformImage&) { return "image:prepared"; });
        expectCall("[pasteboard availableTypeFromArray:@[@\"org.nspasteboard.ConcealedType\", "
                   "@\"org.nspasteboard.TransientType\"]]",
                   Nil{});
        expectCall("[NSImage initWithPasteboard:pasteboard]", Object{"image"});
        image = pasteboard.image();
    }

    /// The bitmap of its TIFF encoding.
    std::unique_ptr<BitmapImage> makeBitmap()
    {
        expectCall("[image TIFFRepresentation]", Bytes{"II*"});
        expectCall("[NSBitmapImageRep initWithData:<II*>]", Object{"bitmap"});
        const auto tiff = image->tiffRepresentation();
        return tiff != nullptr ? tiff->makeBitmap() : nullptr;
    }

    /// The picture of the image, of that extent in pixels.
    void expectPicture(std::int64_t width, std::int64_t height)
    {
        expectCall("[image CGImageForProposedRect:NULL context:nil hints:nil]", Object{"picture"});
        expectCall("CGImageGetWidth(picture)", width);
        expectCall("CGImageGetHeight(picture)", height);
    }

    /// A drawing context of 64 by 64 pixels of 4 bytes, 8 bits a component, alpha first and premultiplied
    /// (2), in little-endian words (2 << 12).
    void expectContext(Answer context)
    {
        expectCall("CGColorSpaceCreateWithName(@\"kCGColorSpaceSRGB\")", Object{"sRGB"});
        expectCall("CGBitmapContextCreate(pixels, 64, 64, 8, 256, sRGB, 8194)", std::move(context));
        expectCall("CGColorSpaceRelease(sRGB)");
    }

    /// With medium interpolation (4).
    void expectDrawing(const std::string& rectangle)
    {
        expectCall("CGContextSetInterpolationQuality(context, 4)");
        expectCall("CGContextDrawImage(context, " + rectangle + ", picture)");
        expectCall("CGContextRelease(context)");
    }

    SharedImage image;
};

TEST_F(ImageTests, ThePNGIsMadeOfTheBitmapOfTheTIFFEncodingWithFileType4AndAnEmptyDictionary)
{
    const auto bitmap = makeBitmap();
    ASSERT_TRUE(bitmap);
    expectCall("[bitmap representationUsingType:4 properties:@{}]", Bytes{"PNG"});
    std::string png;
    EXPECT_TRUE(bitmap->writePNG([&png](std::span<const std::byte> bytes) {
        png.append(reinterpret_cast<const char*>(bytes.data()), bytes.size());
    }));
    EXPECT_EQ(png, "PNG");
}

TEST_F(ImageTests, AnImageWithoutATIFFEncodingHasNone)
{
    expectCall("[image TIFFRepresentation]", Nil{});
    EXPECT_EQ(image->tiffRepresentation(), nullptr);
}

TEST_F(ImageTests, ATIFFEncodingThatCannotBeDecodedMakesNoBitmap)
{
    expectCall("[image TIFFRepresentation]", Bytes{"damaged"});
    const auto tiff = image->tiffRepresentation();
    ASSERT_TRUE(tiff);
    expectCall("[NSBitmapImageRep initWithData:<damaged>]", Nil{});
    EXPECT_EQ(tiff->makeBitmap(), nullptr);
}

TEST_F(ImageTests, ABitmapWithoutAPNGWritesNothing)
{
    const auto bitmap = makeBitmap();
    expectCall("[bitmap representationUsingType:4 properties:@{}]", Nil{});
    EXPECT_FALSE(bitmap->writePNG([](std::span<const std::byte>) { FAIL(); }));
}

TEST_F(ImageTests, TheSizeIsTheImagesInPoints)
{
    expectCall("[image size]", Numbers{{99.9, 10.2}});
    EXPECT_EQ(image->size(), (Size{99.9, 10.2}));
}

TEST_F(ImageTests, AWidePictureFillsTheThumbnailAndIsCroppedToItsCentre)
{
    expectPicture(128, 64);
    expectContext(Object{"context"});
    expectDrawing("{{-32, 0}, {128, 64}}");
    const Thumbnail& thumbnail = image->thumbnail();
    EXPECT_EQ(thumbnail.pixels, std::vector<std::uint32_t>(64 * 64, 0x7F7F7F7F));
}

TEST_F(ImageTests, ATallPictureFillsTheThumbnailAndIsCroppedToItsCentre)
{
    expectPicture(16, 32);
    expectContext(Object{"context"});
    expectDrawing("{{0, -32}, {64, 128}}");
    EXPECT_EQ(image->thumbnail().pixels.size(), 64U * 64U);
}

TEST_F(ImageTests, TheThumbnailIsDrawnOnce)
{
    expectPicture(64, 64);
    expectContext(Object{"context"});
    expectDrawing("{{0, 0}, {64, 64}}");
    const Thumbnail* first = &image->thumbnail();
    EXPECT_EQ(&image->thumbnail(), first);
}

TEST_F(ImageTests, AnImageWithoutAPictureHasAnEmptyThumbnail)
{
    expectCall("[image CGImageForProposedRect:NULL context:nil hints:nil]", Nil{});
    EXPECT_TRUE(image->thumbnail().pixels.empty());
}

TEST_F(ImageTests, APictureWithoutAnExtentIsNotDrawn)
{
    expectPicture(0, 64);
    EXPECT_TRUE(image->thumbnail().pixels.empty());
}

TEST_F(ImageTests, WithoutADrawingContextTheThumbnailIsEmpty)
{
    expectPicture(64, 64);
    expectContext(Nil{});
    EXPECT_TRUE(image->thumbnail().pixels.empty());
}

} // namespace
} // namespace tessel::test
