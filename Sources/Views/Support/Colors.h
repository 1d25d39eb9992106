#pragma once

#include <QtGui/QColor>

namespace tessel {

/// White or black at an opacity, 0 to 1.
inline QColor white(double opacity)
{
    return QColor::fromRgbF(1, 1, 1, static_cast<float>(opacity));
}
inline QColor black(double opacity)
{
    return QColor::fromRgbF(0, 0, 0, static_cast<float>(opacity));
}

} // namespace tessel
