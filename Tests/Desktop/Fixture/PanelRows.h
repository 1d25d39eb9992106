#pragma once

#include <functional>
#include <string>
#include <vector>

#include "Program.h"

namespace tessel::desktop {

/// A row of the panel's list as it is to be seen; heights in pixels from the panel's top.
struct PanelRow {
    int top = 0;
    int bottom = 0;
    bool isSelected = false;
    bool isHovered = false;

    bool operator==(const PanelRow&) const = default;
};

/// The rows in a picture of the panel as it looks without a compositor, from the top. Their titles must be
/// short, and leave the right half of the row free.
std::vector<PanelRow> rowsIn(const Picture& panel);

/// The rows of an open panel, and the ways of a pointer to them.
class PanelRows {
public:
    using Condition = std::function<bool(const std::vector<PanelRow>&)>;

    PanelRows(Desktop& desktop, Program& program)
        : desktop_(desktop)
        , program_(program)
    {}

    /// Waits until the rows are as they have to be, and returns them.
    std::vector<PanelRow> waitUntil(const std::string& awaited, const Condition& condition);
    std::vector<PanelRow> waitForCount(std::size_t count);
    /// Waits until exactly the row at that position, counted from 0, is selected.
    void waitForSelection(std::size_t position);
    /// The middle of a row on the screen.
    Place placeOf(std::size_t position);

private:
    Desktop& desktop_;
    Program& program_;
};

} // namespace tessel::desktop
