// Measures the about window's content as it is drawn, pixel by pixel, and holds it to the numbers that it was
// designed in.

#include <cmath>
#include <numbers>

#include <gtest/gtest.h>

#include "Measures/WindowMeasures.h"
#include "Support/WindowOf.h"
#include "Windows/AboutView.h"

namespace tessel::test {

namespace {

constexpr Ink tertiary = {0.65, 0.55};
constexpr Ink keyLabelFill = {0.14, 0.07};
constexpr Ink outline = {0.08, 0.08};

// Places in the design, in points from the root's corner. A line of the measuring font is as high as its
// size.
constexpr double headerLeft = 18 + 4;
constexpr double firstLine = 18 + 2;
constexpr double secondLine = firstLine + 17 + 5;
constexpr double thirdLine = secondLine + 15 + 5;
constexpr double cardLeft = 18;
constexpr double cardRight = 420 - 18;
constexpr double cardTop = thirdLine + 12 + 14;
constexpr double cardContentLeft = cardLeft + 14;
constexpr double heading = cardTop + 14;
constexpr double keyLabelHeight = 12 + 2 * 3;
constexpr double firstRow = heading + 13 + 10;
constexpr double rowPitch = keyLabelHeight + 10;
constexpr double cardBottom = firstRow + 4 * rowPitch - 10 + 14;
constexpr double footer = cardBottom + 14;
constexpr double closeHeight = 12 + 2 * 6;
constexpr double rootHeight = footer + closeHeight + 18;

class AboutMeasures : public WindowMeasures {
protected:
    AboutMeasures()
    {
        desktop_.appearance.change({scheme(), SystemColor{1, 1, 1}, true});
        desktop_.state->showAboutWindow();
    }

