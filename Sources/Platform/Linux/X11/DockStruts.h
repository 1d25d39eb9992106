#pragma once

#include <map>
#include <memory>
#include <optional>
#include <vector>

#include "Token.h"
#include "X11/Struts.h"
#include "X11/WindowManager.h"
#include "X11/X11Connection.h"

namespace tessel {

/// What the docks of the desktop reserve, known at any time without asking. Only docks are watched: the
/// windows of other programs change their properties all day long.
///
/// Docks are found in the window manager's list of windows. Tiling window managers leave them out of it, and
/// without a window manager there is no list: there every window that comes onto the screen is looked at
/// once.
class DockStruts {
public:
    DockStruts(std::shared_ptr<X11Connection> connection, std::shared_ptr<WindowManager> windowManager);

    std::vector<Strut> struts() const;

private:
    struct Window {
        bool isListed = false; ///< By the window manager.
        bool isDock = false;
        std::vector<std::uint32_t> partial;
        std::vector<std::uint32_t> whole;
        Token selection;
    };

    void follow(const xcb_generic_event_t& event);
    void followProperty(const xcb_property_notify_event_t& changed);
    void followManager();
    /// Looks at the windows inside `parent`, and at those inside them as far as `depth` says: a window
    /// manager puts a window into a frame of its own.
    void search(xcb_window_t parent, int depth);
    void consider(xcb_window_t window);
    void refreshClientList();
    void adoptClientList(const xcb_get_property_reply_t* reply);
    void refreshWindow(xcb_window_t window);
    void refreshEveryWindow();
    void requestUnits(xcb_window_t window, xcb_atom_t property,
                      std::function<void(Window&, std::vector<std::uint32_t>)> adopt);
    /// Forgets a window that is of no interest and on no list.
    void watchIfDock(xcb_window_t window, Window& entry);

    std::shared_ptr<X11Connection> connection_;
    std::shared_ptr<WindowManager> windowManager_;
    std::map<xcb_window_t, Window> windows_;
    Token events_;
    Token manager_;
    Token everyWindow_; ///< Set while docks have to be found without a list.
    std::shared_ptr<void> lifetime_ = std::make_shared<char>();
};

} // namespace tessel
