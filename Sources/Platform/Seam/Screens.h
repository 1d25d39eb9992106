#pragma once

#include <optional>
#include <vector>

#include "Geometry.h"

namespace tessel {

/// One screen (`NSScreen`).
struct Screen {
    Rect frame;        ///< The whole screen.
    Rect visibleFrame; ///< The screen less menu bars, docks and panels.
};

/// The screens and the pointer, in global points.
class Screens {
public:
    virtual ~Screens() = default;

    /// In the system's order.
    virtual std::vector<Screen> screens() const = 0;
    /// The screen with the keyboard focus. None: there is no screen.
    virtual std::optional<Screen> mainScreen() const = 0;
    /// `NSEvent.mouseLocation`.
    virtual Point mouseLocation() const = 0;
};

} // namespace tessel
