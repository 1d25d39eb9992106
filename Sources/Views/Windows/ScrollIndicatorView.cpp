#include "Windows/ScrollIndicatorView.h"

#include <QtGui/QMouseEvent>
#include <QtGui/QPainter>
#include <QtWidgets/QScrollArea>
#include <QtWidgets/QScrollBar>

#include <cmath>

#include "Windows/WindowTheme.h"

namespace tessel {

ScrollIndicatorView::ScrollIndicatorView(const QScrollArea& area, const WindowTheme& theme, QWidget* parent)
    : QWidget(parent)
    , area_(area)
    , theme_(theme)
{
    const QScrollBar* bar = area.verticalScrollBar();
    setVisible(bar->maximum() > 0);
    connect(bar, &QScrollBar::rangeChanged, this, [this](int, int maximum) { setVisible(maximum > 0); });
    connect(bar, &QScrollBar::rangeChanged, this, qOverload<>(&QWidget::update));
    connect(bar, &QScrollBar::valueChanged, this, qOverload<>(&QWidget::update));
    connect(&theme, &WindowTheme::didChange, this, qOverload<>(&QWidget::update));
}

ScrollPosition ScrollIndicatorView::position() const
{
    const QScrollBar* bar = area_.verticalScrollBar();
    ScrollPosition position;
    position.setViewHeight(area_.viewport()->height());
    position.setContentHeight(area_.viewport()->height() + bar->maximum());
    position.scrollTo(bar->value());
    return position;
}

void ScrollIndicatorView::paintEvent(QPaintEvent*)
{
    QPainter painter(this);
    const bool isDark = theme_.colorScheme() == ColorScheme::dark;
    indicator_.paint(painter, position(), {static_cast<double>(width()), layoutDirection()},
                     isDark ? Qt::white : Qt::black);
}

void ScrollIndicatorView::mousePressEvent(QMouseEvent* event)
{
    if (event->button() != Qt::LeftButton)
        return event->ignore();
    indicator_.press(event->position().y(), position());
    dragTo(event->position().y());
    update();
}

void ScrollIndicatorView::mouseMoveEvent(QMouseEvent* event)
{
    if (indicator_.isHeld())
        dragTo(event->position().y());
}

void ScrollIndicatorView::mouseReleaseEvent(QMouseEvent*)
{
    indicator_.release();
    update();
}

void ScrollIndicatorView::dragTo(double y)
{
    area_.verticalScrollBar()->setValue(static_cast<int>(std::lround(indicator_.offsetAt(y, position()))));
}

} // namespace tessel
