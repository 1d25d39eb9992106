#import <AppKit/AppKit.h>

#import "Doubles/Message.h"
#import "Doubles/Reply.h"

using namespace tessel::test;

NSPasteboardType const NSPasteboardTypeString = @"public.utf8-plain-text";

@implementation NSPasteboard

+ (NSPasteboard*)generalPasteboard
{
    return Reply(message("NSPasteboard", "generalPasteboard")).object(self);
}

- (NSInteger)changeCount
{
    return Reply(message(self, "changeCount")).integer();
}

- (NSPasteboardType)availableTypeFromArray:(NSArray<NSPasteboardType>*)types
{
    return Reply(message(self, "availableTypeFromArray:", types)).text();
}

- (NSString*)stringForType:(NSPasteboardType)type
{
    return Reply(message(self, "stringForType:", type)).text();
}

- (NSInteger)clearContents
{
    return Reply(message(self, "clearContents")).integer();
}

- (BOOL)setString:(NSString*)string forType:(NSPasteboardType)type
{
    return Reply(message(self, "setString:", string, "forType:", type)).boolean();
}

- (BOOL)writeObjects:(NSArray<id<NSPasteboardWriting>>*)objects
{
    return Reply(message(self, "writeObjects:", objects)).boolean();
}

@end
