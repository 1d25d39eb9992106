#include "Panel/ColorView.h"

#include <QtGui/QPaintEvent>
#include <QtGui/QPainter>

namespace tessel {

ColorView::ColorView(QWidget* parent)
    : QWidget(parent)
{
    setAttribute(Qt::WA_TransparentForMouseEvents);
}

void ColorView::setColor(const QColor& color)
{
    if (color == color_)
        return;
    color_ = color;
    update();
}

void ColorView::paintEvent(QPaintEvent* event)
{
    QPainter painter(this);
    painter.fillRect(event->rect(), color_);
}

} // namespace tessel
