#include "Windows/WindowLabel.h"

#include <QtWidgets/QStyle>

#include "Support/TextStyle.h"
#include "Windows/WindowTheme.h"

namespace tessel {

WindowLabel::WindowLabel(const QString& text, const Text& style, Color color, const WindowTheme& theme,
                         Wrapping wrapping)
{
    setWordWrap(wrapping == Wrapping::on);
    setTextFormat(Qt::PlainText);
    setFont(TextStyle(style).font);
    // By the interface's direction, not by that of the text.
    setAlignment(QStyle::visualAlignment(layoutDirection(), Qt::AlignLeft) | Qt::AlignVCenter);
    setText(text);
    const auto follow = [this, color, &theme] {
        QPalette colors;
        colors.setColor(QPalette::WindowText, theme.colors().*color);
        setPalette(colors);
    };
    follow();
    connect(&theme, &WindowTheme::didChange, this, follow);
}

} // namespace tessel
