#pragma once

#include <functional>
#include <memory>
#include <string>
#include <vector>

#include "Workspace.h"
#include "X11/OpenCommand.h"
#include "X11/ToolkitWindows.h"
#include "X11/UserTime.h"
#include "X11/WindowManager.h"
#include "X11/X11Connection.h"

namespace tessel {

/// The user's windows. An application stands for the one window of it that had the focus: a process
/// identifier is that window's number, because on X11 a process may have many windows and the user means one
/// of them.
class X11Workspace : public Workspace {
public:
    /// Starts a program that goes on by itself.
    using Launcher = std::function<void(const OpenCommand&)>;

    X11Workspace(std::shared_ptr<X11Connection> connection, std::shared_ptr<WindowManager> windowManager,
                 std::shared_ptr<ToolkitWindows> toolkitWindows, std::shared_ptr<UserTime> userTime,
                 Launcher launcher = launchDetached, std::function<void()> willActivate = {});

    /// One round trip where a window manager maintains the active window; without one, one for each window
    /// that the focus lies in.
    std::shared_ptr<RunningApplication> frontmostApplication() override;
    /// Web, mail and file addresses go to `xdg-open`. The address of a settings page opens the desktop's own
    /// page where it has one. Nothing else is opened.
    void openURL(std::string_view url) override;

    static void launchDetached(const OpenCommand& command);

private:
    struct FrontWindow {
        xcb_window_t window = noWindow;
        xcb_window_t focus = noWindow; ///< Inside `window`, or the same.
    };

    std::optional<FrontWindow> frontWindow();
    std::optional<FrontWindow> frontWindowByFocus();
    xcb_window_t clientWindowIn(const std::vector<xcb_window_t>& ancestry);

    std::shared_ptr<X11Connection> connection_;
    std::shared_ptr<WindowManager> windowManager_;
    std::shared_ptr<ToolkitWindows> toolkitWindows_;
    std::shared_ptr<UserTime> userTime_;
    Launcher launcher_;
    std::function<void()> willActivate_;
};

} // namespace tessel
