#pragma once

#include <QtCore/QPointer>
#include <QtWidgets/QComboBox>
#include <QtWidgets/QMenu>

#include "Support/TextStyle.h"
#include "Windows/Controls/FocusOutline.h"

namespace tessel {

class WindowTheme;

/// A button that shows the chosen one of several titles, and opens a menu of them over itself. Arrow keys
/// choose the next one, Space opens the menu. A click leaves the keyboard focus where it is, and the wheel is
/// for what scrolls around the button. The tool tip is a plain text, and shown in lines of a readable length.
class PopUpButton final : public QComboBox, public HasFocusOutline {
    Q_OBJECT

public:
    /// `theme` must outlive this object.
    explicit PopUpButton(const WindowTheme& theme, QWidget* parent = nullptr);

    /// Null while it is closed.
    QMenu* openMenu() const { return menu_; }

    void showPopup() override;
    void hidePopup() override;
    QSize sizeHint() const override;
    QSize minimumSizeHint() const override { return sizeHint(); }
    FocusOutline focusOutline() const override;

protected:
    bool event(QEvent* event) override;
    void paintEvent(QPaintEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void wheelEvent(QWheelEvent* event) override;

private:
    void showToolTip(const QPoint& globalPosition);
    void fillMenu();
    void choose(int index);

    const WindowTheme& theme_;
    TextStyle textStyle_;
    QPointer<QMenu> menu_;
};

} // namespace tessel
