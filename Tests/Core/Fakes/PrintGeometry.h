#pragma once

#include <ostream>

#include "Geometry.h"

namespace tessel {

/// How a failed comparison shows a location.
inline void PrintTo(const Point& point, std::ostream* stream) // NOLINT(readability-identifier-naming)
{
    *stream << "(" << point.x << ", " << point.y << ")";
}

/// How a failed comparison shows an extent.
inline void PrintTo(const Size& size, std::ostream* stream) // NOLINT(readability-identifier-naming)
{
    *stream << size.width << " x " << size.height;
}

/// How a failed comparison shows a rectangle.
inline void PrintTo(const Rect& rect, std::ostream* stream) // NOLINT(readability-identifier-naming)
{
    PrintTo(rect.size, stream);
    *stream << " at ";
    PrintTo(rect.origin, stream);
}

} // namespace tessel
