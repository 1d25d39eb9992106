#pragma once

#include <QtWidgets/QWidget>

#include "Support/WindowDrag.h"

namespace tessel {

class ClipboardPanelView;

/// The window of the history panel: borderless, and yet able to take the keyboard focus.
class ClipboardPanelWindow : public QWidget {
    Q_OBJECT

public:
    enum class Dragging { byTitleBar, byBackground };

    ClipboardPanelWindow();

    bool canBecomeKey() const { return true; }
    bool canBecomeMain() const { return false; }

    void setDragging(Dragging dragging) { dragging_ = dragging; }
    /// For a window that is content in one of the system's own.
    void leaveDraggingToSystem() { drag_.leaveToSystem(); }
    /// Takes ownership. The view fills the window.
    void setContentView(ClipboardPanelView* view);
    ClipboardPanelView* contentView() const { return contentView_; }

protected:
    bool event(QEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void closeEvent(QCloseEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;

private:
    /// Takes the place and the extent, in points, that the native window has now. The toolkit's events tell
    /// them in the scale that the window had when they were noted; with a change of screen among them (a
    /// window manager may put a new window to the desktop's corner first) that is not always the scale it
    /// has.
    void followNativeWindow();

    Dragging dragging_ = Dragging::byTitleBar;
    ClipboardPanelView* contentView_ = nullptr;
    WindowDrag drag_{*this};
};

} // namespace tessel
