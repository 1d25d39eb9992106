#pragma once

#include <QtWidgets/QSlider>

#include "Windows/Controls/FocusOutline.h"

namespace tessel {

class WindowTheme;

/// A horizontal slider: a thin track, filled with the accent colour as far as the knob. A press beside the
/// knob brings it there. The wheel is for what scrolls around it.
class Slider final : public QSlider, public HasFocusOutline {
    Q_OBJECT

public:
    /// `theme` must outlive this object.
    explicit Slider(const WindowTheme& theme, QWidget* parent = nullptr);

    QSize sizeHint() const override;
    QSize minimumSizeHint() const override { return sizeHint(); }
    FocusOutline focusOutline() const override;

protected:
    void paintEvent(QPaintEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void wheelEvent(QWheelEvent* event) override;

private:
    QRectF knob() const;
    /// The value at which the knob's centre is nearest to `x`.
    int valueAt(double x) const;

    const WindowTheme& theme_;
    /// From the knob's centre to where it is held, in points.
    double hold_ = 0;
};

} // namespace tessel
