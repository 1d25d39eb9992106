#pragma once

#include <vector>

#include <QtGui/QImage>

namespace tessel::test {

/// The level of white; black's is 0.
inline constexpr int white = 255;

/// Whole device pixels in one direction, from `start` up to, not including, `end`.
struct Span {
    int start;
    int end;

    int length() const { return end - start; }
    int middle() const { return start + length() / 2; }
};

/// A picture whose pixels are measured: white in several opacities over black. Places in it are device
/// pixels.
class MeasuredPicture {
public:
    /// The picture's device pixel ratio is the scale.
    explicit MeasuredPicture(QImage image);

    double scale() const { return image_.devicePixelRatio(); }
    int width() const { return image_.width(); }
    int height() const { return image_.height(); }
    /// The nearest whole pixel.
    int pixels(double points) const;
    double points(double pixels) const { return pixels / scale(); }

    /// Nothing counts as black.
    int level(int x, int y) const { return qGreen(image_.pixel(x, y)); }
    /// The levels of a line of pixels: a column's `rows`, or a row's `columns`.
    std::vector<int> levelsOfColumn(int x, const Span& rows) const;
    std::vector<int> levelsOfRow(int y, const Span& columns) const;
    int brightest(const Span& columns, const Span& rows) const;
    /// The runs of columns, or of rows, inside that rectangle in which some pixel is brighter than `level`.
    std::vector<Span> brightColumns(const Span& columns, const Span& rows, int level) const;
    std::vector<Span> brightRows(const Span& columns, const Span& rows, int level) const;

    /// How far a shape's round corner is from the corner of the rectangle around it, in pixels along either
    /// edge, on the diagonal. `x` and `y` are the rectangle's top left pixel; a pixel of `full` or more is
    /// wholly the shape's, one of `empty` is not.
    double cornerInset(int x, int y, int empty, int full) const;

private:
    QImage image_;
};

} // namespace tessel::test
