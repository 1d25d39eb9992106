#include "Windows/SymbolView.h"

#include <QtGui/QPainter>

#include "Windows/WindowTheme.h"

namespace tessel {

SymbolView::SymbolView(const QString& name, QSize size, WindowLabel::Color color, const WindowTheme& theme)
    : symbol_(name)
    , color_(color)
    , theme_(theme)
{
    setFixedSize(size);
    connect(&theme, &WindowTheme::didChange, this, qOverload<>(&QWidget::update));
}

void SymbolView::paintEvent(QPaintEvent*)
{
    QPainter painter(this);
    symbol_.draw(painter, rect(), theme_.colors().*color_);
}

} // namespace tessel
