#pragma once

#include <CoreGraphics/CoreGraphics.h>

typedef unsigned char Boolean;

extern "C" {
Boolean AXIsProcessTrusted(void);
Boolean AXIsProcessTrustedWithOptions(CFDictionaryRef _Nullable options);
extern const CFStringRef _Nonnull kAXTrustedCheckOptionPrompt;
}