    QWidget& root() const override { return view(); }
    AboutView& view() const { return *windowOf(desktop_.state->aboutController).findChild<AboutView*>(); }
};

/// The radius of a corner that passes the diagonal at that inset.
double radiusOf(double inset)
{
    return inset / (1 - std::numbers::sqrt2 / 2);
}

} // namespace

TEST_P(AboutMeasures, OfTheTexts)
{
    const MeasuredPicture picture = ink();
    EXPECT_NEAR(picture.points(picture.width()), 420, 0.01);
    EXPECT_NEAR(picture.points(picture.height()), rootHeight, 1);
    expectLine(picture, {"Tessel Cli", headerLeft, firstLine, 17, 700, primary});
    expectLine(picture, {"Tessel cli", headerLeft, secondLine, 15, 600, secondary});
    expectLine(picture, {"Current be", headerLeft, thirdLine, 12, 400, tertiary});
    expectLine(picture, {"Keyboard S", cardContentLeft, heading, 13, 700, primary});
    constexpr double titleLeft = cardContentLeft + 16 + 8;
    double top = firstRow + 3;
    for (const char* start : {"Open hist", "Navigate", "Paste sel", "Close pan"}) {
        expectLine(picture, {start, titleLeft, top, 12, 400, primary});
        top += rowPitch;
    }
}

TEST_P(AboutMeasures, OfTheKeys)
{
    const MeasuredPicture picture = ink();
    double top = firstRow;
    for (const std::string keys : {"Cmd + Shift + V", "Up / Down", "Enter", "Esc"}) {
        SCOPED_TRACE(keys);
        const double width = MeasuringFont::advance * 12 * static_cast<double>(keys.size()) + 2 * 8;
        const double right = cardRight - 14;
        const int fill = picture.level(picture.pixels(right - 4), picture.pixels(top + keyLabelHeight / 2));
        EXPECT_NEAR(fill, opacity(keyLabelFill) * white, 1.5);
        const Span columns = {picture.pixels(right - width - 4), picture.pixels(right + 4)};
        const Span rows = {picture.pixels(top - 4), picture.pixels(top + keyLabelHeight + 4)};
        const auto wide = picture.brightColumns(columns, rows, fill / 2);
        EXPECT_NEAR(picture.points(wide.front().start), right - width, tolerance() + 0.5);
        EXPECT_NEAR(picture.points(wide.back().end), right, tolerance());
        const auto high = picture.brightRows(columns, rows, fill / 2);
        EXPECT_NEAR(picture.points(high.front().start), top, tolerance());
        EXPECT_NEAR(picture.points(high.front().end), top + keyLabelHeight, tolerance());
        const double inset = picture.cornerInset(wide.front().start, high.front().start, 0, fill);
        EXPECT_NEAR(radiusOf(picture.points(inset)), 8, 0.5 + 1.5 / scale());
        if (keys == "Enter" || keys == "Esc")
            expectLine(picture, {keys, std::floor(right - width) + 8, top + 3, 12, 600, primary}, fill);
        top += rowPitch;
    }
}

TEST_P(AboutMeasures, OfTheSymbols)
{
    const MeasuredPicture picture = ink();
    const Span columns = {picture.pixels(cardContentLeft), picture.pixels(cardContentLeft + 16)};
    for (int row = 0; row < 4; ++row) {
        const double middle = firstRow + row * rowPitch + keyLabelHeight / 2;
        const Span rows = {picture.pixels(middle - 9), picture.pixels(middle + 9)};
        EXPECT_NEAR(picture.brightest(columns, rows), opacity(secondary) * white, 12) << "row " << row;
        const auto ink = picture.brightRows(columns, rows, 20);
        ASSERT_FALSE(ink.empty());
        EXPECT_NEAR(picture.points(ink.front().start + ink.back().end) / 2, middle, 1) << "row " << row;
    }
}

TEST_P(AboutMeasures, OfTheCard)
{
    const MeasuredPicture picture = fills();
    const double expected = isDark() ? 0.28 : 0.62;
    const int inside = picture.level(picture.pixels(cardLeft + 6), picture.pixels(cardTop + 60));
    EXPECT_NEAR(inside, expected * white, 1.5);
    const int edge = picture.level(picture.pixels(cardLeft), picture.pixels(cardTop + 60));
    EXPECT_NEAR(edge, inside * (1 - outline.dark), 1.5);
    const Span columns = {0, picture.width()};
    const Span rows = {picture.pixels(cardTop + 50), picture.pixels(cardTop + 51)};
    EXPECT_NEAR(picture.points(picture.brightColumns(columns, rows, 5).front().start), cardLeft, tolerance());
    EXPECT_NEAR(picture.points(picture.brightColumns(columns, rows, 5).back().end), cardRight, tolerance());
    const Span beside = {picture.pixels(cardLeft + 6), picture.pixels(cardLeft + 8)};
    const auto card =
        picture.brightRows(beside, {picture.pixels(cardTop - 5), picture.pixels(cardBottom + 5)}, 5);
    // The rounded corner is still near.
    EXPECT_NEAR(picture.points(card.front().start), cardTop + 1, 2);
    EXPECT_NEAR(picture.points(card.front().end), cardBottom - 1, 2);
    const double inset = picture.cornerInset(picture.pixels(cardLeft), picture.pixels(cardTop), 0, edge);
    EXPECT_NEAR(radiusOf(picture.points(inset)), 14, 0.5 + 1.5 / scale());
}

TEST_P(AboutMeasures, OfTheLink)
{
    const MeasuredPicture picture = ink();
    const double middle = footer + closeHeight / 2;
    constexpr double left = 18 + 12 + 5;
    // Small letters fill the lower half of the line.
    const MeasuredText text =
        measuredText(picture, {picture.pixels(left - 2), picture.pixels(left + 6 * 8 - 1)},
                     {picture.pixels(middle - 8), picture.pixels(middle + 8)}, 0, "tessel");
    EXPECT_NEAR(picture.points(text.columns.start), left, tolerance());
    EXPECT_NEAR(picture.points(text.rows.start), middle, tolerance());
    EXPECT_NEAR(text.size, 10 / 2, 0.5);
    EXPECT_NEAR(text.opacity, opacity(primary), 0.006);
    const Span symbol = {picture.pixels(18), picture.pixels(30)};
    EXPECT_NEAR(picture.brightest(symbol, {picture.pixels(middle - 6), picture.pixels(middle + 6)}),
                opacity(primary) * white, 12);
}

TEST_P(AboutMeasures, OfTheCloseButton)
{
    // White text on a fill of the accent colour, which is white here, or of black: shown over black and over
    // white.
    const QImage image = drawnOver(isDark() ? Qt::black : Qt::white);
    const MeasuredPicture picture(image);
    const double width = 12 + MeasuringFont::advance * 12 * 5 + 12;
    const double left = cardRight - width;
    const double fill = isDark() ? 0.9 : 1 - 0.82;
    const int ground = picture.level(picture.pixels(left + 6), picture.pixels(footer + closeHeight / 2));
    EXPECT_NEAR(ground, fill * white, 1.5);
    const MeasuredText text =
        measuredText(picture, {picture.pixels(left + 8), picture.pixels(cardRight - 8)},
                     {picture.pixels(footer + 4), picture.pixels(footer + closeHeight - 4)}, ground, "Close");
    EXPECT_NEAR(picture.points(text.columns.start), left + 12, tolerance());
    EXPECT_NEAR(picture.points(text.rows.start), footer + 6, tolerance());
    EXPECT_NEAR(text.size, 12, 0.5);
    EXPECT_NEAR(text.weight, 600, 20 + 30 / scale());
    EXPECT_NEAR(text.opacity, 1, 0.02);

    const double line = isDark() ? 0.12 : 0.15;
    const double edge = isDark() ? fill + (1 - fill) * line : fill * (1 - line);
    EXPECT_NEAR(picture.level(picture.pixels(left + 14), picture.pixels(footer)), edge * white, 2.5);

    QImage shape = image;
    if (!isDark())
        shape.invertPixels();
    const MeasuredPicture onBlack(shape);
    const int full =
        std::min(onBlack.level(onBlack.pixels(left + 14), onBlack.pixels(footer)),
                 onBlack.level(onBlack.pixels(left + 6), onBlack.pixels(footer + closeHeight / 2)));
    const auto columns =
        onBlack.brightColumns({onBlack.pixels(left - 8), onBlack.width()},
                              {onBlack.pixels(footer + 12), onBlack.pixels(footer + 13)}, full / 2);
    EXPECT_NEAR(onBlack.points(columns.front().start), left, tolerance() + 0.5);
    EXPECT_NEAR(onBlack.points(columns.back().end), cardRight, tolerance());
    const double inset = onBlack.cornerInset(columns.front().start, onBlack.pixels(footer), 0, full);
    EXPECT_NEAR(radiusOf(onBlack.points(inset)), 9, 0.5 + 1.5 / scale());
}

INSTANTIATE_TEST_SUITE_P(Of, AboutMeasures,
                         testing::Combine(testing::Values(1.0, 1.5, 2.0),
                                          testing::Values(ColorScheme::dark, ColorScheme::light)),
                         [](const auto& kind) {
                             const bool isDark = std::get<1>(kind.param) == ColorScheme::dark;
                             return std::string(isDark ? "Dark" : "Light") +
                                    std::to_string(std::lround(std::get<0>(kind.param) * 100));
                         });

} // namespace tessel::test
