#pragma once

#include <array>
#include <functional>
#include <map>
#include <memory>
#include <optional>
#include <set>
#include <span>

#include <QtCore/QPoint>

#include "NativeWindows.h"
#include "Support/ObserverList.h"
#include "Token.h"
#include "X11/ScreenPictures.h"
#include "X11/ToolkitWindows.h"
#include "X11/UserTime.h"
#include "X11/WindowManager.h"
#include "X11/X11Connection.h"

namespace tessel {

/// Our windows as window managers see them (ICCCM section 4, EWMH section 5).
class X11NativeWindows : public NativeWindows {
public:
    X11NativeWindows(std::shared_ptr<X11Connection> connection, std::shared_ptr<WindowManager> windowManager,
                     std::shared_ptr<ToolkitWindows> toolkitWindows, std::shared_ptr<UserTime> userTime);

    void preparePanel(NativeWindowHandle window, const PanelTraits& traits) override;
    /// May be called right after the window has been shown, before it is on screen.
    void makeKeyAndOrderFront(NativeWindowHandle window) override;
    void orderFront(NativeWindowHandle window) override;
    /// By the server's VisibilityNotify events. The server calls no window covered whose visual has opacity,
    /// and none under a compositing manager, which puts the screen together by itself.
    Token observeOcclusion(NativeWindowHandle window, std::function<void(bool isCovered)> didChange) override;
    /// True from a request of the focus for a window that is not on screen yet until it is.
    bool isAboutToTakeFocus() const { return wantsFocus_ && toolkitWindows_->isShown(*wantsFocus_); }
    /// Known at any time without asking.
    bool blendsTranslucentWindows() const override { return compositingManager_ != noWindow; }
    Token observeBlending(std::function<void()> didChange) override;
    /// Known at any time without asking.
    bool blursBehindWindows() const override { return blendsTranslucentWindows() && announcesBlur_; }
    void blurBehind(NativeWindowHandle window, const PixelRegion& region) override;
    void cutToShape(NativeWindowHandle window, const PixelRegion& shape) override;
    std::vector<ScreenPicture> picturesOfScreen(NativeWindowHandle window,
                                                std::span<const ScreenPictureRequest> requests) override;

private:
    void followCompositingManager();
    void followBlur();
    /// Waits for the server once: the panel may be shown before the loop runs for the first time.
    void learnWhatIsThere();
    struct Panel {
        PanelTraits traits;
        /// Where it is to be once it is mapped, in pixels.
        std::optional<QPoint> corner;
    };
    void windowWillShow(xcb_window_t window, QPoint corner);
    void windowDidMap(xcb_window_t window);
    void windowDidUnmap(xcb_window_t window);
    /// Tells the window manager what it may have got wrong while it mapped a panel.
    void settle(xcb_window_t window, Panel& panel);
    void applyTraits(xcb_window_t window, const PanelTraits& traits);
    void applyState(xcb_window_t window, const PanelTraits& traits);
    void requestFocus(xcb_window_t window);
    void takeFocus(xcb_window_t window, xcb_timestamp_t time);
    void rememberFocus(xcb_window_t window, xcb_window_t focus);
    /// Whoever was to give the focus back to a window that has gone gives it to who had it before that one.
    void passOn(xcb_window_t gone, xcb_window_t focusThen);
    /// True where the server leaves the focus when the window that had it goes.
    bool isNobodys(xcb_window_t focus) const;
    void giveFocusBack(xcb_window_t focus);
    /// Runs `handler` with the window that has the focus at this moment, on a later turn.
    void whenFocusIsKnown(std::function<void(xcb_window_t focus)> handler);
    void setUnits(xcb_window_t window, xcb_atom_t property, xcb_atom_t type,
                  std::span<const std::uint32_t> units);

    std::shared_ptr<X11Connection> connection_;
    std::shared_ptr<WindowManager> windowManager_;
    std::shared_ptr<ToolkitWindows> toolkitWindows_;
    std::shared_ptr<UserTime> userTime_;
    std::map<xcb_window_t, Panel> panels_;
    /// Windows that have been cut to a shape.
    std::set<xcb_window_t> shaped_;
    /// Shown windows that the server has mapped.
    std::set<xcb_window_t> mapped_;
    /// The window that is to have the focus and is not on screen yet.
    std::optional<xcb_window_t> wantsFocus_;
    /// The window that takes the focus as soon as it is known who has it, where no window manager gives it.
    std::optional<xcb_window_t> takesFocus_;
    /// Who had the focus when a window of ours took it. Only where no window manager gives the focus back.
    std::map<xcb_window_t, xcb_window_t> focusBefore_;
    xcb_window_t compositingManager_ = noWindow;
    ObserverList<> blendingObservers_;
    bool announcesBlur_ = false;
    ScreenPictures screenPictures_;
    Token showing_;
    Token mapping_;
    Token unmapping_;
    Token destruction_;
    Token events_;
    Token rootProperties_;
    std::shared_ptr<void> lifetime_ = std::make_shared<char>();
};

} // namespace tessel
