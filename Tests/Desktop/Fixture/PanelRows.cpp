#include "PanelRows.h"

#include <algorithm>

namespace tessel::desktop {

namespace {

enum class Shade { card, row, hoveredRow, outline, selectedOutline };

/// A row is white at a tenth on the dark card, a little more when it is hovered; its outline is white at a
/// tenth again, and at more than a half when it is selected.
Shade shadeOf(const Colour& colour)
{
    constexpr int brightestCard = 38;
    constexpr int brightestRow = 50;
    constexpr int brightestHoveredRow = 60;
    constexpr int brightestOutline = 100;
    const int brightness = colour[1];
    if (brightness <= brightestCard)
        return Shade::card;
    if (brightness <= brightestRow)
        return Shade::row;
    if (brightness <= brightestHoveredRow)
        return Shade::hoveredRow;
    return brightness <= brightestOutline ? Shade::outline : Shade::selectedOutline;
}

bool isRow(Shade shade)
{
    return shade == Shade::row || shade == Shade::hoveredRow;
}

} // namespace

std::vector<PanelRow> rowsIn(const Picture& panel)
{
    constexpr int headerHeight = 56;
    constexpr int column = Panel::width - 40; // Beside the texts, and left of the scroll indicator.
    constexpr int leastHeight = 12;
    constexpr int outlineReach = 3;
    const auto shade = [&](int y) { return shadeOf(panel.at(column, y)); };
    std::vector<PanelRow> rows;
    for (int y = headerHeight; y < panel.height;) {
        int end = y;
        while (end < panel.height && isRow(shade(end)) && shade(end) == shade(y))
            ++end;
        if (end - y >= leastHeight) {
            bool isSelected = false;
            for (int above = std::max(headerHeight, y - outlineReach); above < y; ++above)
                isSelected = isSelected || shade(above) == Shade::selectedOutline;
            rows.push_back({y, end, isSelected, shade(y) == Shade::hoveredRow});
        }
        y = std::max(end, y + 1);
    }
    return rows;
}

std::vector<PanelRow> PanelRows::waitUntil(const std::string& awaited, const Condition& condition)
{
    std::vector<PanelRow> rows;
    try {
        desktop_.connection().waitUntil("the panel to show " + awaited, [&] {
            if (!program_.panel().isOpen())
                return false;
            rows = rowsIn(program_.panel().picture());
            return condition(rows);
        });
    } catch (const DesktopFailure& failure) {
        std::string seen = "; it shows";
        for (const PanelRow& row : rows)
            seen += " " + std::to_string(row.top) + "-" + std::to_string(row.bottom) +
                    (row.isSelected ? " selected" : "") + (row.isHovered ? " hovered" : "");
        throw DesktopFailure(failure.what() + seen);
    }
    return rows;
}

std::vector<PanelRow> PanelRows::waitForCount(std::size_t count)
{
    return waitUntil(std::to_string(count) + " rows",
                     [count](const auto& rows) { return rows.size() == count; });
}

void PanelRows::waitForSelection(std::size_t position)
{
    waitUntil("row " + std::to_string(position) + " selected", [position](const auto& rows) {
        std::size_t selected = 0;
        for (std::size_t row = 0; row < rows.size(); ++row)
            selected += rows[row].isSelected ? 1U : 0U;
        return selected == 1 && position < rows.size() && rows[position].isSelected;
    });
}

Place PanelRows::placeOf(std::size_t position)
{
    const auto rows = waitUntil("a row " + std::to_string(position),
                                [position](const auto& seen) { return position < seen.size(); });
    const auto panel = program_.panel().find().value();
    constexpr int middle = Panel::width / 2;
    return {panel.frame.x + middle, panel.frame.y + (rows[position].top + rows[position].bottom) / 2};
}

} // namespace tessel::desktop
