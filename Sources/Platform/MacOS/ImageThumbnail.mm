#import "ImageThumbnail.h"

#include <algorithm>
#include <memory>
#include <type_traits>

namespace tessel {

namespace {

constexpr size_t side = Thumbnail::side;

struct ContextRelease {
    void operator()(CGContextRef context) const { CGContextRelease(context); }
};
using ContextOwner = std::unique_ptr<std::remove_pointer_t<CGContextRef>, ContextRelease>;

struct ColorSpaceRelease {
    void operator()(CGColorSpaceRef space) const { CGColorSpaceRelease(space); }
};
using ColorSpaceOwner = std::unique_ptr<std::remove_pointer_t<CGColorSpaceRef>, ColorSpaceRelease>;

/// Where to draw a picture of that extent so that it fills the thumbnail.
CGRect fillingRectangle(double width, double height)
{
    const double scale = side / std::min(width, height);
    const CGSize size = {width * scale, height * scale};
    return {{(side - size.width) / 2, (side - size.height) / 2}, size};
}

/// Draws into premultiplied 0xAARRGGBB.
ContextOwner makeContext(Thumbnail& thumbnail)
{
    constexpr size_t bitsPerComponent = 8;
    const ColorSpaceOwner space(CGColorSpaceCreateWithName(kCGColorSpaceSRGB));
    return ContextOwner(CGBitmapContextCreate(thumbnail.pixels.data(), side, side, bitsPerComponent,
                                              side * sizeof(std::uint32_t), space.get(),
                                              static_cast<uint32_t>(kCGImageAlphaPremultipliedFirst) |
                                                  static_cast<uint32_t>(kCGBitmapByteOrder32Little)));
}

} // namespace

Thumbnail drawThumbnail(NSImage* image)
{
    @autoreleasepool {
        const CGImageRef picture = [image CGImageForProposedRect:nullptr context:nil hints:nil];
        if (picture == nullptr)
            return {};
        const size_t width = CGImageGetWidth(picture);
        const size_t height = CGImageGetHeight(picture);
        if (width == 0 || height == 0)
            return {};

        Thumbnail thumbnail = {std::vector<std::uint32_t>(side * side)};
        const ContextOwner context = makeContext(thumbnail);
        if (!context)
            return {};
        CGContextSetInterpolationQuality(context.get(), kCGInterpolationMedium);
        CGContextDrawImage(context.get(),
                           fillingRectangle(static_cast<double>(width), static_cast<double>(height)),
                           picture);
        return thumbnail;
    }
}

} // namespace tessel
