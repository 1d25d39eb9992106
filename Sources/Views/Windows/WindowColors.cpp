#include "Windows/WindowColors.h"

#include <QtGui/QPalette>

#include "Support/Colors.h"

namespace tessel {

namespace {

QColor at(QColor color, double opacity)
{
    color.setAlphaF(static_cast<float>(opacity));
    return color;
}

/// The platform's, of that scheme.
QColor purple(ColorScheme scheme)
{
    return scheme == ColorScheme::dark ? QColor(191, 90, 242) : QColor(175, 82, 222);
}

QColor windowBackground(ColorScheme scheme, const QPalette& palette)
{
    constexpr int middle = 128; // Of 0 to 255.
    const QColor color = palette.color(QPalette::Window);
    const bool isDark = color.lightness() < middle;
    if (isDark == (scheme == ColorScheme::dark))
        return color;
    return scheme == ColorScheme::dark ? QColor(38, 38, 40) : QColor(236, 236, 236);
}

QColor accent(const AppearanceSettings& settings, const QPalette& palette)
{
    if (const auto& color = settings.accentColor)
        return QColor::fromRgbF(static_cast<float>(color->red), static_cast<float>(color->green),
                                static_cast<float>(color->blue));
    return palette.color(QPalette::Highlight);
}

} // namespace

WindowColors windowColors(const AppearanceSettings& settings, const QPalette& palette)
{
    const QColor background = windowBackground(settings.colorScheme, palette);
    const QColor accentColor = accent(settings, palette);
    if (settings.colorScheme == ColorScheme::dark) {
        return {
            .windowBackground = background,
            .accent = accentColor,
            .primaryText = white(1),
            .secondaryText = white(0.75),
            .tertiaryText = white(0.65),
            .cardFill = black(0.28),
            .outline = white(0.08),
            .closeFill = at(accentColor, 0.9),
            .closeOutline = white(0.12),
            .keyLabelFill = white(0.14),
            .linkText = white(1),
            .firstCircle = at(accentColor, 0.16),
            .secondCircle = at(purple(settings.colorScheme), 0.11),
        };
    }
    return {
        .windowBackground = background,
        .accent = accentColor,
        .primaryText = black(0.85),
        .secondaryText = black(0.65),
        .tertiaryText = black(0.55),
        .cardFill = white(0.62),
        .outline = black(0.08),
        .closeFill = black(0.82),
        .closeOutline = black(0.15),
        .keyLabelFill = black(0.07),
        .linkText = black(0.85),
        .firstCircle = at(accentColor, 0.12),
        .secondCircle = at(purple(settings.colorScheme), 0.09),
    };
}

} // namespace tessel
