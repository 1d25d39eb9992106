#pragma once

#include <cstddef>
#include <optional>
#include <span>
#include <string_view>
#include <vector>

namespace tessel {

/// Where the parts of the panel's list lie, in points from the top of its content.
class ListLayout {
public:
    struct Extent {
        int top;
        int height;

        int bottom() const { return top + height; }
    };
    enum class Section { pinned, recent };
    struct Caption {
        Section section;
        Extent extent;
    };
    /// Rows `first` up to, not including, `end`.
    struct Range {
        std::size_t first;
        std::size_t end;
    };

    ListLayout() = default;
    /// The heights of the rows in display order; the first `pinnedCount` are the pinned ones.
    ListLayout(std::span<const int> rowHeights, std::size_t pinnedCount, int captionHeight);

    const std::vector<Extent>& rows() const { return rows_; }
    const std::vector<Caption>& captions() const { return captions_; }
    int contentHeight() const { return contentHeight_; }

    /// The row at that height. None: there is a gap, a caption or nothing.
    std::optional<std::size_t> rowAt(double y) const;
    /// The rows that lie at least partly between two heights.
    Range rowsBetween(double top, double bottom) const;
    /// What has to be in view with a row: the row, with the caption or the end of the list next to it.
    Extent surroundings(std::size_t row) const;

private:
    std::vector<Extent> rows_;
    std::vector<Caption> captions_;
    int contentHeight_ = 0;
};

} // namespace tessel
