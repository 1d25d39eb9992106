#pragma once

#include <QtCore/QRect>

#include "Geometry.h"

/// The one place where the seam's global points (origin at the bottom left of the main screen, y growing
/// upwards) meet the toolkit's (origin at the top left, y growing downwards). What falls between whole points
/// is rounded.
namespace tessel::screenSpace {

QRect toToolkit(const Rect& rectangle);
Rect fromToolkit(const QRect& rectangle);

} // namespace tessel::screenSpace
