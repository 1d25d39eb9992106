#include "Panel/PanelFonts.h"

#include <QtGui/QFontMetricsF>
#include <QtGui/QGuiApplication>

namespace tessel {

namespace {

std::array<double, 128> asciiAdvances(const TextStyle& style)
{
    const QFontMetricsF metrics(style.font);
    std::array<double, 128> advances{};
    for (char16_t character = u' '; character < 0x7F; ++character)
        advances[character] = metrics.horizontalAdvance(QChar(character)) * style.scale;
    return advances;
}

} // namespace

PanelFonts::PanelFonts()
    : systemFont(QGuiApplication::font())
    , rowTitleAdvances(asciiAdvances(rowTitle))
{}

} // namespace tessel
