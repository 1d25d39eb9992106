#pragma once

#include <QtWidgets/QWidget>

#include "Support/ScrollIndicator.h"
#include "Support/ScrollPosition.h"

class QScrollArea;

namespace tessel {

class WindowTheme;

/// The vertical scroll indicator of a scroll area, which it shows beside that, and only where something is
/// out of view.
class ScrollIndicatorView final : public QWidget {
    Q_OBJECT

public:
    /// In points.
    static constexpr int thickness = 8;

    /// `area` and `theme` must outlive this object.
    ScrollIndicatorView(const QScrollArea& area, const WindowTheme& theme, QWidget* parent);

protected:
    void paintEvent(QPaintEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;

private:
    ScrollPosition position() const;
    void dragTo(double y);

    const QScrollArea& area_;
    const WindowTheme& theme_;
    ScrollIndicator indicator_;
};

} // namespace tessel
