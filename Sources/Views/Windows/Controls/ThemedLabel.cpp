#include "Windows/Controls/ThemedLabel.h"

#include <QtWidgets/QStyle>

#include "Windows/WindowTheme.h"

namespace tessel {

ThemedLabel::ThemedLabel(const QString& text, const Text& style, Color color, const WindowTheme& theme,
                         QWidget* parent)
    : QLabel(parent)
    , color_(color)
    , theme_(theme)
{
    setTextFormat(Qt::PlainText);
    setFont(TextStyle(style).font);
    setAlignment(QStyle::visualAlignment(layoutDirection(), Qt::AlignLeft) | Qt::AlignVCenter);
    setText(text);
    applyColor();
    connect(&theme, &WindowTheme::didChange, this, &ThemedLabel::applyColor);
}

void ThemedLabel::applyColor()
{
    QPalette palette;
    palette.setColor(QPalette::WindowText, theme_.colors().*color_);
    setPalette(palette);
}

} // namespace tessel
