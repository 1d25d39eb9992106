#pragma once

#include "Geometry.h"

namespace tessel {

/// Owns one window (`NSWindowController`). Destroying the controller hides its window at once and deletes it
/// on the next turn of the main loop, so that a view may close its own window from inside a handler.
class WindowController {
public:
    virtual ~WindowController() = default;

    /// False once the controller has lost its window.
    virtual bool hasWindow() const = 0;
    /// True while the window is on screen; false also when the system has hidden it.
    virtual bool isWindowVisible() const = 0;
    /// `showWindow:`
    virtual void showWindow() = 0;
    virtual void close() = 0;
};

/// The controller of the history panel, with what the panel's placement needs of its window.
class PanelController : public WindowController {
public:
    virtual void setContentSize(Size size) = 0;
    virtual Rect frame() const = 0;
    virtual void setFrameOrigin(Point origin) = 0;
    virtual void makeKeyAndOrderFront() = 0;
};

} // namespace tessel
