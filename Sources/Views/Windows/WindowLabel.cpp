#include "Windows/WindowLabel.h"

#include "Support/TextStyle.h"
#include "Windows/WindowTheme.h"

namespace tessel {

WindowLabel::WindowLabel(const QString& text, const Text& style, Color color, const WindowTheme& theme,
                         QWidget* parent)
    : QLabel(parent)
{
    setTextFormat(Qt::PlainText);
    setFont(TextStyle(style).font);
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
