#include <algorithm>

#include "Measures/MeasuredDesktop.h"
#include "Measures/MeasuredRow.h"
#include "Measures/PanelMeasuring.h"

namespace tessel::test {

namespace {

/// `levels` lead across an edge of a row into it: `outside` of them, and then inside.
void noteOutline(Measurements& measurements, const MeasuredPicture& picture, const std::vector<int>& levels,
                 int outside, int fill, const std::string& state, const std::string& side)
{
    const double opacity =
        static_cast<double>(levels[static_cast<std::size_t>(outside)] - fill) / (white - fill);
    double width = 0;
    for (int pixel = 0; pixel < static_cast<int>(levels.size()); ++pixel) {
        const int ground = pixel < outside ? 0 : fill;
        width += (levels[static_cast<std::size_t>(pixel)] - ground) / (opacity * (white - ground));
    }
    measurements.note("row.outlineOpacity" + state, opacity, side);
    measurements.note("row.outlineWidth" + state, picture.points(width), side);
}

void measureState(Measurements& measurements, const MeasuredPicture& picture, const MeasuredRow& row,
                  const std::string& state)
{
    const int fill = fillOf(picture, row);
    measurements.note("row.fillOpacity" + state, static_cast<double>(fill) / white);
    const int reach = picture.pixels(outlineReach);
    const int column = picture.pixels(emptyColumn);
    const auto note = [&](std::vector<int> levels, const std::string& side, bool leadsOut) {
        if (leadsOut)
            std::reverse(levels.begin(), levels.end());
        noteOutline(measurements, picture, levels, reach, fill, state, side);
    };
    const auto around = [reach](int edge) { return Span{edge - reach, edge + reach}; };
    note(picture.levelsOfColumn(column, around(row.rows.start)), "top", false);
    note(picture.levelsOfColumn(column, around(row.rows.end)), "bottom", true);
    note(picture.levelsOfRow(row.rows.middle(), around(row.columns.start)), "left", false);
    note(picture.levelsOfRow(row.rows.middle(), around(row.columns.end)), "right", true);
}

} // namespace

void measureRowStates(Measurements& measurements)
{
    const double scale = measurements.scale();
    BlackDesktop desktop(scale);
    desktop.copyAll({"C", "B", "A"});
    desktop.openPanel();
    const UUID first = desktop.item("A").id;
    const UUID second = desktop.item("B").id;
    desktop.view().selectItem(desktop.item("C").id);
    const auto rows = plainRows(desktop.picture(), 2);
    measureState(measurements, desktop.picture(), rows[0], "");
    desktop.view().pointerEntered(first);
    measureState(measurements, desktop.picture(), rows[0], ", hovered");
    desktop.view().selectItem(second);
    measureState(measurements, desktop.picture(), rows[1], ", selected");
    desktop.view().pointerEntered(second);
    measureState(measurements, desktop.picture(), rows[1], ", selected and hovered");
}

} // namespace tessel::test
