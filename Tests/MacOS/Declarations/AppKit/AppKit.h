#pragma once

#include <CoreGraphics/CoreGraphics.h>
#import <Foundation/Foundation.h>

NS_ASSUME_NONNULL_BEGIN

@class NSImage;

typedef NSString* NSPasteboardType;
FOUNDATION_EXPORT NSPasteboardType const NSPasteboardTypeString;

@protocol NSPasteboardWriting
@end

@interface NSPasteboard : NSObject
@property(class, readonly, strong) NSPasteboard* generalPasteboard;
@property(readonly) NSInteger changeCount;
- (nullable NSPasteboardType)availableTypeFromArray:(NSArray<NSPasteboardType>*)types;
- (nullable NSString*)stringForType:(NSPasteboardType)type;
- (NSInteger)clearContents;
- (BOOL)setString:(NSString*)string forType:(NSPasteboardType)type;
- (BOOL)writeObjects:(NSArray<id<NSPasteboardWriting>>*)objects;
@end

@class NSGraphicsContext;
typedef NSString* NSImageHintKey;

@interface NSImage : NSObject <NSPasteboardWriting>
- (nullable instancetype)initWithPasteboard:(NSPasteboard*)pasteboard;
@property(nullable, readonly, copy) NSData* TIFFRepresentation;
@property(readonly) NSSize size;
+ (nullable instancetype)imageWithSystemSymbolName:(NSString*)name
                          accessibilityDescription:(nullable NSString*)description API_AVAILABLE_MACOS(11.0);
- (nullable CGImageRef)CGImageForProposedRect:(nullable NSRect*)proposedRect
                                      context:(nullable NSGraphicsContext*)context
                                        hints:(nullable NSDictionary<NSImageHintKey, id>*)hints;
@end

typedef NS_ENUM(NSUInteger, NSBitmapImageFileType) {
    NSBitmapImageFileTypeTIFF,
    NSBitmapImageFileTypeBMP,
    NSBitmapImageFileTypeGIF,
    NSBitmapImageFileTypeJPEG,
    NSBitmapImageFileTypePNG,
};
typedef NSString* NSBitmapImageRepPropertyKey;

@interface NSBitmapImageRep : NSObject
- (nullable instancetype)initWithData:(NSData*)data;
- (nullable NSData*)representationUsingType:(NSBitmapImageFileType)type
                                 properties:(NSDictionary<NSBitmapImageRepPropertyKey, id>*)properties;
@end

@interface NSScreen : NSObject
@property(class, readonly, copy) NSArray<NSScreen*>* screens;
@property(class, nullable, readonly, strong) NSScreen* mainScreen;
@property(readonly) NSRect frame;
@property(readonly) NSRect visibleFrame;
@end

typedef NS_OPTIONS(unsigned long long, NSEventMask) {
    NSEventMaskKeyDown = 1ULL << 10,
};
typedef NS_OPTIONS(NSUInteger, NSEventModifierFlags) {
    NSEventModifierFlagCommand = 1 << 20,
};

@interface NSEvent : NSObject
@property(class, readonly) NSPoint mouseLocation;
@property(readonly) unsigned short keyCode;
@property(readonly) NSEventModifierFlags modifierFlags;
+ (nullable id)addLocalMonitorForEventsMatchingMask:(NSEventMask)mask
                                            handler:(NSEvent* _Nullable (^)(NSEvent* event))handler;
+ (void)removeMonitor:(id)monitor;
@end

typedef NS_OPTIONS(NSUInteger, NSApplicationActivationOptions) {
    NSApplicationActivateAllWindows = 1 << 0,
    NSApplicationActivateIgnoringOtherApps = 1 << 1,
};

@interface NSRunningApplication : NSObject
@property(readonly) pid_t processIdentifier;
- (BOOL)activateWithOptions:(NSApplicationActivationOptions)options;
@end

@interface NSWorkspace : NSObject
@property(class, readonly, strong) NSWorkspace* sharedWorkspace;
@property(nullable, readonly, strong) NSRunningApplication* frontmostApplication;
@property(readonly, strong) NSNotificationCenter* notificationCenter;
@property(readonly) BOOL accessibilityDisplayShouldReduceMotion API_AVAILABLE_MACOS(10.12);
- (BOOL)openURL:(NSURL*)url;
@end

