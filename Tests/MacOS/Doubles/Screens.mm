#import <AppKit/AppKit.h>

#import "Doubles/Message.h"
#import "Doubles/Reply.h"

using namespace tessel::test;

@implementation NSScreen

+ (NSArray<NSScreen*>*)screens
{
    return Reply(message("NSScreen", "screens")).objects(self);
}

+ (NSScreen*)mainScreen
{
    return Reply(message("NSScreen", "mainScreen")).object(self);
}

- (NSRect)frame
{
    return Reply(message(self, "frame")).rectangle();
}

- (NSRect)visibleFrame
{
    return Reply(message(self, "visibleFrame")).rectangle();
}

@end
