#pragma once

#import <AppKit/AppKit.h>

#include "NativeWindows.h"

namespace tessel {

/// The view behind a handle, which somebody else owns.
inline NSView* _Nonnull nativeView(NativeWindowHandle handle)
{
    return (__bridge NSView*)reinterpret_cast<void*>(handle);
}

} // namespace tessel
