#pragma once

#include <cstdint>
#include <functional>
#include <memory>
#include <optional>

#include <QtCore/QTimer>

#include "StatusItem.h"
#include "X11/PictureFormats.h"
#include "X11/ScreenPictures.h"
#include "X11/X11Connection.h"

namespace tessel {

/// What a system tray says about itself.
struct Tray {
    xcb_window_t window = noWindow;
    /// Of the windows that it takes (`_NET_SYSTEM_TRAY_VISUAL`). 0: it does not say.
    xcb_visualid_t visual = 0;
    /// None: it does not say.
    std::optional<ColorScheme> scheme;
};

/// An icon in a system tray: a window of ours that the tray takes into its own, of the size that the tray
/// gives it (freedesktop.org System Tray Protocol, XEmbed). It goes with this object.
class TrayIcon {
public:
    struct Handlers {
        std::function<void()> embeddingDidChange;
        /// A button went down, at a place in pixels of the root window.
        std::function<void(const xcb_button_press_event_t&)> clicked;
    };

    /// Asks the tray to take the icon. The server has RENDER, and these formats of pictures. `time` is that
    /// of the user's last action.
    TrayIcon(std::shared_ptr<X11Connection> connection, const Tray& tray,
             const xcb_render_query_pict_formats_reply_t& formats, const StatusItemDescription& description,
             xcb_timestamp_t time, Handlers handlers);
    ~TrayIcon();
    TrayIcon(const TrayIcon&) = delete;
    TrayIcon& operator=(const TrayIcon&) = delete;

    /// True while the tray has the icon.
    bool isEmbedded() const { return isEmbedded_; }

private:
    void createWindow(xcb_visualid_t visual);
    void describeWindow(const std::string& title);
    void askToDock(xcb_timestamp_t time);
    void follow(const xcb_generic_event_t& event);
    void setEmbedded(bool isEmbedded);
    /// Draws the icon on what the panel looks like now, and looks whether it is to be bright or dark there.
    void refresh();
    void lookAround();
    void adoptScheme(const ScreenPicture& picture);
    void paint();
    void composite(const StatusIcon& icon);
    xcb_pixmap_t upload(const StatusIcon& icon);

    std::shared_ptr<X11Connection> connection_;
    Tray tray_;
    std::function<StatusIcon(int pixels, ColorScheme panel)> drawIcon_;
    Handlers handlers_;
    ScreenPictures screenPictures_;
    PictureFormat windowFormat_;
    PictureFormat colorFormat_;
    xcb_window_t window_ = noWindow;
    xcb_colormap_t colormap_ = XCB_NONE;
    std::uint16_t width_;
    std::uint16_t height_;
    bool isEmbedded_ = false;
    std::optional<ColorScheme> scheme_;
    /// A compositing manager shows what is around the icon later than the server tells us to draw it.
    QTimer lookAgain_;
    Token selection_;
    Token events_;
    std::shared_ptr<void> lifetime_ = std::make_shared<char>();
};

} // namespace tessel
