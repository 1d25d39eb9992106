#pragma once

#include <map>
#include <memory>
#include <optional>
#include <vector>

#include "Token.h"
#include "X11/Struts.h"
#include "X11/X11Connection.h"

namespace tessel {

/// What the docks of the desktop reserve, known at any time without asking. Only docks are watched: the
/// windows of other programs change their properties all day long.
class DockStruts {
public:
    explicit DockStruts(std::shared_ptr<X11Connection> connection);

    std::vector<Strut> struts() const;

private:
    struct Window {
        bool isDock = false;
        std::vector<std::uint32_t> partial;
        std::vector<std::uint32_t> whole;
        Token selection;
    };

    void follow(const xcb_generic_event_t& event);
    void refreshClientList();
    void adoptClientList(const xcb_get_property_reply_t* reply);
    void refreshWindow(xcb_window_t window);
    void refreshEveryWindow();
    void requestUnits(xcb_window_t window, xcb_atom_t property,
                      std::function<void(Window&, std::vector<std::uint32_t>)> adopt);
    void watchIfDock(xcb_window_t window, Window& entry);

    std::shared_ptr<X11Connection> connection_;
    std::map<xcb_window_t, Window> windows_;
    Token events_;
    std::shared_ptr<void> lifetime_ = std::make_shared<char>();
};

} // namespace tessel
