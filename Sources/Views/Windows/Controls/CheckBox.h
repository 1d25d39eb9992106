#pragma once

#include <QtWidgets/QCheckBox>

#include "Support/TextStyle.h"
#include "Windows/Controls/FocusOutline.h"

namespace tessel {

class WindowTheme;

/// A checkbox with its label after it. A click leaves the keyboard focus where it is.
class CheckBox final : public QCheckBox, public HasFocusOutline {
    Q_OBJECT

public:
    /// `theme` must outlive this object.
    CheckBox(const QString& label, const WindowTheme& theme, QWidget* parent = nullptr);

    QSize sizeHint() const override;
    QSize minimumSizeHint() const override { return sizeHint(); }
    FocusOutline focusOutline() const override;

protected:
    void paintEvent(QPaintEvent* event) override;
    bool hitButton(const QPoint& place) const override { return rect().contains(place); }

private:
    QRect box() const;

    const WindowTheme& theme_;
    TextStyle textStyle_;
};

} // namespace tessel
