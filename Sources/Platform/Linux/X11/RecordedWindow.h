#pragma once

#include <functional>
#include <memory>
#include <optional>

#include "Workspace.h"
#include "X11/ToolkitWindows.h"
#include "X11/UserTime.h"
#include "X11/WindowManager.h"
#include "X11/X11Connection.h"

namespace tessel {

/// A window that had the user's focus. It knows when that window has been closed, so that a new window that
/// is given the same number is never taken for it.
class RecordedWindow : public RunningApplication {
public:
    struct Rooms {
        std::shared_ptr<X11Connection> connection;
        std::shared_ptr<WindowManager> windowManager;
        std::shared_ptr<ToolkitWindows> toolkitWindows;
        std::shared_ptr<UserTime> userTime;
        /// Runs before a window is given the focus. May be absent.
        std::function<void()> willActivate;
    };

    /// `focus` is the window inside `window` that had the focus, or `window` itself. Asks for the process in
    /// the background.
    RecordedWindow(Rooms rooms, xcb_window_t window, xcb_window_t focus);

    /// False once the window has been closed.
    bool activate(ActivationOptions options) override;
    ProcessIdentifier processIdentifier() const override;
    /// `_NET_WM_PID` (EWMH). None: not answered yet, or the window does not say.
    std::optional<std::uint32_t> systemProcess() const { return systemProcess_; }

private:
    void follow(const xcb_generic_event_t& event);

    Rooms rooms_;
    xcb_window_t window_;
    xcb_window_t focus_;
    bool isClosed_ = false;
    std::optional<std::uint32_t> systemProcess_;
    Token selection_;
    Token events_;
    std::shared_ptr<void> lifetime_ = std::make_shared<char>();
};

} // namespace tessel
