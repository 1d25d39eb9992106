#pragma once

#include <memory>
#include <optional>
#include <vector>

#include <QtCore/QAbstractNativeEventFilter>
#include <QtCore/QObject>
#include <QtCore/QPoint>
#include <xcb/xcb.h>

#include "Support/ObserverList.h"
#include "Token.h"
#include "X11/UserTime.h"
#include "X11/X11Connection.h"

class QWindow;

namespace tessel {

/// Our own windows, which the view toolkit owns, seen through the toolkit's own connection to the server.
/// What concerns them is asked for on that connection, because requests on two connections may overtake each
/// other: ours would reach a window before it exists. Without the toolkit's X11 backend there are no windows
/// here.
///
/// Made after `QApplication`, and destroyed before it.
class ToolkitWindows : private QObject, private QAbstractNativeEventFilter {
public:
    /// Notes in `userTime` what the user does in our windows.
    ToolkitWindows(std::shared_ptr<X11Connection> connection, std::shared_ptr<UserTime> userTime);
    ~ToolkitWindows() override;

    /// The toolkit's connection. Null: the toolkit does not use X11.
    xcb_connection_t* raw() const { return raw_; }
    /// Is it a window of this process?
    bool owns(xcb_window_t window) const;
    /// Our window that has the user's focus, by the server's own events.
    std::optional<xcb_window_t> focusedWindow() const { return focused_; }
    /// Our windows on screen that can have the focus, the one in front last: the most recently shown, or
    /// moved there since.
    const std::vector<xcb_window_t>& shownWindows() const { return shown_; }
    /// Is it one of the shown windows?
    bool isShown(xcb_window_t window) const;
    /// A shown window becomes the one in front.
    void moveToFront(xcb_window_t window);
    /// Where the top left corner of a window is or will be, in pixels. None: it is not one of ours.
    static std::optional<QPoint> cornerOf(xcb_window_t window);

    /// Runs after `focusedWindow` has changed.
    Token observeFocus(std::function<void()> didChange);
    /// Runs when a window is about to be mapped, and says where its top left corner will be, in pixels: what
    /// is set now, the window manager reads.
    Token observeShowing(std::function<void(xcb_window_t, QPoint)> willShow);
    /// Runs when the server has mapped a window.
    Token observeMapping(std::function<void(xcb_window_t)> didMap);
    /// Runs when the server has unmapped a window.
    Token observeUnmapping(std::function<void(xcb_window_t)> didUnmap);
    /// Runs when the server has destroyed a window, whose number may be given to another one from then on.
    Token observeDestruction(std::function<void(xcb_window_t)> didDestroy);

private:
    bool eventFilter(QObject* object, QEvent* event) override;
    bool nativeEventFilter(const QByteArray& eventType, void* message, qintptr* result) override;
    void windowWillShow(const QWindow& window);
    void windowIsHidden(const QWindow& window);
    void follow(const xcb_generic_event_t& event);
    void followFocus(const xcb_focus_in_event_t& event);
    void followPointer(const xcb_ge_generic_event_t& event);
    void setFocused(std::optional<xcb_window_t> window);

    std::shared_ptr<X11Connection> connection_;
    std::shared_ptr<UserTime> userTime_;
    xcb_connection_t* raw_ = nullptr;
    std::uint32_t resourceBase_ = 0;
    std::uint32_t resourceMask_ = 0;
    std::uint8_t inputOpcode_ = 0;
    std::optional<xcb_window_t> focused_;
    std::vector<xcb_window_t> shown_;
    ObserverList<> focusObservers_;
    ObserverList<xcb_window_t, QPoint> showingObservers_;
    ObserverList<xcb_window_t> mappingObservers_;
    ObserverList<xcb_window_t> unmappingObservers_;
    ObserverList<xcb_window_t> destructionObservers_;
};

} // namespace tessel
