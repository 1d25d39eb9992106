#pragma once

#include <QtGui/QImage>

namespace tessel {

/// A blurred black shadow that falls downwards. Lengths are device pixels.
struct Shadow {
    double blurRadius;
    double offset;  ///< Downwards.
    double opacity; ///< 0 to 1, where nothing of the shape's light is left.

    /// The blur is a Gaussian one whose standard deviation is half its radius, as on the web (CSS Backgrounds
    /// and Borders, section "Shadow Blurring").
    double standardDeviation() const { return blurRadius / 2; }
    /// How far beyond the shape the shadow can be seen.
    int reach() const;
};

/// The shadow that an opaque shape throws on what is around it, and not on what is under it, so that the
/// colours inside a translucent shape stay as they are. `shape` is premultiplied; its alpha is what counts.
/// The result has its size: leave `reach` pixels around the shape.
QImage shadowAround(const QImage& shape, const Shadow& shadow);

} // namespace tessel
