// Measures the settings as they are drawn, pixel by pixel, and holds them to the numbers that they were
// designed in.

#include <cmath>
#include <numbers>
#include <tuple>

#include <gtest/gtest.h>

#include "Measures/WindowMeasures.h"
#include "Windows/SecondaryWindowController.h"
#include "Windows/SettingsView.h"

namespace tessel::test {

namespace {

constexpr double outlineOpacity = 0.08;

// Places in the design, in points from the root's corner. A line of the measuring font is as high as its
// size, and it is so wide that all captions but one take two lines.
constexpr double left = 18;
constexpr double right = 420 - 18;
constexpr double cardPadding = 12;
constexpr double contentLeft = left + cardPadding;
constexpr double contentRight = right - cardPadding;
constexpr double body = 13;
constexpr double caption = 10;
constexpr double titleTop = 18;
constexpr double gap = 8;
constexpr double cardSpacing = 14;

constexpr double loginCard = titleTop + 22 + 16;
constexpr double checkBox = 14;
constexpr double loginCaption = loginCard + cardPadding + checkBox + gap;
constexpr double shortcutCard = loginCaption + 2 * caption + cardPadding + cardSpacing;
constexpr double pickerHeight = 22;
constexpr double picker = shortcutCard + cardPadding + body + gap;
constexpr double shortcutCaption = picker + pickerHeight + gap;
constexpr double policyCard = shortcutCaption + 2 * caption + cardPadding + cardSpacing;
constexpr double presetHeight = 20;
constexpr double presets = policyCard + cardPadding + body + gap + 1;
constexpr double policyCaption = presets + presetHeight + 1 + gap;
constexpr double tintCard = policyCaption + caption + cardPadding + cardSpacing;
constexpr double sliderHeight = 18;
constexpr double slider = tintCard + cardPadding + body + gap;
constexpr double tintCaption = slider + sliderHeight + gap;
constexpr double tintCardBottom = tintCaption + 2 * caption + cardPadding;
constexpr double closeHeight = 12 + 2 * 6;
constexpr double bar = 500 - 18 - closeHeight;

/// The settings, opened in the other colour scheme: they follow the desktop. The accent colour is that of the
/// texts.
class SettingsMeasures : public WindowMeasures {
protected:
    SettingsMeasures()
    {
        desktop_.appearance.change(
            {isDark() ? ColorScheme::light : ColorScheme::dark, SystemColor{1, 0, 0}, true});
        desktop_.state->showSettingsWindow();
        runMainLoop();
        desktop_.appearance.change({scheme(), isDark() ? SystemColor{1, 1, 1} : SystemColor{0, 0, 0}, true});
        runMainLoop();
    }

    QWidget& root() const override { return view(); }
    SettingsView& view() const
    {
        return *dynamic_cast<SecondaryWindowController&>(*desktop_.state->settingsController)
                    .window()
                    .findChild<SettingsView*>();
    }

