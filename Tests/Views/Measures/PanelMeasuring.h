#pragma once

#include <numbers>

#include "Measures/Measurements.h"

namespace tessel::test {

// Places that are free of texts, in points, and safely beside what is measured there.
/// The card's outline is nearer to its edge, in the corners too.
inline constexpr double cardEdge = 6;
/// A column between the header's texts and its buttons, and right of all titles.
inline constexpr double emptyColumn = 240;
/// What begins at the left ends before it.
inline constexpr double endOfTexts = 230;
/// So does the header, and nothing of the empty state begins above it.
inline constexpr double endOfHeader = 70;
/// The rows' edges are nearer to the card's.
inline constexpr double rowEdge = 20;
/// No outline reaches further from the edge of a row; its contents do.
inline constexpr double outlineReach = 5;

/// The radius of a corner that passes the diagonal at that inset: a circle's.
inline double radiusOf(double inset)
{
    return inset / (1 - std::numbers::sqrt2 / 2);
}

/// Where the list begins, in pixels: a row that is scrolled is cut off there.
int topOfList(double scale);

/// @name What is measured of the panel. Each throws where it does not find what it looks for.
/// @{
/// The card, its header and the message of an empty history.
void measureEmptyPanel(Measurements& measurements);
void measureTint(Measurements& measurements);
void measureList(Measurements& measurements);
void measureEndOfList(Measurements& measurements);
void measureLongTitles(Measurements& measurements);
/// The four combinations of selected and hovered.
void measureRowStates(Measurements& measurements);
void measureRowShadow(Measurements& measurements);
/// The preview of a text.
void measureGlyph(Measurements& measurements);
/// @}

} // namespace tessel::test
