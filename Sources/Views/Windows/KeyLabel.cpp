#include "Windows/KeyLabel.h"

#include <QtGui/QPainter>

#include "Support/DevicePixels.h"
#include "Support/TextStyle.h"
#include "Windows/WindowTheme.h"

namespace tessel {

KeyLabel::KeyLabel(const QString& keys, const WindowTheme& theme)
    : WindowLabel(keys, {textStyle::calloutSize, QFont::DemiBold}, &WindowColors::primaryText, theme)
    , theme_(theme)
{
    constexpr int horizontalPadding = 8; // Points.
    constexpr int verticalPadding = 3;
    setContentsMargins(horizontalPadding, verticalPadding, horizontalPadding, verticalPadding);
    setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
}

void KeyLabel::paintEvent(QPaintEvent* event)
{
    constexpr double cornerRadius = 8; // Points.
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(Qt::NoPen);
    painter.setBrush(theme_.colors().keyLabelFill);
    painter.drawRoundedRect(alignedToDevicePixels(painter, rect()), cornerRadius, cornerRadius);
    painter.end();
    WindowLabel::paintEvent(event);
}

} // namespace tessel
