#pragma once

#include <optional>

#include <QtCore/QPointF>
#include <QtCore/QRectF>

#include "Geometry.h"

/// The one place where the seam's global points (origin at the bottom left of the main screen, y growing
/// upwards) meet the toolkit's (origin at the top left, y growing downwards). The main screen is the
/// toolkit's primary screen.
namespace tessel::screenSpace {

/// Where the seam's origin lies in the toolkit's space. None: there is no screen.
std::optional<QPointF> originOfSeam();

Point toSeam(QPointF point, QPointF originOfSeam);
Rect toSeam(const QRectF& rectangle, QPointF originOfSeam);

/// The same for a window, which lies on whole points: what falls between them is rounded. Without a screen
/// the two origins are one.
QRect toToolkit(const Rect& frame);
Rect toSeam(const QRect& frame);

} // namespace tessel::screenSpace
