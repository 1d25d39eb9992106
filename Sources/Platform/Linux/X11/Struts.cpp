#include "X11/Struts.h"

#include <algorithm>
#include <limits>

namespace tessel {

namespace {

constexpr std::size_t wholeCount = 4;
constexpr std::size_t partialCount = 12;

/// Do the positions `start` to `end`, both included, meet `from` to `to`, the latter excluded?
bool meets(const StrutEdge& edge, double from, double to)
{
    return edge.thickness > 0 && edge.start < to && edge.end >= from;
}

PixelRect lessStrut(const PixelRect& visible, const PixelRect& screen, double rootWidth, double rootHeight,
                    const Strut& strut)
{
    double left = visible.x;
    double top = visible.y;
    double right = visible.right();
    double bottom = visible.bottom();
    const auto isInsideX = [&](double x) { return x > screen.x && x < screen.right(); };
    const auto isInsideY = [&](double y) { return y > screen.y && y < screen.bottom(); };

    if (meets(strut.left, screen.y, screen.bottom()) && isInsideX(strut.left.thickness))
        left = std::max(left, strut.left.thickness);
    if (meets(strut.right, screen.y, screen.bottom()) && isInsideX(rootWidth - strut.right.thickness))
        right = std::min(right, rootWidth - strut.right.thickness);
    if (meets(strut.top, screen.x, screen.right()) && isInsideY(strut.top.thickness))
        top = std::max(top, strut.top.thickness);
    if (meets(strut.bottom, screen.x, screen.right()) && isInsideY(rootHeight - strut.bottom.thickness))
        bottom = std::min(bottom, rootHeight - strut.bottom.thickness);

    if (left >= right || top >= bottom)
        return visible; // Docks that claim everything claim nothing.
    return {left, top, right - left, bottom - top};
}

} // namespace

std::optional<Strut> strutFromProperties(std::span<const std::uint32_t> partial,
                                         std::span<const std::uint32_t> whole)
{
    constexpr double everywhere = std::numeric_limits<double>::max();
    Strut strut;
    if (partial.size() >= partialCount) {
        strut.left = {double(partial[0]), double(partial[4]), double(partial[5])};
        strut.right = {double(partial[1]), double(partial[6]), double(partial[7])};
        strut.top = {double(partial[2]), double(partial[8]), double(partial[9])};
        strut.bottom = {double(partial[3]), double(partial[10]), double(partial[11])};
    } else if (whole.size() >= wholeCount) {
        strut.left = {double(whole[0]), 0, everywhere};
        strut.right = {double(whole[1]), 0, everywhere};
        strut.top = {double(whole[2]), 0, everywhere};
        strut.bottom = {double(whole[3]), 0, everywhere};
    }
    const double reserved =
        strut.left.thickness + strut.right.thickness + strut.top.thickness + strut.bottom.thickness;
    if (reserved <= 0)
        return std::nullopt;
    return strut;
}

std::vector<PixelRect> visibleRects(const std::vector<PixelRect>& screens, double rootWidth,
                                    double rootHeight, const std::vector<Strut>& struts)
{
    std::vector<PixelRect> result;
    for (const PixelRect& screen : screens) {
        PixelRect visible = screen;
        for (const Strut& strut : struts)
            visible = lessStrut(visible, screen, rootWidth, rootHeight, strut);
        result.push_back(visible);
    }
    return result;
}

} // namespace tessel
