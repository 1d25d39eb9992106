#pragma once

#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "ObserverList.h"
#include "StatusItem.h"
#include "X11/TrayIcon.h"
#include "X11/UserTime.h"
#include "X11/X11Connection.h"

namespace tessel {

/// The status item in a system tray of X11 (freedesktop.org System Tray Protocol). It appears in each tray
/// that comes, and leaves the menu to `StatusItemDescription::openMenu`, which a press of any button calls.
/// The item goes with this object.
class TrayStatusItem final : public StatusItem {
public:
    /// Notes in `userTime` when the item is clicked.
    TrayStatusItem(std::shared_ptr<X11Connection> connection, std::shared_ptr<UserTime> userTime);
    ~TrayStatusItem() override;

    void show(StatusItemDescription description) override;
    /// The menu is opened by `openMenu`, which knows its rows.
    void setMenu(std::vector<StatusMenuRow>) override {}
    bool isShown() const override;
    Token observe(std::function<void()> didChange) override;

private:
    void follow(const xcb_generic_event_t& event);
    void lookForTray();
    void consider(xcb_window_t window);
    void dock(const Tray& tray, const xcb_render_query_pict_formats_reply_t& formats);
    void leaveTray();
    void openMenu(const xcb_button_press_event_t& press);

    std::shared_ptr<X11Connection> connection_;
    std::shared_ptr<UserTime> userTime_;
    StatusItemDescription description_;
    ObserverList<> observers_;
    xcb_window_t tray_ = noWindow;
    std::unique_ptr<TrayIcon> icon_;
    Token traySelection_;
    Token events_;
    std::shared_ptr<void> lifetime_ = std::make_shared<char>();
};

} // namespace tessel