FOUNDATION_EXPORT NSNotificationName const NSWorkspaceAccessibilityDisplayOptionsDidChangeNotification;
FOUNDATION_EXPORT NSNotificationName const NSSystemColorsDidChangeNotification;

typedef NSString* NSAppearanceName;
FOUNDATION_EXPORT NSAppearanceName const NSAppearanceNameAqua;
FOUNDATION_EXPORT NSAppearanceName const NSAppearanceNameDarkAqua API_AVAILABLE_MACOS(10.14);

@interface NSAppearance : NSObject
- (nullable NSAppearanceName)bestMatchFromAppearancesWithNames:(NSArray<NSAppearanceName>*)appearances
    API_AVAILABLE_MACOS(10.14);
@end

FOUNDATION_EXPORT NSNotificationName const NSApplicationDidBecomeActiveNotification;
FOUNDATION_EXPORT NSNotificationName const NSApplicationDidResignActiveNotification;

@interface NSApplication : NSObject
@property(class, readonly, strong) NSApplication* sharedApplication;
@property(readonly, getter=isActive) BOOL active;
@property(readonly, strong) NSAppearance* effectiveAppearance API_AVAILABLE_MACOS(10.14);
- (void)activateIgnoringOtherApps:(BOOL)ignoringOtherApps;
- (void)terminate:(nullable id)sender;
@end

@interface NSColorSpace : NSObject
@property(class, readonly, strong) NSColorSpace* sRGBColorSpace;
@end

@interface NSColor : NSObject
@property(class, readonly, strong) NSColor* clearColor;
@property(class, readonly, strong) NSColor* controlAccentColor API_AVAILABLE_MACOS(10.14);
@property(class, readonly, strong) NSColor* secondaryLabelColor;
- (nullable NSColor*)colorUsingColorSpace:(NSColorSpace*)space;
@property(readonly) CGFloat redComponent;
@property(readonly) CGFloat greenComponent;
@property(readonly) CGFloat blueComponent;
@end

typedef NSString* NSFontTextStyle;
FOUNDATION_EXPORT NSFontTextStyle const NSFontTextStyleHeadline;
FOUNDATION_EXPORT NSFontTextStyle const NSFontTextStyleCaption1;
typedef NSString* NSFontTextStyleOptionKey;

@interface NSFont : NSObject
+ (NSFont*)preferredFontForTextStyle:(NSFontTextStyle)style
                             options:(NSDictionary<NSFontTextStyleOptionKey, id>*)options
    API_AVAILABLE_MACOS(11.0);
@end

FOUNDATION_EXPORT NSAttributedStringKey const NSFontAttributeName;
FOUNDATION_EXPORT NSAttributedStringKey const NSForegroundColorAttributeName;

@interface NSMenuItem : NSObject
+ (NSMenuItem*)separatorItem;
- (instancetype)initWithTitle:(NSString*)title
                       action:(nullable SEL)action
                keyEquivalent:(NSString*)keyEquivalent;
@property(nullable, copy) NSAttributedString* attributedTitle;
@property(getter=isEnabled) BOOL enabled;
@property(nullable, weak) id target;
@end

@interface NSMenu : NSObject
@property BOOL autoenablesItems;
- (void)addItem:(NSMenuItem*)item;
- (void)removeAllItems;
@end

@interface NSStatusBarButton : NSObject
@property(nullable, strong) NSImage* image;
@property(copy) NSString* title;
@end

@interface NSStatusItem : NSObject
@property(nullable, readonly, strong) NSStatusBarButton* button;
@property(nullable, strong) NSMenu* menu;
@property(getter=isVisible) BOOL visible;
@end

static const CGFloat NSVariableStatusItemLength = -1.0;

@interface NSStatusBar : NSObject
@property(class, readonly, strong) NSStatusBar* systemStatusBar;
- (NSStatusItem*)statusItemWithLength:(CGFloat)length;
- (void)removeStatusItem:(NSStatusItem*)item;
@end

@class CALayer;
@class NSWindow;

@interface NSResponder : NSObject
@end

typedef NS_OPTIONS(NSUInteger, NSAutoresizingMaskOptions) {
    NSViewWidthSizable = 1 << 1,
    NSViewHeightSizable = 1 << 4,
};

