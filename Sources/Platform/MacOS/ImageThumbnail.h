#pragma once

#import <AppKit/AppKit.h>

#include "Thumbnail.h"

namespace tessel {

/// The image scaled to fill the thumbnail, and cropped to its centre. No pixels: it has no picture, or one
/// without an extent.
Thumbnail drawThumbnail(NSImage* _Nonnull image);

} // namespace tessel
