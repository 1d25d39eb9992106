#pragma once

#include <QtCore/QRectF>
#include <QtCore/Qt>

namespace tessel {

/// Where a rectangle lies that has been laid out from left to right within `bounds`: there, or mirrored where
/// the interface runs from right to left. What `QStyle::visualRect` is for whole points.
QRectF visualRectangle(Qt::LayoutDirection direction, const QRectF& bounds, const QRectF& rectangle);

} // namespace tessel
