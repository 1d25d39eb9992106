#pragma once

#include <optional>
#include <string>
#include <vector>

#include "Picture.h"
#include "WindowSearch.h"
#include "XConnection.h"

namespace tessel::desktop {

/// A panel at the top left of the screen with a system tray for one icon (freedesktop.org System Tray
/// Protocol, XEmbed). With the end of this object it is gone, and the icon is let go.
class SystemTray {
public:
    struct Look {
        Colour panel{235, 235, 235};
        /// What it says that icons shall be drawn in (`_NET_SYSTEM_TRAY_COLORS`).
        std::optional<Colour> icons = {};
        /// Of an icon, in pixels.
        int iconSide = 24;
        /// Whether it wants icons with an opacity, which it lays over itself (`_NET_SYSTEM_TRAY_VISUAL`).
        bool wantsOpacity = false;
    };

    explicit SystemTray(const std::string& displayName)
        : SystemTray(displayName, Look{})
    {}
    SystemTray(const std::string& displayName, const Look& look);

    /// Waits until an icon has come and is on the screen.
    void awaitIcon();
    /// Waits until the icon has gone by itself.
    void awaitNoIcon();
    /// How many icons have asked to be taken until now.
    int requestCount();
    /// Where the icon is; there must be one.
    Frame iconFrame();
    /// The icon as it has drawn itself, 0xAARRGGBB by rows from the top, multiplied by the opacity. Without a
    /// wish for opacity that byte has no meaning.
    std::vector<std::uint32_t> iconPixels();
    /// What the icon calls itself (`_NET_WM_NAME`).
    std::string iconTitle();
    /// The panel has another colour from now on; the icon is not told.
    void paintPanel(const Colour& colour);

private:
    void createPanel();
    void sayColours();
    void sayVisual();
    void takeOver();
    void readEvents();
    void take(xcb_window_t icon);
    bool isViewable(xcb_window_t window);

    XConnection connection_;
    /// Waiting on a connection drops its events.
    XConnection observer_;
    Look look_;
    xcb_window_t panel_;
    xcb_window_t icon_ = XCB_WINDOW_NONE;
    int requestCount_ = 0;
};

} // namespace tessel::desktop
