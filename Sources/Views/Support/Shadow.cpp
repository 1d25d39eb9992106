#include "Support/Shadow.h"

#include <algorithm>
#include <cmath>
#include <vector>

namespace tessel {

namespace {

/// Beyond so many standard deviations nothing can be seen of a faint shadow.
constexpr double visibleDeviations = 3;

/// One channel of a picture, 0 to 1.
struct Plane {
    int width;
    int height;
    std::vector<double> values;

    double at(int x, int y) const
    {
        if (x < 0 || y < 0 || x >= width || y >= height)
            return 0;
        return values[static_cast<std::size_t>(y) * static_cast<std::size_t>(width) +
                      static_cast<std::size_t>(x)];
    }
};

template <class Function>
Plane makePlane(int width, int height, Function value)
{
    Plane plane{width, height, {}};
    plane.values.reserve(static_cast<std::size_t>(width) * static_cast<std::size_t>(height));
    for (int y = 0; y < height; ++y) {
        for (int x = 0; x < width; ++x)
            plane.values.push_back(value(x, y));
    }
    return plane;
}

/// Weights of the distances 0, 1, 2, ... from the middle.
std::vector<double> gaussianWeights(double deviation)
{
    std::vector<double> weights;
    double sum = 0;
    for (int distance = 0; distance <= std::ceil(deviation * visibleDeviations); ++distance) {
        weights.push_back(std::exp(-distance * distance / (2 * deviation * deviation)));
        sum += distance == 0 ? weights.back() : 2 * weights.back();
    }
    for (double& weight : weights)
        weight /= sum;
    return weights;
}

Plane blurred(const Plane& plane, double deviation)
{
    const std::vector<double> weights = gaussianWeights(deviation);
    const auto along = [&weights](const Plane& source, int stepX, int stepY) {
        return makePlane(source.width, source.height, [&](int x, int y) {
            double sum = weights[0] * source.at(x, y);
            for (int distance = 1; distance < static_cast<int>(weights.size()); ++distance) {
                const double weight = weights[static_cast<std::size_t>(distance)];
                sum += weight * (source.at(x - stepX * distance, y - stepY * distance) +
                                 source.at(x + stepX * distance, y + stepY * distance));
            }
            return sum;
        });
    };
    return along(along(plane, 1, 0), 0, 1);
}

} // namespace

int Shadow::reach() const
{
    return static_cast<int>(std::ceil(standardDeviation() * visibleDeviations + offset));
}

QImage shadowAround(const QImage& shape, const Shadow& shadow)
{
    const Plane coverage = makePlane(shape.width(), shape.height(),
                                     [&shape](int x, int y) { return qAlpha(shape.pixel(x, y)) / 255.0; });
    const Plane blur = blurred(coverage, shadow.standardDeviation());
    const int offset = static_cast<int>(std::round(shadow.offset));

    QImage image(shape.size(), QImage::Format_ARGB32_Premultiplied);
    for (int y = 0; y < image.height(); ++y) {
        for (int x = 0; x < image.width(); ++x) {
            const double opacity = shadow.opacity * blur.at(x, y - offset) * (1 - coverage.at(x, y));
            image.setPixel(x, y, qRgba(0, 0, 0, static_cast<int>(std::round(opacity * 255))));
        }
    }
    return image;
}

} // namespace tessel
