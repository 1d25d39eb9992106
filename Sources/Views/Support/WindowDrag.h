#pragma once

#include <optional>

#include <QtCore/QPoint>

class QMouseEvent;
class QWidget;

namespace tessel {

/// Moves a window by its background: with the left button, from where no view has taken the press. It is we
/// who move it. A window manager asked to (`_NET_WM_MOVERESIZE`, EWMH) is told by the toolkit where the
/// pointer went last and not where the press was, and the window would stay behind by as much.
class WindowDrag {
public:
    /// `window` must outlive this object.
    explicit WindowDrag(QWidget& window)
        : window_(window)
    {}

    /// Lets the window system move the window: for content that is in a window of the system's own.
    void leaveToSystem() { isLeftToSystem_ = true; }

    void press(const QMouseEvent& event);
    void move(const QMouseEvent& event);
    void release() { start_.reset(); }

private:
    struct Start {
        QPoint pointer;      ///< Where the button went down, on the screen.
        QPoint window;       ///< Where the window was then.
        bool isDrag = false; ///< The pointer has gone farther than a click does.
    };

    QWidget& window_;
    bool isLeftToSystem_ = false;
    std::optional<Start> start_;
};

} // namespace tessel
