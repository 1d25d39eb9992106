#pragma once

#include <QtCore/QRectF>

namespace tessel {

/// A rounded rectangle, in points.
struct FocusOutline {
    QRectF rectangle;
    double radius = 0;
};

/// A control around which a `FocusRing` is drawn while it has the keyboard focus.
class HasFocusOutline {
public:
    virtual ~HasFocusOutline() = default;
    /// What the ring is drawn around, in the control's coordinates.
    virtual FocusOutline focusOutline() const = 0;
};

} // namespace tessel
