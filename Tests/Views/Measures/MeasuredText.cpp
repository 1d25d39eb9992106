#include "Measures/MeasuredText.h"

#include <algorithm>
#include <numeric>
#include <stdexcept>

#include "Measures/MeasuringFont.h"

namespace tessel::test {

MeasuredText measuredText(const MeasuredPicture& picture, const Span& columns, const Span& rows, int ground,
                          const std::string& text)
{
    const int ink = picture.brightest(columns, rows);
    const int edge = (ground + ink) / 2;
    const auto lines = picture.brightRows(columns, rows, edge);
    const auto letters = picture.brightColumns(columns, rows, edge);
    if (lines.empty())
        throw std::runtime_error("There is no text \"" + text + "\".");
    const auto covered = [&](const std::vector<int>& levels) {
        const double sum = std::accumulate(levels.begin(), levels.end(), 0.0);
        return picture.points((sum - static_cast<double>(levels.size()) * ground) / (ink - ground));
    };
    const Span line = {lines.front().start, lines.back().end};
    // The first letter is a capital or a digit, and as high as the line. All have ink in the line's lower
    // half.
    const double size = covered(picture.levelsOfColumn(letters.front().start + picture.pixels(2), rows));
    const auto letterCount =
        std::count_if(text.begin(), text.end(), [](char letter) { return letter != ' '; });
    const double letterWidth = covered(picture.levelsOfRow(line.end - 1 - line.length() / 4, columns)) /
                               static_cast<double>(letterCount);
    const Span inked = {letters.front().start, letters.back().end};
    const auto pitches = static_cast<double>(text.size() - 1);
    const double pitch = (picture.points(inked.length()) - letterWidth) / pitches;
    return {
        .columns = inked,
        .rows = line,
        .penEnd = inked.end + (pitch - letterWidth) * picture.scale(),
        .size = size,
        .weight = MeasuringFont::weightOf(letterWidth / size),
        .opacity = static_cast<double>(ink - ground) / (white - ground),
        .tracking = pitch - MeasuringFont::advance * size,
    };
}

void noteText(Measurements& measurements, const std::string& name, const MeasuredText& text)
{
    measurements.note(name + ".size", text.size);
    measurements.note(name + ".weight", text.weight);
    measurements.note(name + ".tracking", text.tracking);
    measurements.note(name + ".opacity", text.opacity);
}

std::vector<Span> linesOfText(const MeasuredPicture& picture, const Span& columns, const Span& rows,
                              int ground)
{
    constexpr int hint = 12; // Levels above the ground that only a text's pixels have.
    return picture.brightRows(columns, rows, ground + hint);
}

} // namespace tessel::test
