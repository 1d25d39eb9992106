#pragma once

#include <sys/types.h>

#include <optional>

#include "Desktop.h"

namespace tessel::desktop {

/// The history panel of a running program, as it is seen from the outside.
class Panel {
public:
    /// In points.
    static constexpr int width = 460;

    Panel(Desktop& desktop, pid_t program);

    /// None while it is not on the screen.
    std::optional<WindowFacts> find() const;
    bool isOpen() const { return find().has_value(); }
    /// Waits until it is on the screen, painted, and has the keyboard focus.
    WindowFacts waitUntilOpen(Deadline deadline = Deadline());
    void waitUntilClosed(Deadline deadline = Deadline());
    WindowFacts waitForHeight(int height, Deadline deadline = Deadline());
    WindowFacts waitForFrame(const Frame& frame, Deadline deadline = Deadline());
    /// Waits until it shows something else than `before`.
    void waitUntilItDiffersFrom(const Picture& before, Deadline deadline = Deadline());
    void waitUntilItIs(const Picture& expected, Deadline deadline = Deadline());
    /// What is to be seen where it is; it must be open and inside the screen.
    Picture picture() const;

    /// The panel's height for a number of entries, in points.
    static int heightFor(std::size_t entryCount);
    /// The panel's frame beside a pointer, inside what is visible of a screen. With a scale that is not whole
    /// its edges may lie a pixel off.
    static Frame frameBeside(Place pointer, std::size_t entryCount, const Frame& visible, double scale = 1);
    /// The same on a screen without docks.
    static Frame frameBeside(Place pointer, std::size_t entryCount, Extent screen);

private:
    bool isPainted() const;

    Desktop& desktop_;
    pid_t program_;
};

} // namespace tessel::desktop
