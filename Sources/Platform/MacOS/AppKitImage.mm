#import "AppKitImage+Native.h"
#import "ImageThumbnail.h"

namespace tessel {

namespace {

class AppKitBitmap final : public BitmapImage {
public:
    explicit AppKitBitmap(NSBitmapImageRep* bitmap)
        : bitmap_(bitmap)
    {}

    bool writePNG(const ByteSink& sink) const override
    {
        @autoreleasepool {
            NSData* const png = [bitmap_ representationUsingType:NSBitmapImageFileTypePNG properties:@{}];
            if (png == nil)
                return false;
            sink({static_cast<const std::byte*>(png.bytes), png.length});
            return true;
        }
    }

private:
    NSBitmapImageRep* bitmap_;
};

class AppKitTIFFData final : public TIFFData {
public:
    explicit AppKitTIFFData(NSData* data)
        : data_(data)
    {}

    std::unique_ptr<BitmapImage> makeBitmap() const override
    {
        NSBitmapImageRep* const bitmap = [[NSBitmapImageRep alloc] initWithData:data_];
        return bitmap != nil ? std::make_unique<AppKitBitmap>(bitmap) : nullptr;
    }

private:
    NSData* data_;
};

} // namespace

AppKitImage::AppKitImage(std::unique_ptr<Native> native)
    : native_(std::move(native))
{}

AppKitImage::~AppKitImage() = default;

std::unique_ptr<TIFFData> AppKitImage::tiffRepresentation() const
{
    // What AppKit autoreleases on the way is as large as the picture.
    @autoreleasepool {
        NSData* const data = native_->image.TIFFRepresentation;
        return data != nil ? std::make_unique<AppKitTIFFData>(data) : nullptr;
    }
}

Size AppKitImage::size() const
{
    const NSSize size = native_->image.size;
    return {size.width, size.height};
}

const Thumbnail& AppKitImage::thumbnail() const
{
    if (!thumbnail_)
        thumbnail_ = drawThumbnail(native_->image);
    return *thumbnail_;
}

} // namespace tessel
