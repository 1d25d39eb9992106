#pragma once

#include <QtWidgets/QWidget>

namespace tessel {

class WindowTheme;

/// A window without a title bar, whose content is all that can be seen of it: translucent around it, moved by
/// its background.
class ChromelessWindow final : public QWidget {
    Q_OBJECT

public:
    /// `view` is the content, of which this takes ownership. It has the window's width and is in its middle.
    /// `size` is the window's, in points. `theme` must outlive this object.
    ChromelessWindow(const QString& title, QWidget* view, QSize size, const WindowTheme& theme);
};

} // namespace tessel
