#include "X11/TrayScheme.h"

namespace tessel {

namespace {

/// How bright a colour looks (ITU-R BT.709), in the unit of its parts.
double brightness(double red, double green, double blue)
{
    return 0.2126 * red + 0.7152 * green + 0.0722 * blue;
}

} // namespace

std::optional<ColorScheme> schemeOfTrayColors(std::span<const std::uint32_t> units)
{
    constexpr std::size_t partsOfColor = 3;
    constexpr double middle = 32768;
    if (units.size() < partsOfColor)
        return std::nullopt;
    return brightness(units[0], units[1], units[2]) >= middle ? ColorScheme::dark : ColorScheme::light;
}

std::optional<ColorScheme> schemeAround(const ScreenPicture& picture)
{
    constexpr double middle = 128;
    double sum = 0;
    int count = 0;
    for (std::size_t index = 0; index < picture.pixels.size(); ++index) {
        const int x = static_cast<int>(index) % picture.width;
        const int y = static_cast<int>(index) / picture.width;
        if (x > 0 && y > 0 && x < picture.width - 1 && y < picture.height - 1)
            continue;
        const auto part = [pixel = picture.pixels[index]](unsigned int shift) {
            return static_cast<double>(pixel >> shift & 0xFFU);
        };
        sum += brightness(part(16), part(8), part(0));
        ++count;
    }
    if (count == 0)
        return std::nullopt;
    return sum / count < middle ? ColorScheme::dark : ColorScheme::light;
}

} // namespace tessel
