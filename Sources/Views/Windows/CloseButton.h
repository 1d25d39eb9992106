#pragma once

#include <functional>

#include <QtWidgets/QAbstractButton>

#include "Support/TextStyle.h"
#include "Windows/Controls/FocusOutline.h"

namespace tessel {

class WindowTheme;

/// The filled button that closes a window. Space and Return press it; it has no shortcut of
/// its own.
class CloseButton final : public QAbstractButton, public HasFocusOutline {
    Q_OBJECT

public:
    /// `theme` must outlive this object.
    CloseButton(const WindowTheme& theme, std::function<void()> close, QWidget* parent = nullptr);

    QSize sizeHint() const override { return size_; }
    FocusOutline focusOutline() const override;

protected:
    void paintEvent(QPaintEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;

private:
    const WindowTheme& theme_;
    TextStyle style_;
    QSize size_;
};

} // namespace tessel
