#import <AppKit/AppKit.h>

#import "Doubles/Message.h"
#import "Doubles/Reply.h"

using namespace tessel::test;

NSNotificationName const NSApplicationDidBecomeActiveNotification =
    @"NSApplicationDidBecomeActiveNotification";
NSNotificationName const NSApplicationDidResignActiveNotification =
    @"NSApplicationDidResignActiveNotification";

NSNotificationName const NSWorkspaceAccessibilityDisplayOptionsDidChangeNotification =
    @"NSWorkspaceAccessibilityDisplayOptionsDidChangeNotification";

@implementation NSRunningApplication

- (pid_t)processIdentifier
{
    return static_cast<pid_t>(Reply(message(self, "processIdentifier")).integer());
}

- (BOOL)activateWithOptions:(NSApplicationActivationOptions)options
{
    return Reply(message(self, "activateWithOptions:", static_cast<NSUInteger>(options))).boolean();
}

@end

@implementation NSWorkspace

+ (NSWorkspace*)sharedWorkspace
{
    return Reply(message("NSWorkspace", "sharedWorkspace")).object(self);
}

- (NSRunningApplication*)frontmostApplication
{
    return Reply(message(self, "frontmostApplication")).object([NSRunningApplication class]);
}

- (NSNotificationCenter*)notificationCenter
{
    return Reply(message(self, "notificationCenter")).object([NSNotificationCenter class]);
}

- (BOOL)accessibilityDisplayShouldReduceMotion
{
    return Reply(message(self, "accessibilityDisplayShouldReduceMotion")).boolean();
}

- (BOOL)openURL:(NSURL*)url
{
    return Reply(message(self, "openURL:", url)).boolean();
}

@end

@implementation NSApplication

+ (NSApplication*)sharedApplication
{
    return Reply(message("NSApplication", "sharedApplication")).object(self);
}

- (BOOL)isActive
{
    return Reply(message(self, "isActive")).boolean();
}

- (NSAppearance*)effectiveAppearance
{
    return Reply(message(self, "effectiveAppearance")).object([NSAppearance class]);
}

- (void)activateIgnoringOtherApps:(BOOL)ignoringOtherApps
{
    Reply(message(self, "activateIgnoringOtherApps:", ignoringOtherApps)).nothing();
}

- (void)terminate:(id)sender
{
    Reply(message(self, "terminate:", sender)).nothing();
}

@end
