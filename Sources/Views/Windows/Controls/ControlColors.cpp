#include "Windows/Controls/ControlColors.h"

#include "Support/Colors.h"
#include "Support/Contrast.h"
#include "Windows/WindowColors.h"

namespace tessel {

namespace {

/// `color` with some black over it, which has that opacity.
QColor shaded(const QColor& color, double blackOpacity)
{
    const auto rest = static_cast<float>(1 - blackOpacity);
    return QColor::fromRgbF(color.redF() * rest, color.greenF() * rest, color.blueF() * rest);
}

struct Readable {
    QColor fill;
    QColor text;
};

/// White text is what a filled accent colour is known for. Where it cannot be read on the colour itself it
/// stands on a shade of it that is hardly told from it, and only where that is not enough black takes its
/// place.
Readable readable(const QColor& accent)
{
    constexpr double enough = 4.5; // WCAG 2.2, 1.4.3.
    for (const double shade : {0.0, 0.04, 0.08, 0.12, 0.16}) {
        const QColor fill = shaded(accent, shade);
        if (contrast(Qt::white, fill) >= enough)
            return {fill, Qt::white};
    }
    return {accent, Qt::black};
}

} // namespace

ControlColors controlColors(const WindowColors& colors, ColorScheme scheme)
{
    constexpr double pressedShade = 0.14;
    const auto [fill, text] = readable(colors.accent);
    // A shade under black text would take from its contrast what it needs.
    const QColor pressed = text == Qt::white ? shaded(fill, pressedShade)
                                             : fill.lighter(100 + static_cast<int>(100 * pressedShade));
    const bool isDark = scheme == ColorScheme::dark;
    QColor focusRing = colors.accent;
    focusRing.setAlphaF(isDark ? 0.75F : 0.5F); // Half of it is hardly seen on a dark card.
    if (isDark) {
        return {
            .text = colors.primaryText,
            .bezel = {white(0.20), white(0.32)},
            .bezelEdge = {white(0.16), white(0.04)},
            .prominent = {fill, pressed},
            .prominentEdge = {white(0.18), white(0.02)},
            .prominentText = text,
            .track = white(0.20),
            .knob = {QColor(222, 222, 224), Qt::white},
            .knobEdge = {black(0.05), black(0.25)},
            .knobShadow = black(0.20),
            .focusRing = focusRing,
            .menu = {QColor(50, 50, 52), white(0.16)},
        };
    }
    return {
        .text = colors.primaryText,
        .bezel = {Qt::white, QColor(224, 224, 226)},
        .bezelEdge = {black(0.14), black(0.28)},
        .prominent = {fill, pressed},
        .prominentEdge = {black(0.08), black(0.22)},
        .prominentText = text,
        .track = black(0.14),
        .knob = {Qt::white, QColor(236, 236, 238)},
        .knobEdge = {black(0.14), black(0.28)},
        .knobShadow = black(0.08),
        .focusRing = focusRing,
        .menu = {QColor(246, 246, 247), black(0.16)},
    };
}

} // namespace tessel
