#pragma once

#include "Geometry.h"

namespace tessel {

/// The origin of a window of that size in the middle of a screen's visible frame, on whole points. Where it
/// does not fit, its top left corner does.
Point centeredOrigin(Size window, const Rect& visibleFrame);

} // namespace tessel
