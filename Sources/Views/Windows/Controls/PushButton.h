#pragma once

#include <QtWidgets/QPushButton>

#include "Support/TextStyle.h"
#include "Windows/Controls/FocusOutline.h"

namespace tessel {

class WindowTheme;

/// A button with a title, in one of the platform's styles. Space and Return press it; a click leaves the
/// keyboard focus where it is.
class PushButton final : public QPushButton, public HasFocusOutline {
    Q_OBJECT

public:
    enum class Look {
        bordered,
        borderedProminent, ///< Filled with the accent colour.
        plain,             ///< Its title alone, in the window's secondary text colour.
    };
    enum class ControlSize { small, regular };

    /// `theme` must outlive this object.
    PushButton(const QString& title, Look look, const WindowTheme& theme, QWidget* parent = nullptr,
               ControlSize controlSize = ControlSize::regular);

    /// The width stays: it is for looks with the same padding.
    void setLook(Look look);

    QSize sizeHint() const override;
    QSize minimumSizeHint() const override { return sizeHint(); }
    FocusOutline focusOutline() const override;

protected:
    void paintEvent(QPaintEvent* event) override;
    /// Arrow keys are for who arranges the buttons.
    void keyPressEvent(QKeyEvent* event) override;
    /// A button that is checkable shows a choice, which is another's to make.
    void nextCheckState() override {}

private:
    int padding() const;
    double cornerRadius() const;
    QColor textColor() const;

    const WindowTheme& theme_;
    Look look_;
    ControlSize controlSize_;
    TextStyle textStyle_;
};

} // namespace tessel
