#pragma once

#include <QtWidgets/QWidget>

#include "NativeWindows.h"
#include "Support/WindowBlending.h"
#include "Support/WindowDrag.h"
#include "Token.h"

namespace tessel {

class AnimatedBackground;
class WindowTheme;

/// A window without a title bar, whose content is all that can be seen of it, on a rounded background by
/// which it is moved. Around that it is translucent, and clicks go to what is beneath.
class ChromelessWindow final : public QWidget {
    Q_OBJECT

public:
    /// `view` is the content, of which this takes ownership. It has the window's width and is in its middle.
    /// `size` is the window's, in points. `theme` and `nativeWindows` must outlive this object.
    ChromelessWindow(const QString& title, QWidget* view, QSize size, const WindowTheme& theme,
                     NativeWindows& nativeWindows);

    /// For a window that is content in one of the system's own.
    void leaveDraggingToSystem() { drag_.leaveToSystem(); }

    AnimatedBackground& background() const { return *background_; }

protected:
    bool event(QEvent* event) override;
    bool eventFilter(QObject* object, QEvent* event) override;
    void showEvent(QShowEvent* event) override;
    void hideEvent(QHideEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override { drag_.press(*event); }
    void mouseMoveEvent(QMouseEvent* event) override { drag_.move(*event); }
    void mouseReleaseEvent(QMouseEvent*) override { drag_.release(); }

private:
    /// Looks as the window system blends now. A window that was made without a compositing manager cannot
    /// become translucent, and stays cut.
    void blend();
    /// Cuts the window to its background. Where it blends, the pixels that the corners cover in part stay.
    void cutToBackground();

    NativeWindows& nativeWindows_;
    AnimatedBackground* background_;
    WindowBlending blending_ = WindowBlending::translucent;
    WindowDrag drag_{*this};
    Token occlusion_;
    Token blendingChange_;
};

} // namespace tessel
