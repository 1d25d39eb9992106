#pragma once

namespace tessel {

/// A location in points. The origin of the global space is the bottom left corner of the main screen; y grows
/// upwards.
struct Point {
    double x = 0;
    double y = 0;

    friend bool operator==(const Point&, const Point&) = default;
};

/// An extent in points.
struct Size {
    double width = 0;
    double height = 0;

    friend bool operator==(const Size&, const Size&) = default;
};

/// A rectangle in points; `origin` is its bottom left corner.
struct Rect {
    Point origin;
    Size size;

    double minX() const { return origin.x; }
    double minY() const { return origin.y; }
    double maxX() const { return origin.x + size.width; }
    double maxY() const { return origin.y + size.height; }

    friend bool operator==(const Rect&, const Rect&) = default;
};

} // namespace tessel
