#import <AppKit/AppKit.h>

#import "Doubles/Message.h"
#import "Doubles/Reply.h"

using namespace tessel::test;

NSAppearanceName const NSAppearanceNameAqua = @"NSAppearanceNameAqua";
NSAppearanceName const NSAppearanceNameDarkAqua = @"NSAppearanceNameDarkAqua";
NSNotificationName const NSSystemColorsDidChangeNotification = @"NSSystemColorsDidChangeNotification";

@implementation NSAppearance

- (NSAppearanceName)bestMatchFromAppearancesWithNames:(NSArray<NSAppearanceName>*)appearances
{
    return Reply(message(self, "bestMatchFromAppearancesWithNames:", appearances)).text();
}

@end

@implementation NSColorSpace

+ (NSColorSpace*)sRGBColorSpace
{
    return Reply(message("NSColorSpace", "sRGBColorSpace")).object(self);
}

@end

@implementation NSColor

+ (NSColor*)clearColor
{
    return Reply(message("NSColor", "clearColor")).object(self);
}

+ (NSColor*)controlAccentColor
{
    return Reply(message("NSColor", "controlAccentColor")).object(self);
}

+ (NSColor*)secondaryLabelColor
{
    return Reply(message("NSColor", "secondaryLabelColor")).object(self);
}

- (NSColor*)colorUsingColorSpace:(NSColorSpace*)space
{
    return Reply(message(self, "colorUsingColorSpace:", space)).object([NSColor class]);
}

- (CGFloat)redComponent
{
    return Reply(message(self, "redComponent")).number();
}

- (CGFloat)greenComponent
{
    return Reply(message(self, "greenComponent")).number();
}

- (CGFloat)blueComponent
{
    return Reply(message(self, "blueComponent")).number();
}

@end
