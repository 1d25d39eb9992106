#pragma once

#include <cstdint>
#include <optional>
#include <span>
#include <vector>

namespace tessel {

/// A rectangle in pixels of the root window: the origin is its top left corner, y grows downwards.
struct PixelRect {
    double x = 0;
    double y = 0;
    double width = 0;
    double height = 0;

    double right() const { return x + width; }
    double bottom() const { return y + height; }

    friend bool operator==(const PixelRect&, const PixelRect&) = default;
};

/// What a dock reserves along one edge of the root window: `thickness` pixels from that edge, between `start`
/// and `end` along it (both included).
struct StrutEdge {
    double thickness = 0;
    double start = 0;
    double end = 0;

    friend bool operator==(const StrutEdge&, const StrutEdge&) = default;
};

/// What a dock reserves (EWMH, `_NET_WM_STRUT_PARTIAL`).
struct Strut {
    StrutEdge left;
    StrutEdge right;
    StrutEdge top;
    StrutEdge bottom;

    friend bool operator==(const Strut&, const Strut&) = default;
};

/// Reads `_NET_WM_STRUT_PARTIAL` (twelve numbers) or, where that is missing, `_NET_WM_STRUT` (four, along the
/// whole edge). None: neither has its numbers, or they reserve nothing.
std::optional<Strut> strutFromProperties(std::span<const std::uint32_t> partial,
                                         std::span<const std::uint32_t> whole);

/// Each screen less what the docks reserve of it. An edge counts on the screen that it ends in: a dock
/// between two monitors reserves everything up to the root window's edge, but only its own strip is meant.
std::vector<PixelRect> visibleRects(const std::vector<PixelRect>& screens, double rootWidth,
                                    double rootHeight, const std::vector<Strut>& struts);

} // namespace tessel
