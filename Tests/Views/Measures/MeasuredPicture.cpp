#include "Measures/MeasuredPicture.h"

#include <algorithm>
#include <cmath>
#include <functional>
#include <utility>

namespace tessel::test {

namespace {

/// The runs of numbers in `span` that are chosen.
std::vector<Span> runs(const Span& span, const std::function<bool(int)>& isChosen)
{
    std::vector<Span> result;
    for (int number = span.start; number < span.end; ++number) {
        if (!isChosen(number))
            continue;
        if (result.empty() || result.back().end != number)
            result.push_back({number, number});
        result.back().end = number + 1;
    }
    return result;
}

} // namespace

MeasuredPicture::MeasuredPicture(QImage image)
    : image_(std::move(image))
{}

int MeasuredPicture::pixels(double points) const
{
    return static_cast<int>(std::lround(points * scale()));
}

std::vector<int> MeasuredPicture::levelsOfColumn(int x, const Span& rows) const
{
    std::vector<int> levels;
    for (int y = rows.start; y < rows.end; ++y)
        levels.push_back(level(x, y));
    return levels;
}

std::vector<int> MeasuredPicture::levelsOfRow(int y, const Span& columns) const
{
    std::vector<int> levels;
    for (int x = columns.start; x < columns.end; ++x)
        levels.push_back(level(x, y));
    return levels;
}

int MeasuredPicture::brightest(const Span& columns, const Span& rows) const
{
    int result = 0;
    for (int y = rows.start; y < rows.end; ++y) {
        for (int x = columns.start; x < columns.end; ++x)
            result = std::max(result, level(x, y));
    }
    return result;
}

std::vector<Span> MeasuredPicture::brightColumns(const Span& columns, const Span& rows, int level) const
{
    return runs(columns, [&](int x) { return brightest({x, x + 1}, rows) > level; });
}

std::vector<Span> MeasuredPicture::brightRows(const Span& columns, const Span& rows, int level) const
{
    return runs(rows, [&](int y) { return brightest(columns, {y, y + 1}) > level; });
}

double MeasuredPicture::cornerInset(int x, int y, int empty, int full) const
{
    double inset = 0;
    for (int step = 0; x + step < width() && y + step < height(); ++step) {
        const int seen = level(x + step, y + step);
        if (seen >= full)
            break;
        inset += 1 - std::max(0.0, static_cast<double>(seen - empty) / (full - empty));
    }
    return inset;
}

} // namespace tessel::test
