#pragma once

#include <functional>
#include <memory>
#include <optional>

#include "Support/ObserverList.h"
#include "Token.h"
#include "X11/X11Connection.h"

namespace tessel {

/// The window manager, as EWMH shows it, and followed as it comes and goes.
class WindowManager {
public:
    /// Asks who is there: two round trips.
    explicit WindowManager(std::shared_ptr<X11Connection> connection);

    /// True while a window manager runs that maintains `_NET_ACTIVE_WINDOW` and takes requests for it (EWMH
    /// section 3).
    bool maintainsActiveWindow() const { return checkWindow_ != noWindow && supportsActiveWindow_; }
    /// True while a window manager runs that announces what docks leave of the screen (EWMH,
    /// `_NET_WORKAREA`), and so lists the docks among its windows.
    bool maintainsWorkArea() const { return checkWindow_ != noWindow && supportsWorkArea_; }
    /// The active window as last announced, without asking. None: no window is active, or nobody maintains
    /// it.
    std::optional<xcb_window_t> activeWindow() const;
    /// The active window at this moment: one round trip.
    std::optional<xcb_window_t> currentActiveWindow();
    /// Runs after `activeWindow` or `maintainsActiveWindow` has changed.
    Token observeActiveWindow(std::function<void()> didChange);
    /// Runs after a window manager has come or gone, or has changed what it maintains.
    Token observeManager(std::function<void()> didChange);

private:
    void follow(const xcb_generic_event_t& event);
    void refreshManager();
    void refreshActiveWindow();
    void verifyCheckWindow(xcb_window_t candidate);
    void adoptCheckWindow(xcb_window_t window);
    void adoptSupported(const xcb_get_property_reply_t* reply);
    void adoptActiveWindow(xcb_window_t window);
    xcb_get_property_cookie_t requestRootProperty(xcb_atom_t property);

    std::shared_ptr<X11Connection> connection_;
    xcb_window_t checkWindow_ = noWindow;
    bool supportsActiveWindow_ = false;
    bool supportsWorkArea_ = false;
    xcb_window_t activeWindow_ = noWindow;
    ObserverList<> observers_;
    ObserverList<> managerObservers_;
    Token checkWindowEvents_;
    Token events_;
    std::shared_ptr<void> lifetime_ = std::make_shared<char>();
};

} // namespace tessel
