#import <AppKit/AppKit.h>

#include <map>

#include <gtest/gtest.h>

#import "Doubles/Message.h"
#import "Doubles/Reply.h"
#include "Runtime/Runtime.h"
#include "Support/System.h"

using namespace tessel;
using namespace tessel::test;

NSNotificationName const NSWindowDidChangeOcclusionStateNotification =
    @"NSWindowDidChangeOcclusionStateNotification";

@interface NSWindow () {
@public
    NSWindowStyleMask styleMask_;
    NSViewController* contentViewController_;
}
@end

@interface NSWindowController () {
@public
    NSWindow* window_;
}
@end

namespace {

/// Those that are alive, by their names.
std::map<std::string, __unsafe_unretained NSWindow*>& windows()
{
    static auto* alive = new std::map<std::string, __unsafe_unretained NSWindow*>;
    return *alive;
}

NSWindow* findWindow(const std::string& name)
{
    const auto found = windows().find(name);
    if (found != windows().end())
        return found->second;
    ADD_FAILURE() << "No window is called " << name;
    return nil;
}

} // namespace

@implementation NSWindow

@dynamic level, collectionBehavior, hasShadow, movableByWindowBackground, opaque, backgroundColor, title,
    titleVisibility, titlebarAppearsTransparent, releasedWhenClosed, contentViewController;

- (instancetype)initWithContentRect:(NSRect)contentRect
                          styleMask:(NSWindowStyleMask)style
                            backing:(NSBackingStoreType)backing
                              defer:(BOOL)defers
{
    self = [super init];
    styleMask_ = style;
    self = Reply(message(objc::className(objc::classOf((__bridge void*)self)),
                         "initWithContentRect:", contentRect, "styleMask:", style,
                         "backing:", static_cast<NSUInteger>(backing), "defer:", defers))
               .initialized(self);
    windows()[describe(self)] = self;
    return self;
}

- (void)dealloc
{
    windows().erase(describe(self));
}

/// A window without a title bar does not take the keyboard, unless its class says so.
- (BOOL)canBecomeKeyWindow
{
    return (styleMask_ & NSWindowStyleMaskTitled) != 0;
}

- (BOOL)canBecomeMainWindow
{
    return (styleMask_ & NSWindowStyleMaskTitled) != 0;
}

- (void)setLevel:(NSWindowLevel)level
{
    Reply(message(self, "setLevel:", level)).nothing();
}

- (void)setCollectionBehavior:(NSWindowCollectionBehavior)collectionBehavior
{
    Reply(message(self, "setCollectionBehavior:", Mask{collectionBehavior})).nothing();
}

- (void)setHasShadow:(BOOL)hasShadow
{
    Reply(message(self, "setHasShadow:", hasShadow)).nothing();
}

- (void)setMovableByWindowBackground:(BOOL)movableByWindowBackground
{
    Reply(message(self, "setMovableByWindowBackground:", movableByWindowBackground)).nothing();
}

- (void)setOpaque:(BOOL)opaque
{
    Reply(message(self, "setOpaque:", opaque)).nothing();
}

- (void)setBackgroundColor:(NSColor*)backgroundColor
{
    Reply(message(self, "setBackgroundColor:", backgroundColor)).nothing();
}

- (void)setTitle:(NSString*)title
{
    Reply(message(self, "setTitle:", title)).nothing();
}

- (void)setTitleVisibility:(NSWindowTitleVisibility)titleVisibility
{
    Reply(message(self, "setTitleVisibility:", static_cast<NSInteger>(titleVisibility))).nothing();
}

- (void)setTitlebarAppearsTransparent:(BOOL)titlebarAppearsTransparent
{
    Reply(message(self, "setTitlebarAppearsTransparent:", titlebarAppearsTransparent)).nothing();
}

- (void)setReleasedWhenClosed:(BOOL)releasedWhenClosed
{
    Reply(message(self, "setReleasedWhenClosed:", releasedWhenClosed)).nothing();
}

- (void)setContentViewController:(NSViewController*)controller
{
    Reply(message(self, "setContentViewController:", controller)).nothing();
    contentViewController_ = controller;
}

- (NSRect)frame
{
    return Reply(message(self, "frame")).rectangle();
}

- (BOOL)isVisible
{
    return Reply(message(self, "isVisible")).boolean();
}

- (NSWindowOcclusionState)occlusionState
{
    return static_cast<NSWindowOcclusionState>(Reply(message(self, "occlusionState")).integer());
}

- (void)center
{
    Reply(message(self, "center")).nothing();
}

- (void)setContentSize:(NSSize)size
{
    Reply(message(self, "setContentSize:", size)).nothing();
}

- (void)setFrameOrigin:(NSPoint)origin
{
    Reply(message(self, "setFrameOrigin:", origin)).nothing();
}

- (BOOL)makeFirstResponder:(NSResponder*)responder
{
    return Reply(message(self, "makeFirstResponder:", responder)).boolean();
}

- (void)makeKeyAndOrderFront:(id)sender
{
    Reply(message(self, "makeKeyAndOrderFront:", sender)).nothing();
}

- (void)orderFront:(id)sender
{
    Reply(message(self, "orderFront:", sender)).nothing();
}

@end

@implementation NSPanel

@dynamic floatingPanel;

- (BOOL)canBecomeMainWindow
{
    return NO;
}

- (void)setFloatingPanel:(BOOL)floatingPanel
{
    Reply(message(self, "setFloatingPanel:", floatingPanel)).nothing();
}

@end

@implementation NSWindowController

@dynamic window;

- (instancetype)initWithWindow:(NSWindow*)window
{
    self = Reply(message("NSWindowController", "initWithWindow:", window)).initialized([super init]);
    window_ = window;
    return self;
}

/// The answer says whether there is one: a controller may lose its window.
- (NSWindow*)window
{
    return Reply(message(self, "window")).boolean() ? window_ : nil;
}

- (void)showWindow:(id)sender
{
    Reply(message(self, "showWindow:", sender)).nothing();
}

- (void)close
{
    Reply(message(self, "close")).nothing();
}

@end

namespace tessel::test {

bool canBecomeKey(const std::string& window)
{
    return findWindow(window).canBecomeKeyWindow;
}

bool canBecomeMain(const std::string& window)
{
    return findWindow(window).canBecomeMainWindow;
}

} // namespace tessel::test
