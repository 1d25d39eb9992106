#include "Landscape.h"

#include <algorithm>
#include <cmath>
#include <cstdint>

namespace tessel::desktop {

namespace {

/// Red, green and blue, 0 to 1 each.
struct Light {
    double red;
    double green;
    double blue;
};

Light mixed(const Light& one, const Light& other, double share)
{
    const auto mix = [share](double from, double to) { return from + (to - from) * share; };
    return {mix(one.red, other.red), mix(one.green, other.green), mix(one.blue, other.blue)};
}

/// A random number, 0 to 1, the same for the same place.
double randomAt(int x, int y)
{
    auto hash = static_cast<std::uint32_t>(x) * 374761393U + static_cast<std::uint32_t>(y) * 668265263U;
    hash = (hash ^ (hash >> 13)) * 1274126177U;
    return static_cast<double>((hash ^ (hash >> 16)) & 0xFFFFU) / 0xFFFF;
}

double smoothNoise(double x, double y)
{
    const double left = std::floor(x);
    const double top = std::floor(y);
    const auto eased = [](double t) { return t * t * (3 - 2 * t); };
    const double u = eased(x - left);
    const double v = eased(y - top);
    const int column = static_cast<int>(left);
    const int row = static_cast<int>(top);
    const double upper = std::lerp(randomAt(column, row), randomAt(column + 1, row), u);
    const double lower = std::lerp(randomAt(column, row + 1), randomAt(column + 1, row + 1), u);
    return std::lerp(upper, lower, v);
}

/// Noise with details on every scale, 0 to 1.
double fractalNoise(double x, double y, int octaves)
{
    double sum = 0;
    double weight = 0.5;
    for (int octave = 0; octave < octaves; ++octave) {
        sum += weight * smoothNoise(x, y);
        x = 2 * x + 17.3;
        y = 2 * y + 5.1;
        weight /= 2;
    }
    return sum;
}

/// Of the sky and the land above the lake. `x` and `y` are in heights of the picture, from the top left.
class Scenery {
public:
    Light at(double x, double y) const
    {
        if (y < shore)
            return above(x, y);
        const double depth = (y - shore) / (1 - shore);
        const double ripple = (fractalNoise(x * 6, y * 60, 3) - 0.5) * (0.01 + 0.05 * depth);
        const Light reflection = above(x + ripple, 2 * shore - y + ripple * 2);
        return mixed(reflection, {0.02, 0.05, 0.10}, 0.35 + 0.35 * depth);
    }

private:
    static constexpr double shore = 0.72;

    static Light sky(double x, double y)
    {
        const Light zenith = {0.16, 0.24, 0.45};
        const Light middle = {0.62, 0.48, 0.60};
        const Light horizon = {0.99, 0.70, 0.42};
        const double height = std::clamp(y / 0.55, 0.0, 1.0);
        const Light clear =
            height < 0.6 ? mixed(zenith, middle, height / 0.6) : mixed(middle, horizon, (height - 0.6) / 0.4);
        const double cloud = std::clamp((fractalNoise(x * 2.2, y * 7, 6) - 0.47) * 4, 0.0, 1.0);
        return mixed(clear, {1.0, 0.86, 0.80}, cloud * (0.75 - 0.5 * height));
    }

    static Light above(double x, double y)
    {
        Light light = sky(x, y);
        // From the farthest range to the nearest; what is far away is veiled by the air.
        constexpr int ranges = 4;
        for (int range = 0; range < ranges; ++range) {
            const double nearness = static_cast<double>(range + 1) / ranges;
            const double crest =
                0.40 + 0.09 * range -
                (0.30 - 0.04 * range) *
                    (fractalNoise(x * (1.3 + 0.5 * range) + range * 31.7, range * 9.1, 7) - 0.35);
            if (y < crest)
                continue;
            const double relief = fractalNoise(x * 9 + range * 3.3, y * 14, 5);
            const Light ground = mixed({0.10, 0.15, 0.12}, {0.30, 0.28, 0.20}, relief);
            light = mixed(mixed({0.62, 0.50, 0.58}, ground, nearness), {0.85, 0.66, 0.55},
                          (1 - nearness) * std::clamp(1 - (y - crest) * 5, 0.0, 0.5));
        }
        return light;
    }
};

std::uint8_t channel(double light)
{
    return static_cast<std::uint8_t>(std::lround(std::clamp(light, 0.0, 1.0) * 255));
}

} // namespace

Picture makeLandscape(int width, int height)
{
    Picture picture{width, height, {}};
    picture.pixels.reserve(static_cast<std::size_t>(width) * static_cast<std::size_t>(height));
    const Scenery scenery;
    for (int y = 0; y < height; ++y) {
        for (int x = 0; x < width; ++x) {
            const Light light = scenery.at(static_cast<double>(x) / height, static_cast<double>(y) / height);
            picture.pixels.push_back({channel(light.red), channel(light.green), channel(light.blue)});
        }
    }
    return picture;
}

} // namespace tessel::desktop
