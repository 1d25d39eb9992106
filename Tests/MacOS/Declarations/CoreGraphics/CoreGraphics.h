#pragma once

#include <sys/types.h>

#include <Foundation/Foundation.h>

typedef struct __CGEvent* CGEventRef;
typedef struct __CGEventSource* CGEventSourceRef;
typedef uint16_t CGKeyCode;

enum CGEventSourceStateID : int32_t {
    kCGEventSourceStatePrivate = -1,
    kCGEventSourceStateCombinedSessionState = 0,
    kCGEventSourceStateHIDSystemState = 1
};

enum CGEventTapLocation : uint32_t { kCGHIDEventTap = 0, kCGSessionEventTap, kCGAnnotatedSessionEventTap };

enum CGEventFlags : uint64_t {
    kCGEventFlagMaskShift = 0x00020000,
    kCGEventFlagMaskControl = 0x00040000,
    kCGEventFlagMaskAlternate = 0x00080000,
    kCGEventFlagMaskCommand = 0x00100000
};

extern "C" {
CFDictionaryRef _Nullable CGSessionCopyCurrentDictionary(void);
CGEventSourceRef _Nullable CGEventSourceCreate(CGEventSourceStateID state);
CGEventRef _Nullable CGEventCreateKeyboardEvent(CGEventSourceRef _Nullable source, CGKeyCode keyCode,
                                                bool keyDown);
void CGEventSetFlags(CGEventRef _Nullable event, CGEventFlags flags);
void CGEventPostToPid(pid_t process, CGEventRef _Nullable event);
void CGEventPost(CGEventTapLocation location, CGEventRef _Nullable event);
}

typedef struct CGImage* CGImageRef;
typedef struct CGColorSpace* CGColorSpaceRef;
typedef struct CGContext* CGContextRef;

enum CGImageAlphaInfo : uint32_t { kCGImageAlphaPremultipliedFirst = 2 };
enum CGBitmapInfo : uint32_t { kCGBitmapByteOrder32Little = 2 << 12 };
enum CGInterpolationQuality : int32_t { kCGInterpolationHigh = 3, kCGInterpolationMedium = 4 };

extern "C" {
extern const CFStringRef _Nonnull kCGColorSpaceSRGB;
size_t CGImageGetWidth(CGImageRef _Nullable image);
size_t CGImageGetHeight(CGImageRef _Nullable image);
CGColorSpaceRef _Nullable CGColorSpaceCreateWithName(CFStringRef _Nullable name);
void CGColorSpaceRelease(CGColorSpaceRef _Nullable space);
CGContextRef _Nullable CGBitmapContextCreate(void* _Nullable data, size_t width, size_t height,
                                             size_t bitsPerComponent, size_t bytesPerRow,
                                             CGColorSpaceRef _Nullable space, uint32_t bitmapInfo);
void CGContextSetInterpolationQuality(CGContextRef _Nullable context, CGInterpolationQuality quality);
void CGContextDrawImage(CGContextRef _Nullable context, CGRect rectangle, CGImageRef _Nullable image);
void CGContextRelease(CGContextRef _Nullable context);
}
