#pragma once

#include "Measures/MeasuredPicture.h"

namespace tessel::test {

/// The rectangle of a row, in pixels: the shape's, from which half of the outline stands out.
struct MeasuredRow {
    Span columns;
    Span rows;
};

/// Brighter than the outline of a row on the card, darker than on the row's fill.
inline constexpr int insideRow = 37;

/// The first rows, which must be neither selected nor hovered. Throws where there are fewer.
std::vector<MeasuredRow> plainRows(const MeasuredPicture& picture, std::size_t count);
/// The level of the row where it is empty.
int fillOf(const MeasuredPicture& picture, const MeasuredRow& row);

} // namespace tessel::test
