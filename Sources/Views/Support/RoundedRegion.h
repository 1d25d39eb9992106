#pragma once

#include <QtCore/QSize>

#include "PixelRectangle.h"

namespace tessel {

/// The pixels of a rectangle with continuous corners that are covered by at least `leastCoverage`, 1 to 255,
/// in as few rectangles as there can be. All lengths are device pixels.
PixelRegion roundedRegion(const QSize& size, double cornerRadius, int leastCoverage);

} // namespace tessel
