#import <AppKit/AppKit.h>

#import "Doubles/Message.h"
#import "Doubles/Reply.h"

using namespace tessel::test;

@implementation NSImage {
    id picture_; // What the image hands out and keeps.
}

- (instancetype)initWithPasteboard:(NSPasteboard*)pasteboard
{
    return Reply(message("NSImage", "initWithPasteboard:", pasteboard)).initialized(self);
}

+ (instancetype)imageWithSystemSymbolName:(NSString*)name accessibilityDescription:(NSString*)description
{
    return Reply(message("NSImage", "imageWithSystemSymbolName:", name,
                         "accessibilityDescription:", description))
        .object(self);
}

- (NSData*)TIFFRepresentation
{
    return Reply(message(self, "TIFFRepresentation")).bytes();
}

- (NSSize)size
{
    return Reply(message(self, "size")).size();
}

- (CGImageRef)CGImageForProposedRect:(NSRect*)proposedRect
                             context:(NSGraphicsContext*)context
                               hints:(NSDictionary<NSImageHintKey, id>*)hints
{
    if (proposedRect != nullptr)
        return nullptr; // The backend wants the picture as it is; that comes out as a call that never came.
    picture_ =
        Reply(message(self, "CGImageForProposedRect:", Word{"NULL"}, "context:", context, "hints:", hints))
            .object([NSObject class]);
    return reinterpret_cast<CGImageRef>((__bridge void*)picture_);
}

@end

@implementation NSBitmapImageRep

- (instancetype)initWithData:(NSData*)data
{
    return Reply(message("NSBitmapImageRep", "initWithData:", data)).initialized(self);
}

- (NSData*)representationUsingType:(NSBitmapImageFileType)type
                        properties:(NSDictionary<NSBitmapImageRepPropertyKey, id>*)properties
{
    return Reply(message(self, "representationUsingType:", static_cast<NSUInteger>(type),
                         "properties:", properties))
        .bytes();
}

@end