    void expectLine(const MeasuredPicture& picture, const Line& line, int ground = 0) const
    {
        // A caption's next line begins where it ends.
        const bool isCaption = line.size == caption && line.left == contentLeft;
        WindowMeasures::expectLine(picture, line, ground, isCaption ? 0 : marginAround);
    }
    /// A text that ends at the cards' content.
    void expectValue(const MeasuredPicture& picture, const std::string& text, double top, double size,
                     double weight) const
    {
        expectLine(picture,
                   {text, std::floor(contentRight - widthOf(text, size)), top, size, weight, secondary});
    }
    void expectCard(const MeasuredPicture& picture, double top, double bottom) const
    {
        SCOPED_TRACE("the card at " + std::to_string(top));
        const double middle = (top + bottom) / 2;
        // Free of contents are the paddings only.
        const double beside = left + cardPadding / 2;
        const int inside = picture.level(picture.pixels(beside), picture.pixels(middle));
        EXPECT_NEAR(inside, (isDark() ? 0.28 : 0.62) * white, 1.5);
        const int edge = picture.level(picture.pixels(left), picture.pixels(middle));
        EXPECT_NEAR(edge, inside * (1 - outlineOpacity), 1.5);
        const int next = picture.level(picture.pixels(left + 2), picture.pixels(middle));
        EXPECT_EQ(next, inside);

        const auto columns = picture.brightColumns(
            {0, picture.width()}, {picture.pixels(middle), picture.pixels(middle) + 1}, inside / 2);
        EXPECT_NEAR(picture.points(columns.front().start), left, tolerance());
        EXPECT_NEAR(picture.points(columns.back().end), right, tolerance());
        const double farFromCorners = left + cardPadding + 6;
        const int column = picture.pixels(farFromCorners);
        EXPECT_LT(picture.level(column, picture.pixels(top) - 2), 3);
        EXPECT_GT(picture.level(column, picture.pixels(top)), edge / 2);
        EXPECT_GT(picture.level(column, picture.pixels(bottom) - 2), edge / 2);
        EXPECT_LT(picture.level(column, picture.pixels(bottom) + 1), 3);
        const double inset = picture.cornerInset(picture.pixels(left), picture.pixels(top), 0, edge);
        EXPECT_NEAR(picture.points(inset) / (1 - std::numbers::sqrt2 / 2), 11, 0.5 + 1.5 / scale());
    }
};

} // namespace

TEST_P(SettingsMeasures, OfTheTexts)
{
    const MeasuredPicture picture = ink();
    EXPECT_NEAR(picture.points(picture.width()), 420, 0.01);
    EXPECT_NEAR(picture.points(picture.height()), 500, 0.01);
    expectLine(picture, {"Settings", left, titleTop, 22, 600, primary});
    expectLine(picture,
               {"Launch at", contentLeft + checkBox + 6, loginCard + cardPadding, body, 400, primary});
    expectLine(picture, {"Automatica", contentLeft, loginCaption, caption, 400, secondary});
    expectLine(picture, {"Keyboard", contentLeft, shortcutCard + cardPadding, body, 400, primary});
    expectLine(picture, {"If one pre", contentLeft, shortcutCaption, caption, 400, secondary});
    expectLine(picture, {"Quick cle", contentLeft, policyCard + cardPadding, body, 400, primary});
    expectLine(picture, {"Automatica", contentLeft, policyCaption, caption, 400, secondary});
    expectLine(picture, {"Panel tra", contentLeft, tintCard + cardPadding, body, 400, primary});
    expectLine(picture, {"Lower val", contentLeft, tintCaption, caption, 400, secondary});
}

TEST_P(SettingsMeasures, OfTheValues)
{
    const MeasuredPicture picture = ink();
    constexpr double lower = 1.5; // The smaller text is in the middle of its line.
    expectValue(picture, "Infinity", policyCard + cardPadding + lower, caption, 600);
    expectValue(picture, "25%", tintCard + cardPadding, body, 400);
}

TEST_P(SettingsMeasures, OfTheCards)
{
    const MeasuredPicture picture = fills();
    expectCard(picture, loginCard, shortcutCard - cardSpacing);
    expectCard(picture, shortcutCard, policyCard - cardSpacing);
    expectCard(picture, policyCard, tintCard - cardSpacing);
    expectCard(picture, tintCard, tintCardBottom);
}

TEST_P(SettingsMeasures, OfTheSlider)
{
    const double middle = slider + sliderHeight / 2;
    constexpr double knobRadius = 8;
    const double way = contentRight - contentLeft - 2 * knobRadius;
    for (const auto& [tint, share] : {std::pair(0.1, 0.0), std::pair(0.25, 0.25), std::pair(0.7, 1.0)}) {
        desktop_.state->panelTintOpacity = tint;
        runMainLoop();
        const MeasuredPicture now = ink();
        const double knob = contentLeft + knobRadius + share * way;
        const auto filled = now.brightColumns({now.pixels(contentLeft - 4), now.pixels(contentRight + 4)},
                                              {now.pixels(middle), now.pixels(middle) + 1}, 240);
        // The knob covers the end of what is filled.
        EXPECT_EQ(filled.empty(), share == 0);
        if (!filled.empty()) {
            EXPECT_NEAR(now.points(filled.front().start), contentLeft, tolerance() + 0.5);
            EXPECT_NEAR(now.points(filled.front().end), knob - knobRadius, tolerance() + 0.5);
        }
    }
}

TEST_P(SettingsMeasures, OfThePresets)
{
    constexpr double textSize = 11;
    constexpr double padding = 8;
    desktop_.state->quickClearPolicy = QuickClearPolicy::custom;
    double start = contentLeft;
    for (const auto& [seconds, title] : {std::pair(30, "30s"), std::pair(300, "5m"), std::pair(900, "15m")}) {
        SCOPED_TRACE(title);
        desktop_.state->quickClearCustomSeconds = seconds;
        runMainLoop();
        const MeasuredPicture picture = ink();
        const double width = std::ceil(widthOf(title, textSize)) + 2 * padding;
        // Only the chosen one is filled with the accent colour. Its text begins below that line.
        const int line = picture.pixels(presets + 2.5);
        const auto filled = picture.brightColumns(
            {picture.pixels(contentLeft - 4), picture.pixels(contentRight)}, {line, line + 1}, 200);
        ASSERT_EQ(filled.size(), 1U);
        EXPECT_NEAR(picture.points(filled[0].start), start, tolerance() + 0.5);
        EXPECT_NEAR(picture.points(filled[0].end), start + width, tolerance() + 0.5);
        const int column = picture.pixels(start + 5);
        const auto rows = picture.brightRows(
            {column, column + 1}, {picture.pixels(presets - 4), picture.pixels(presets + 24)}, 200);
        EXPECT_NEAR(picture.points(rows.front().start), presets, tolerance());
        EXPECT_NEAR(picture.points(rows.back().end), presets + presetHeight, tolerance());
        start += width + 6;
    }
}

TEST_P(SettingsMeasures, OfTheControlsTexts)
{
    const MeasuredPicture picture = ink();
    const int inPicker = picture.level(picture.pixels(contentLeft + 5), picture.pixels(picker + 11));
    expectLine(picture, {"Cmd + Sh", contentLeft + 10, picker + 4, body, 400, primary}, inPicker);
    const double reset = bar + (closeHeight - pickerHeight) / 2;
    const int inReset = picture.level(picture.pixels(left + 6), picture.pixels(reset + 11));
    expectLine(picture, {"Reset", left + 12, reset + 4, body, 400, primary}, inReset);
}

INSTANTIATE_TEST_SUITE_P(Of, SettingsMeasures,
                         testing::Combine(testing::Values(1.0, 1.5, 2.0),
                                          testing::Values(ColorScheme::dark, ColorScheme::light)),
                         [](const auto& kind) {
                             const bool isDark = std::get<1>(kind.param) == ColorScheme::dark;
                             return std::string(isDark ? "Dark" : "Light") +
                                    std::to_string(std::lround(std::get<0>(kind.param) * 100));
                         });

} // namespace tessel::test
