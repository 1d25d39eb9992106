#include "Support/BlurredCircle.h"

#include <algorithm>
#include <cmath>
#include <numbers>
#include <vector>

#include "Support/OrderedDither.h"

namespace tessel {

namespace {

/// The coverage at every whole point from the middle, up to where less than half a level of 255 is left of a
/// colour of that opacity.
std::vector<double> visibleProfile(const BlurredCircle& circle, double opacity)
{
    constexpr double halfLevel = 0.5 / 255;
    std::vector<double> profile;
    do
        profile.push_back(circle.coverageAt(static_cast<double>(profile.size())));
    while (profile.back() * opacity > halfLevel);
    return profile;
}

/// `distance` in points.
double between(const std::vector<double>& profile, double distance)
{
    const auto index = static_cast<std::size_t>(distance);
    if (index + 1 >= profile.size())
        return 0;
    return std::lerp(profile[index], profile[index + 1], distance - static_cast<double>(index));
}

/// The pixel of that opacity, whose fractions of levels are told by a dither.
QRgb premultiplied(const QColor& color, double opacity, double dither)
{
    const auto share = [&](int level) { return static_cast<int>(level * opacity + dither); };
    return qRgba(share(color.red()), share(color.green()), share(color.blue()), share(255));
}

} // namespace

double BlurredCircle::coverageAt(double distance) const
{
    // The blur is one across and one down. What is covered of a line down through the circle is an interval,
    // whose blur is known; across, such lines are summed.
    constexpr int lines = 128;
    const double radius = diameter / 2;
    const double step = diameter / lines;
    double sum = 0;
    for (int line = 0; line < lines; ++line) {
        const double across = (line + 0.5) * step - radius;
        const double halfLine = std::sqrt(radius * radius - across * across);
        const double deviations = (distance - across) / blurRadius;
        sum +=
            std::exp(-deviations * deviations / 2) * std::erf(halfLine / (blurRadius * std::numbers::sqrt2));
    }
    return sum * step / (blurRadius * std::sqrt(2 * std::numbers::pi));
}

QImage BlurredCircle::picture(const QColor& color, double devicePixelRatio) const
{
    const std::vector<double> profile = visibleProfile(*this, static_cast<double>(color.alphaF()));
    const int half = static_cast<int>(std::ceil(static_cast<double>(profile.size()) * devicePixelRatio));
    QImage image(2 * half, 2 * half, QImage::Format_ARGB32_Premultiplied);
    for (int y = 0; y < image.height(); ++y) {
        auto* row = reinterpret_cast<QRgb*>(image.scanLine(y));
        for (int x = 0; x < image.width(); ++x) {
            const double distance = std::hypot(x + 0.5 - half, y + 0.5 - half) / devicePixelRatio;
            const double opacity = static_cast<double>(color.alphaF()) * between(profile, distance);
            row[x] = premultiplied(color, opacity, static_cast<double>(orderedDither(x, y)));
        }
    }
    return image;
}

} // namespace tessel
