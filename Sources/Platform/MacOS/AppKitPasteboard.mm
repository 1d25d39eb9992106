#import "AppKitPasteboard.h"

#import "AppKitImage+Native.h"
#import "Text.h"

namespace tessel {

namespace {

/// What password managers mark their texts with, by the convention of nspasteboard.org.
NSString* const concealedType = @"org.nspasteboard.ConcealedType";
/// What is on the pasteboard for a moment only, by the same convention.
NSString* const transientType = @"org.nspasteboard.TransientType";

} // namespace

struct AppKitPasteboard::Native {
    NSPasteboard* pasteboard;
};

AppKitPasteboard::AppKitPasteboard(FingerprintImage fingerprintImage)
    : native_(new Native{NSPasteboard.generalPasteboard})
    , fingerprintImage_(std::move(fingerprintImage))
{}

AppKitPasteboard::~AppKitPasteboard() = default;

std::int64_t AppKitPasteboard::changeCount() const
{
    return native_->pasteboard.changeCount;
}

bool AppKitPasteboard::isSecret() const
{
    return [native_->pasteboard availableTypeFromArray:@[ concealedType, transientType ]] != nil;
}

SharedText AppKitPasteboard::string() const
{
    @autoreleasepool {
        if (isSecret())
            return nullptr;
        NSString* const string = [native_->pasteboard stringForType:NSPasteboardTypeString];
        return string != nil ? std::make_shared<const std::string>(utf8Text(string)) : nullptr;
    }
}

SharedImage AppKitPasteboard::image() const
{
    @autoreleasepool {
        if (isSecret())
            return nullptr;
        NSImage* const image = [[NSImage alloc] initWithPasteboard:native_->pasteboard];
        if (image == nil)
            return nullptr;
        const auto read = std::make_shared<AppKitImage>(
            std::unique_ptr<AppKitImage::Native>(new AppKitImage::Native{image}));
        read->prepareFingerprint(fingerprintImage_(*read));
        return read;
    }
}

void AppKitPasteboard::clearContents()
{
    [native_->pasteboard clearContents];
}

void AppKitPasteboard::setString(SharedText text)
{
    @autoreleasepool {
        NSString* const string = makeString(*text);
        if (string != nil)
            [native_->pasteboard setString:string forType:NSPasteboardTypeString];
    }
}

void AppKitPasteboard::writeObjects(SharedImage image)
{
    if (const auto* read = dynamic_cast<const AppKitImage*>(image.get()))
        [native_->pasteboard writeObjects:@[ read->native().image ]];
}

} // namespace tessel
