#pragma once

#import <AppKit/AppKit.h>

#include "AppKitImage.h"

namespace tessel {

/// The image object behind the plain C++ type.
struct AppKitImage::Native {
    NSImage* _Nonnull image;
};

} // namespace tessel
