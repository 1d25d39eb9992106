#include "Measures/MeasuredRow.h"

#include "Measures/PanelMeasuring.h"

namespace tessel::test {

std::vector<MeasuredRow> plainRows(const MeasuredPicture& picture, std::size_t count)
{
    const int column = picture.pixels(emptyColumn);
    const Span all = {picture.pixels(cardEdge), picture.height() - picture.pixels(cardEdge)};
    const auto edges = picture.brightRows({column, column + 1}, all, insideRow);
    std::vector<MeasuredRow> rows;
    for (std::size_t row = 0; row < count; ++row) {
        const Span vertical = {edges.at(2 * row).start, edges.at(2 * row + 1).end};
        const Span middle = {vertical.middle(), vertical.middle() + 1};
        const Span leftEdge = {picture.pixels(cardEdge), picture.pixels(rowEdge)};
        const Span rightEdge = {picture.width() - leftEdge.end, picture.width() - leftEdge.start};
        rows.push_back({{picture.brightColumns(leftEdge, middle, insideRow).at(0).start,
                         picture.brightColumns(rightEdge, middle, insideRow).back().end},
                        vertical});
    }
    return rows;
}

int fillOf(const MeasuredPicture& picture, const MeasuredRow& row)
{
    return picture.level(picture.pixels(emptyColumn), row.rows.middle());
}

} // namespace tessel::test
