#pragma once

#include <algorithm>

#include <QtGui/QImage>

namespace tessel::test {

/// The first and the last column, in device pixels, that has something on it. Empty: none has.
struct Extent {
    int left;
    int right;

    bool isEmpty() const { return right < left; }
};

/// Where something bright is drawn within a part of a dark picture.
inline Extent inkExtent(const QImage& image, const QRect& part)
{
    constexpr int bright = 110; // Brighter than a row's fill on black, darker than any text on it.
    const QRect inside = part.intersected(image.rect());
    Extent extent = {inside.right() + 1, inside.left() - 1};
    for (int y = inside.top(); y <= inside.bottom(); ++y) {
        for (int x = inside.left(); x <= inside.right(); ++x) {
            if (qGray(image.pixel(x, y)) < bright)
                continue;
            extent = {std::min(extent.left, x), std::max(extent.right, x)};
        }
    }
    return extent;
}

} // namespace tessel::test