@interface NSView : NSResponder
- (instancetype)initWithFrame:(NSRect)frame;
@property(nullable, readonly, unsafe_unretained) NSWindow* window;
@property NSRect frame;
@property NSAutoresizingMaskOptions autoresizingMask;
- (void)addSubview:(NSView*)view;
@property BOOL wantsLayer;
@property(nullable, strong) CALayer* layer;
@end

typedef NS_ENUM(NSInteger, NSVisualEffectMaterial) {
    NSVisualEffectMaterialWindowBackground = 12,
    NSVisualEffectMaterialHUDWindow = 13,
};
typedef NS_ENUM(NSInteger, NSVisualEffectBlendingMode) {
    NSVisualEffectBlendingModeBehindWindow,
    NSVisualEffectBlendingModeWithinWindow,
};
typedef NS_ENUM(NSInteger, NSVisualEffectState) {
    NSVisualEffectStateFollowsWindowActiveState,
    NSVisualEffectStateActive,
    NSVisualEffectStateInactive,
};

@interface NSVisualEffectView : NSView
@property NSVisualEffectMaterial material;
@property NSVisualEffectBlendingMode blendingMode;
@property NSVisualEffectState state;
@end

@interface NSViewController : NSResponder
@property(strong) NSView* view;
@end

typedef NS_OPTIONS(NSUInteger, NSWindowStyleMask) {
    NSWindowStyleMaskBorderless = 0,
    NSWindowStyleMaskTitled = 1 << 0,
    NSWindowStyleMaskClosable = 1 << 1,
    NSWindowStyleMaskFullSizeContentView = 1 << 15,
};
typedef NS_ENUM(NSUInteger, NSBackingStoreType) { NSBackingStoreBuffered = 2 };
typedef NS_OPTIONS(NSUInteger, NSWindowCollectionBehavior) {
    NSWindowCollectionBehaviorDefault = 0,
    NSWindowCollectionBehaviorCanJoinAllSpaces = 1 << 0,
    NSWindowCollectionBehaviorFullScreenAuxiliary = 1 << 8,
};
typedef NS_OPTIONS(NSUInteger, NSWindowOcclusionState) { NSWindowOcclusionStateVisible = 1UL << 1 };
typedef NS_ENUM(NSInteger, NSWindowTitleVisibility) { NSWindowTitleVisible = 0, NSWindowTitleHidden = 1 };
typedef NSInteger NSWindowLevel;
static const NSWindowLevel NSNormalWindowLevel = 0;
static const NSWindowLevel NSFloatingWindowLevel = 3;

FOUNDATION_EXPORT NSNotificationName const NSWindowDidChangeOcclusionStateNotification;

@interface NSWindow : NSResponder
- (instancetype)initWithContentRect:(NSRect)contentRect
                          styleMask:(NSWindowStyleMask)style
                            backing:(NSBackingStoreType)backing
                              defer:(BOOL)defers;
@property(readonly) BOOL canBecomeKeyWindow;
@property(readonly) BOOL canBecomeMainWindow;
@property NSWindowLevel level;
@property NSWindowCollectionBehavior collectionBehavior;
@property BOOL hasShadow;
@property(getter=isMovableByWindowBackground) BOOL movableByWindowBackground;
@property(getter=isOpaque) BOOL opaque;
@property(null_resettable, copy) NSColor* backgroundColor;
@property(copy) NSString* title;
@property NSWindowTitleVisibility titleVisibility;
@property BOOL titlebarAppearsTransparent;
@property(getter=isReleasedWhenClosed) BOOL releasedWhenClosed;
@property(nullable, strong) NSViewController* contentViewController;
@property(readonly) NSRect frame;
@property(readonly, getter=isVisible) BOOL visible;
@property(readonly) NSWindowOcclusionState occlusionState;
- (void)center;
- (void)setContentSize:(NSSize)size;
- (void)setFrameOrigin:(NSPoint)origin;
- (BOOL)makeFirstResponder:(nullable NSResponder*)responder;
- (void)makeKeyAndOrderFront:(nullable id)sender;
- (void)orderFront:(nullable id)sender;
@end

@interface NSPanel : NSWindow
@property(getter=isFloatingPanel) BOOL floatingPanel;
@end

@interface NSWindowController : NSResponder
- (instancetype)initWithWindow:(nullable NSWindow*)window;
@property(nullable, strong) NSWindow* window;
- (void)showWindow:(nullable id)sender;
- (void)close;
@end

NS_ASSUME_NONNULL_END
