#include "Panel/ListLayout.h"

#include <algorithm>

#include "Panel/PanelStyle.h"

namespace tessel {

using namespace panelStyle;

ListLayout::ListLayout(std::span<const int> rowHeights, std::size_t pinnedCount, int captionHeight)
{
    int y = list::topPadding;
    const auto place = [&y](int height) {
        const Extent extent = {y, height};
        y += height + list::spacing;
        return extent;
    };
    rows_.reserve(rowHeights.size());
    for (std::size_t row = 0; row < rowHeights.size(); ++row) {
        if (row == 0 && pinnedCount > 0)
            captions_.push_back({Section::pinned, place(captionHeight)});
        if (row == pinnedCount)
            captions_.push_back({Section::recent, place(captionHeight)});
        rows_.push_back(place(rowHeights[row]));
    }
    contentHeight_ = place(list::endSpacer).bottom() + list::bottomPadding;
}

std::optional<std::size_t> ListLayout::rowAt(double y) const
{
    const auto below = std::partition_point(rows_.begin(), rows_.end(),
                                            [y](const Extent& row) { return row.bottom() <= y; });
    if (below == rows_.end() || below->top > y)
        return std::nullopt;
    return static_cast<std::size_t>(below - rows_.begin());
}

ListLayout::Range ListLayout::rowsBetween(double top, double bottom) const
{
    const auto first = std::partition_point(rows_.begin(), rows_.end(),
                                            [top](const Extent& row) { return row.bottom() <= top; });
    const auto end =
        std::partition_point(first, rows_.end(), [bottom](const Extent& row) { return row.top < bottom; });
    return {static_cast<std::size_t>(first - rows_.begin()), static_cast<std::size_t>(end - rows_.begin())};
}

ListLayout::Extent ListLayout::surroundings(std::size_t row) const
{
    const Extent extent = rows_[row];
    int top = extent.top - list::spacing;
    for (const Caption& caption : captions_) {
        if (caption.extent.bottom() + list::spacing == extent.top)
            top = caption.extent.top - list::spacing;
    }
    const int bottom = row + 1 == rows_.size() ? contentHeight_ : extent.bottom() + list::spacing;
    return {row == 0 ? 0 : top, bottom - (row == 0 ? 0 : top)};
}

} // namespace tessel
