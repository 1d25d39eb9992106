#pragma once

#include <sys/types.h>

#include <optional>
#include <string>

#include "Desktop.h"

namespace tessel::desktop {

/// A window of a running program, known by its title, as it is seen from the outside.
class ProgramWindow {
public:
    ProgramWindow(Desktop& desktop, pid_t program, std::string title);

    /// None while it is not on the screen.
    std::optional<WindowFacts> find() const;
    bool isOpen() const { return find().has_value(); }
    /// Waits until it is on the screen and has the keyboard focus.
    WindowFacts waitUntilOpen(Deadline deadline = Deadline());
    /// Waits until it is on the screen in that place, wherever the focus is.
    WindowFacts waitForFrame(const Frame& frame, Deadline deadline = Deadline());
    /// Puts its top left corner there, as a user with a window manager does, and waits until it is there.
    WindowFacts moveTo(Place place);
    /// Waits until it is on the screen and has the application's icon, in all its sizes, for task bars (EWMH
    /// `_NET_WM_ICON`).
    void waitForIcon(Deadline deadline = Deadline());
    void waitUntilClosed(Deadline deadline = Deadline());
    /// Asks it to close, as the button of a window manager does (ICCCM section 4.2.8.1, `WM_DELETE_WINDOW`).
    void askToClose();
    /// What is to be seen where it is; it must be open and inside the screen.
    Picture picture() const;
    /// Waits until it shows something else than `before`.
    void waitUntilItDiffersFrom(const Picture& before, Deadline deadline = Deadline());
    /// How many windows with its title the program has on the screen.
    std::size_t count() const;

    /// The frame of a window of that size, in points, in the middle of what is visible of a screen.
    static Frame centered(Extent size, const Frame& visible, double scale = 1);

private:
    bool isIt(const WindowFacts& window) const;

    Desktop& desktop_;
    pid_t program_;
    std::string title_;
};

} // namespace tessel::desktop
