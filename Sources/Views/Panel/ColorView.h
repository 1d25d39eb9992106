#pragma once

#include <QtWidgets/QWidget>

namespace tessel {

/// Covers what is beneath it with one plain colour. It does not take part in mouse events.
class ColorView : public QWidget {
    Q_OBJECT

public:
    explicit ColorView(QWidget* parent);

    const QColor& color() const { return color_; }
    void setColor(const QColor& color);

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    QColor color_ = Qt::transparent;
};

} // namespace tessel
