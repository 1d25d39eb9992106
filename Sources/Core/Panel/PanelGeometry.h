#pragma once

#include <cstddef>
#include <optional>
#include <vector>

#include "Geometry.h"
#include "Screens.h"

namespace tessel {

/// The content size of the panel for a number of entries, in points.
Size panelContentSize(std::size_t entryCount);

/// The origin of a panel of that size beside the pointer: 12 points right of it, its top edge 12 points
/// below, moved inside the visible frame. Where it does not fit, its right and top edges do.
Point panelOrigin(Point pointer, Size panel, const Rect& visibleFrame);

/// True when the pointer is on the rectangle (`NSMouseInRect`, not flipped): the left and top edges belong to
/// it, the right and bottom edges do not.
bool mouseInRect(Point pointer, const Rect& rect);

/// The first screen whose whole frame contains the pointer, else none.
std::optional<Screen> screenContaining(Point pointer, const std::vector<Screen>& screens);

/// The screen on which windows open: the first that contains the pointer, else the main screen, else none.
std::optional<Screen> screenInUse(Point pointer, const std::vector<Screen>& screens,
                                  const std::optional<Screen>& mainScreen);

} // namespace tessel
