#include "Support/TextStyle.h"

#include <QtGui/QFontMetricsF>
#include <QtGui/QGuiApplication>

#include <cmath>

namespace tessel {

namespace {

/// The scale at which a font of a whole number of pixels has that size.
double scaleFor(double size)
{
    return size == std::floor(size) ? 1 : 0.5;
}

QFont fontOf(const Text& text)
{
    QFont font = QGuiApplication::font();
    font.setPixelSize(static_cast<int>(std::lround(text.size / scaleFor(text.size))));
    font.setWeight(text.weight);
    if (text.tracking != 0)
        font.setLetterSpacing(QFont::AbsoluteSpacing, text.tracking);
    // Coloured fringes need an opaque background.
    font.setStyleStrategy(QFont::NoSubpixelAntialias);
    return font;
}

} // namespace

TextStyle::TextStyle(const Text& text)
    : font(fontOf(text))
    , scale(scaleFor(text.size))
{
    const QFontMetricsF metrics(font);
    ascent = static_cast<int>(std::round(metrics.ascent() * scale));
    lineHeight = ascent + static_cast<int>(std::ceil(metrics.descent() * scale));
}

int TextStyle::widthOf(const QString& text) const
{
    return static_cast<int>(std::ceil(QFontMetricsF(font).horizontalAdvance(text) * scale));
}

} // namespace tessel
