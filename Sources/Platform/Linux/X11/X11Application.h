#pragma once

#include <memory>

#include "Application.h"
#include "ObserverList.h"
#include "Token.h"
#include "X11/ToolkitWindows.h"
#include "X11/WindowManager.h"
#include "X11/X11Connection.h"
#include "X11/X11NativeWindows.h"

namespace tessel {

/// This application as the X server sees it. The toolkit's own notion of being active does not serve: it
/// takes the grab of a hot key for a loss of the focus.
class X11Application : public Application {
public:
    X11Application(std::shared_ptr<X11Connection> connection, std::shared_ptr<WindowManager> windowManager,
                   std::shared_ptr<ToolkitWindows> toolkitWindows,
                   std::shared_ptr<X11NativeWindows> nativeWindows);

    /// Asks for the focus for the window that was shown most recently. Without a window there is nothing to
    /// do: no window of ours could have the focus.
    void activate(IgnoringOtherApps ignoring) override;
    void terminate() override;
    /// From the first `terminate` on.
    bool isEnding() const { return isEnding_; }
    /// True while the active window, or the window with the focus, is ours.
    bool isActive() const override { return isActive_; }
    Token observeActivity(std::function<void()> didChange) override;

private:
    bool hasActiveWindow() const;
    void update();
    /// Asks the server before the application counts as inactive, which may hide a window: the two
    /// connections that tell about the focus may lag behind each other.
    void confirmInactive();
    void adopt(bool isActive);

    std::shared_ptr<X11Connection> connection_;
    std::shared_ptr<WindowManager> windowManager_;
    std::shared_ptr<ToolkitWindows> toolkitWindows_;
    std::shared_ptr<X11NativeWindows> nativeWindows_;
    bool isEnding_ = false;
    bool isActive_ = false;
    ObserverList<> observers_;
    Token activeWindow_;
    Token focus_;
    /// Of the question on its way to the server, which is forgotten with this.
    std::shared_ptr<void> confirmation_;
};

} // namespace tessel
