#include "Windows/SymbolView.h"

#include <QtGui/QPainter>

#include "Support/DevicePixels.h"
#include "Support/Symbol.h"
#include "Windows/WindowTheme.h"

namespace tessel {

SymbolView::SymbolView(const QString& name, QSize size, WindowLabel::Color color, const WindowTheme& theme)
    : name_(name)
    , color_(color)
    , theme_(theme)
{
    setFixedSize(size);
    connect(&theme, &WindowTheme::didChange, this, qOverload<>(&QWidget::update));
}

void SymbolView::paintEvent(QPaintEvent*)
{
    QPainter painter(this);
    painter.drawImage(
        alignedToDevicePixels(painter, rect()),
        renderedSymbol(name_, size(), theme_.colors().*color_, tessel::devicePixelRatio(painter)));
}

} // namespace tessel
