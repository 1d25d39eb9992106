#pragma once

#include <vector>

#include <QtCore/QPointer>
#include <QtWidgets/QWidget>

#include "Windows/Controls/FocusOutline.h"

namespace tessel {

class WindowTheme;

/// The ring around the control of a view that has the keyboard focus. It lies outside the control, above
/// whatever is there, and follows it.
class FocusRing final : public QWidget {
    Q_OBJECT

public:
    /// How far it reaches from the control, in points.
    static constexpr int reach = 3;

    /// `view` contains the controls. `theme` must outlive this object.
    FocusRing(QWidget* view, const WindowTheme& theme);

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    bool eventFilter(QObject* object, QEvent* event) override;
    void follow(QWidget* control);
    void place();
    /// The part of the view in which the control can be seen, with room for the ring.
    QRect visiblePart() const;

    const WindowTheme& theme_;
    QPointer<QWidget> control_;
    /// Whoever may move or hide the control.
    std::vector<QPointer<QWidget>> watched_;
    FocusOutline outline_; ///< In the view's coordinates.
};

} // namespace tessel
