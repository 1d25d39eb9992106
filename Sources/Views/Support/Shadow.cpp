#include "Support/Shadow.h"

#include <cmath>

#include "Support/GaussianBlur.h"

namespace tessel {

namespace {

/// 0 to 1.
Plane coverageOf(const QImage& shape)
{
    Plane plane{shape.width(), shape.height(), {}};
    for (int y = 0; y < shape.height(); ++y) {
        for (int x = 0; x < shape.width(); ++x)
            plane.values.push_back(static_cast<float>(qAlpha(shape.pixel(x, y))) / 255);
    }
    return plane;
}

} // namespace

int Shadow::reach() const
{
    return blurReach(standardDeviation()) + static_cast<int>(std::ceil(offset));
}

QImage shadowAround(const QImage& shape, const Shadow& shadow)
{
    const Plane coverage = coverageOf(shape);
    const Plane blur = blurred(coverage, shadow.standardDeviation(), BeyondEdges::nothing);
    const int offset = static_cast<int>(std::round(shadow.offset));

    QImage image(shape.size(), QImage::Format_ARGB32_Premultiplied);
    for (int y = 0; y < image.height(); ++y) {
        const int origin = y - offset;
        const bool isInside = origin >= 0 && origin < image.height();
        for (int x = 0; x < image.width(); ++x) {
            const float light = isInside ? blur.row(origin)[x] : 0;
            const double opacity = shadow.opacity * static_cast<double>(light * (1 - coverage.row(y)[x]));
            image.setPixel(x, y, qRgba(0, 0, 0, static_cast<int>(std::round(opacity * 255))));
        }
    }
    return image;
}

} // namespace tessel
