#pragma once

#include <functional>
#include <string>
#include <vector>

#include "ChildProcess.h"
#include "Desktop.h"
#include "SelectionWatch.h"

namespace tessel::desktop {

/// How an application is started, recognised and worked by its keys.
struct ApplicationDescription {
    std::vector<std::string> command;
    /// Beside those of the desktop.
    Environment variables;
    /// True for its main window once that can be worked with.
    WindowCondition isReady;
    std::function<void(Keyboard&)> pressCopyKeys;
    std::function<void(Keyboard&)> pressQuitKeys;
};

/// A real application on the desktop.
class Application {
public:
    /// Starts it, and returns when its window is ready and has the keyboard focus.
    Application(Desktop& desktop, ApplicationDescription description);

    /// Gives it the keyboard focus, as a click on a task bar does.
    void activate();
    /// Its main window, as it is now.
    WindowFacts window() const;
    /// Waits until the title of its main window contains this.
    void waitForTitle(const std::string& part);

    /// Presses its keys for copying, and returns when it owns the clipboard.
    void copy();
    /// Presses its keys for quitting, and returns when its process and the window that owned its clipboard
    /// are gone.
    void quit();

private:
    bool windowExists(xcb_window_t window) const;

    Desktop& desktop_;
    ApplicationDescription description_;
    ChildProcess process_;
    SelectionWatch clipboard_;
    WindowFacts window_;
    xcb_window_t selectionWindow_ = XCB_WINDOW_NONE;
};

} // namespace tessel::desktop
