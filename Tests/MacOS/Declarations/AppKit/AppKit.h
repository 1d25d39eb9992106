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
                          accessibilityDescription:(nullable NSString*)description
    API_AVAILABLE_MACOS(11.0);
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
- (BOOL)openURL:(NSURL*)url;
@end

FOUNDATION_EXPORT NSNotificationName const NSApplicationDidBecomeActiveNotification;
FOUNDATION_EXPORT NSNotificationName const NSApplicationDidResignActiveNotification;

@interface NSApplication : NSObject
@property(class, readonly, strong) NSApplication* sharedApplication;
@property(readonly, getter=isActive) BOOL active;
- (void)activateIgnoringOtherApps:(BOOL)ignoringOtherApps;
- (void)terminate:(nullable id)sender;
@end

@interface NSColor : NSObject
@property (class, readonly, strong) NSColor* secondaryLabelColor;
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
@property (nullable, copy) NSAttributedString* attributedTitle;
@property (getter=isEnabled) BOOL enabled;
@property (nullable, weak) id target;
@end

@interface NSMenu : NSObject
@property BOOL autoenablesItems;
- (void)addItem:(NSMenuItem*)item;
- (void)removeAllItems;
@end

@interface NSStatusBarButton : NSObject
@property (nullable, strong) NSImage* image;
@property (copy) NSString* title;
@end

@interface NSStatusItem : NSObject
@property (nullable, readonly, strong) NSStatusBarButton* button;
@property (nullable, strong) NSMenu* menu;
@property (getter=isVisible) BOOL visible;
@end

static const CGFloat NSVariableStatusItemLength = -1.0;

@interface NSStatusBar : NSObject
@property (class, readonly, strong) NSStatusBar* systemStatusBar;
- (NSStatusItem*)statusItemWithLength:(CGFloat)length;
- (void)removeStatusItem:(NSStatusItem*)item;
@end

NS_ASSUME_NONNULL_END
