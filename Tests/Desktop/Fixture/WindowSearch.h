#pragma once

#include <sys/types.h>

#include <array>
#include <cstdint>
#include <functional>
#include <optional>
#include <string>
#include <vector>

#include "Deadline.h"
#include "XConnection.h"

namespace tessel::desktop {

/// A rectangle in pixels, from the top left of the screen.
struct Frame {
    int x = 0;
    int y = 0;
    int width = 0;
    int height = 0;

    bool operator==(const Frame&) const = default;
    std::string description() const;
};

/// What can be seen of a client's top-level window from the outside.
struct WindowFacts {
    xcb_window_t window = XCB_WINDOW_NONE;
    /// `WM_CLASS` (ICCCM section 4.1.2.5).
    std::string instanceName;
    std::string className;
    /// `_NET_WM_NAME`, or `WM_NAME` where there is none.
    std::string title;
    /// `_NET_WM_PID` (EWMH); none where it is not set.
    std::optional<pid_t> processIdentifier;
    bool isViewable = false;
    Frame frame;
};

using WindowCondition = std::function<bool(const WindowFacts&)>;

/// Finds the windows of programs, by what they say about themselves.
class WindowSearch {
public:
    explicit WindowSearch(XConnection& connection);

    /// Every client's window with a `WM_CLASS`, from the bottom of the stack to its top.
    std::vector<WindowFacts> all() const;
    std::optional<WindowFacts> find(const WindowCondition& condition) const;
    /// None if the window does not exist any more.
    std::optional<WindowFacts> facts(xcb_window_t window) const;

    WindowFacts waitFor(const std::string& awaited, const WindowCondition& condition,
                        Deadline deadline = Deadline()) const;
    void waitUntilNone(const std::string& awaited, const WindowCondition& condition,
                       Deadline deadline = Deadline()) const;

    /// The window that the window manager calls active (`_NET_ACTIVE_WINDOW`, EWMH), or none.
    xcb_window_t activeWindow() const;
    /// The window that has the keyboard focus.
    xcb_window_t focusWindow() const;
    /// True if `window` or a window inside it has the keyboard focus.
    bool hasFocus(xcb_window_t window) const;
    /// Makes the window manager activate a window, as a task bar does, and returns when it is active. Where
    /// there is no window manager it gets the focus itself.
    void activate(xcb_window_t window) const;
    /// Asks the window manager to give a window the whole screen (EWMH, `_NET_WM_STATE_FULLSCREEN`), and
    /// returns when it has it.
    void makeFullScreen(xcb_window_t window) const;
    /// Asks the window manager to move a window without decoration there.
    void move(xcb_window_t window, int x, int y) const;
    /// Asks the window manager to make an icon of a window, as its user would (ICCCM section 4.1.4).
    void minimise(xcb_window_t window) const;
    /// The names of the atoms in a property such as `_NET_WM_STATE`.
    std::vector<std::string> atomNames(xcb_window_t window, std::string_view property) const;

private:
    void requestOfWindowManager(xcb_window_t window, std::string_view request,
                                const std::array<std::uint32_t, 5>& details) const;
    void collect(xcb_window_t parent, int depth, std::vector<WindowFacts>& found) const;

    XConnection& connection_;
};

/// Conditions for searches.
WindowCondition hasTitle(std::string title);
WindowCondition isViewableWithTitle(std::string title);
WindowCondition isViewableWindowOf(pid_t process);

} // namespace tessel::desktop
