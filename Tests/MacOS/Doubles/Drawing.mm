#include <CoreGraphics/CoreGraphics.h>

#include <cstring>

#import "Doubles/Message.h"
#import "Doubles/Reply.h"
#include "Runtime/Runtime.h"

using namespace tessel;
using namespace tessel::test;

namespace {

/// What a drawing context draws into.
struct Canvas {
    void* pixels;
    std::size_t size;
};

} // namespace

@interface DrawingContext : NSObject {
@public
    Canvas canvas_;
}
@end

@implementation DrawingContext
@end

const CFStringRef kCGColorSpaceSRGB = (__bridge CFStringRef) @"kCGColorSpaceSRGB";

extern "C" {

size_t CGImageGetWidth(CGImageRef image)
{
    return static_cast<size_t>(Reply(call("CGImageGetWidth", objectOf(image))).integer());
}

size_t CGImageGetHeight(CGImageRef image)
{
    return static_cast<size_t>(Reply(call("CGImageGetHeight", objectOf(image))).integer());
}

CGColorSpaceRef CGColorSpaceCreateWithName(CFStringRef name)
{
    id space = Reply(call("CGColorSpaceCreateWithName", objectOf(name))).object([NSObject class]);
    return created<CGColorSpaceRef>(space);
}

void CGColorSpaceRelease(CGColorSpaceRef space)
{
    Reply(call("CGColorSpaceRelease", objectOf(space))).nothing();
    objc_release(space);
}

CGContextRef CGBitmapContextCreate(void* data, size_t width, size_t height, size_t bitsPerComponent,
                                   size_t bytesPerRow, CGColorSpaceRef space, uint32_t bitmapInfo)
{
    DrawingContext* context =
        Reply(call("CGBitmapContextCreate", Word{data != nullptr ? "pixels" : "NULL"}, width, height,
                   bitsPerComponent, bytesPerRow, objectOf(space), bitmapInfo))
            .object([DrawingContext class]);
    if (context != nil)
        context->canvas_ = {data, height * bytesPerRow};
    return created<CGContextRef>(context);
}

void CGContextSetInterpolationQuality(CGContextRef context, CGInterpolationQuality quality)
{
    Reply(call("CGContextSetInterpolationQuality", objectOf(context), static_cast<int>(quality))).nothing();
}

/// Leaves its mark on every pixel.
void CGContextDrawImage(CGContextRef context, CGRect rectangle, CGImageRef image)
{
    Reply(call("CGContextDrawImage", objectOf(context), rectangle, objectOf(image))).nothing();
    const Canvas& canvas = static_cast<DrawingContext*>(objectOf(context))->canvas_;
    std::memset(canvas.pixels, 0x7F, canvas.size);
}

void CGContextRelease(CGContextRef context)
{
    Reply(call("CGContextRelease", objectOf(context))).nothing();
    objc_release(context);
}
}
