#include "Support/Contrast.h"

#include <QtGui/QColor>

#include <algorithm>
#include <cmath>

namespace tessel {

namespace {

/// WCAG 2.2, "relative luminance".
double luminance(const QColor& color)
{
    const auto linear = [](float part) {
        const auto value = static_cast<double>(part);
        return value <= 0.04045 ? value / 12.92 : std::pow((value + 0.055) / 1.055, 2.4);
    };
    return 0.2126 * linear(color.redF()) + 0.7152 * linear(color.greenF()) + 0.0722 * linear(color.blueF());
}

} // namespace

double contrast(const QColor& one, const QColor& other)
{
    const auto [darker, brighter] = std::minmax({luminance(one), luminance(other)});
    return (brighter + 0.05) / (darker + 0.05);
}

} // namespace tessel
