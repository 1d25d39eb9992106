#pragma once

#include <string>

#include "Measures/MeasuredPicture.h"
#include "Measures/Measurements.h"

namespace tessel::test {

/// A line of text in the measuring font.
struct MeasuredText {
    /// In pixels, from the first letter's left edge to the last one's right edge.
    Span columns;
    Span rows;     ///< In pixels.
    double penEnd; ///< Where the pen has got to after the last letter, in pixels.
    double size;   ///< In points.
    double weight;
    double opacity;
    double tracking; ///< In points.
};

/// Measures the only text in a rectangle of plain ground. Throws where there is none.
MeasuredText measuredText(const MeasuredPicture& picture, const Span& columns, const Span& rows, int ground,
                          const std::string& text);

/// Notes the text's font and opacity, as measures of `name`.
void noteText(Measurements& measurements, const std::string& name, const MeasuredText& text);

/// The lines of text in a rectangle, from the top, with some ground above and below each.
std::vector<Span> linesOfText(const MeasuredPicture& picture, const Span& columns, const Span& rows,
                              int ground);

} // namespace tessel::test
