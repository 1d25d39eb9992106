// The panel on screens of several scales: what is drawn lies on whole pixels, as it is seen on the screen.

#include <algorithm>
#include <array>
#include <cmath>

#include "ClipboardOwner.h"
#include "Monitors.h"
#include "ProgramTest.h"

namespace tessel::desktop {

namespace {

/// Levels of grey across an edge, two pixels before it and three from it on, inwards.
using EdgeLevels = std::array<int, 5>;

/// What a black card's edges look like at one scale: where a line is not of whole pixels, its inner side is
/// paler, and its outer side is sharp all the same.
struct SharpEdges {
    double scale;
    EdgeLevels row;
    EdgeLevels selectedRow;
    std::array<int, 3> card; ///< From the window's edge on.
};
const std::array sharpEdges = {
    SharpEdges{1, {0, 0, 49, 26, 26}, {0, 0, 152, 89, 26}, {36, 0, 0}},
    SharpEdges{1.25, {0, 0, 49, 32, 26}, {0, 0, 152, 136, 26}, {36, 9, 0}},
    SharpEdges{1.5, {0, 0, 49, 37, 26}, {0, 140, 152, 58, 26}, {36, 18, 0}},
    SharpEdges{2, {0, 26, 49, 26, 26}, {0, 140, 152, 152, 26}, {36, 36, 0}},
};

const SharpEdges& sharpEdgesAt(double scale)
{
    return *std::find_if(sharpEdges.begin(), sharpEdges.end(),
                         [scale](const SharpEdges& edges) { return edges.scale == scale; });
}

/// Pixels from `start` up to, not including, `end`.
struct Run {
    int start;
    int end;
};

/// A picture of the panel as a black card, with a row and a selected one below it.
class BlackPanel {
public:
    BlackPanel(Picture picture, double scale)
        : picture_(std::move(picture))
        , scale_(scale)
    {}

    bool hasRows(std::size_t count) const
    {
        return picture_.width == pixels(Panel::width) && edgesOfRows().size() == 2 * count;
    }
    bool isSecondRowSelected() const
    {
        constexpr int brighterThanPlainOutline = 100;
        const auto edges = edgesOfRows();
        return edges.size() == 4 && level(column(), edges[2].start) > brighterThanPlainOutline;
    }
    void expectSharp() const;

private:
    int pixels(double points) const { return static_cast<int>(std::lround(points * scale_)); }
    int level(int x, int y) const { return picture_.at(x, y)[1]; }
    /// A column without texts, also while there is no row.
    int column() const { return pixels(Panel::width - 60); }
    /// The rows' upper and lower outlines, as far as they are not outside a row.
    std::vector<Run> edgesOfRows() const;
    Run rowInside(const Run& top, const Run& bottom, int leastLevel) const;
    void expectColumn(const Run& row, const EdgeLevels& levels, const std::string& name) const;

    Picture picture_;
    double scale_;
};

std::vector<Run> BlackPanel::edgesOfRows() const
{
    constexpr int endOfHeader = 56;
    constexpr int brighterThanFill = 40;
    std::vector<Run> runs;
    for (int y = pixels(endOfHeader); y < picture_.height - pixels(endOfHeader) / 2; ++y) {
        if (level(column(), y) <= brighterThanFill)
            continue;
        if (runs.empty() || runs.back().end != y)
            runs.push_back({y, y});
        runs.back().end = y + 1;
    }
    return runs;
}

Run BlackPanel::rowInside(const Run& top, const Run& bottom, int leastLevel) const
{
    Run row = {top.start, bottom.end};
    while (level(column(), row.start) < leastLevel)
        ++row.start;
    while (level(column(), row.end - 1) < leastLevel)
        --row.end;
    return row;
}

void BlackPanel::expectColumn(const Run& row, const EdgeLevels& levels, const std::string& name) const
{
    constexpr int rounding = 2;
    constexpr int before = 2;
    for (int step = 0; step < static_cast<int>(levels.size()); ++step) {
        const int expected = levels[static_cast<std::size_t>(step)];
        EXPECT_NEAR(level(column(), row.start - before + step), expected, rounding)
            << name << ", " << step - before << " pixels below its top";
        EXPECT_NEAR(level(column(), row.end - 1 + before - step), expected, rounding)
            << name << ", " << step - before << " pixels above its bottom";
    }
}

void BlackPanel::expectSharp() const
{
    SCOPED_TRACE("at scale " + std::to_string(scale_));
    constexpr int rounding = 2;
    constexpr int listPadding = 8;
    constexpr int spacing = 10;
    const SharpEdges& edges = sharpEdgesAt(scale_);
    const auto runs = edgesOfRows();
    ASSERT_EQ(runs.size(), 4U);
    EXPECT_NEAR(picture_.height, pixels(Panel::heightFor(2)), 1);
    const Run plain = rowInside(runs[0], runs[1], 45);
    const Run selected = rowInside(runs[2], runs[3], 147);
    expectColumn(plain, edges.row, "the first row");
    expectColumn(selected, edges.selectedRow, "the selected row");
    EXPECT_NEAR(selected.start - plain.end, spacing * scale_, 1);

    const int middle = (plain.start + plain.end) / 2;
    const int left = pixels(listPadding);
    const int right = pixels(Panel::width - listPadding);
    EXPECT_NEAR(level(left, middle), edges.row[2], rounding) << "the row's left edge";
    EXPECT_NEAR(level(left - 1, middle), edges.row[1], rounding) << "before the row's left edge";
    EXPECT_NEAR(level(right - 1, middle), edges.row[2], rounding) << "the row's right edge";
    EXPECT_NEAR(level(right, middle), edges.row[1], rounding) << "behind the row's right edge";

    for (int step = 0; step < static_cast<int>(edges.card.size()); ++step) {
        const int expected = edges.card[static_cast<std::size_t>(step)];
        EXPECT_NEAR(level(step, middle), expected, rounding) << "the card's left edge, " << step;
        EXPECT_NEAR(level(picture_.width - 1 - step, middle), expected, rounding)
            << "the card's right edge, " << step;
        EXPECT_NEAR(level(column(), step), expected, rounding) << "the card's top, " << step;
        EXPECT_NEAR(level(column(), picture_.height - 1 - step), expected, rounding)
            << "the card's bottom, " << step;
    }
}

class PanelScaleTest : public ProgramTest {
protected:
    explicit PanelScaleTest(DesktopOptions options)
        : ProgramTest(std::move(options))
    {}

    void SetUp() override
    {
        desktop_.directory().write("home/.config/tessel-clipboard/settings.json",
                                   R"({"tesselclipboard.panelTintOpacity": 1})");
        ProgramTest::SetUp();
    }

    /// The panel, wherever and however large it is. None while it is not on the screen.
    std::optional<WindowFacts> panel()
    {
        return desktop_.windows().find(isViewableWindowOf(program_->process().pid()));
    }
    BlackPanel seen(double scale)
    {
        const auto window = panel();
        return {window ? desktop_.pixels().read(window->frame) : Picture(), scale};
    }

    void openAt(Place place)
    {
        desktop_.pointer().moveTo(place);
        program_->pressHotKey();
        desktop_.connection().waitUntil("the panel to have the focus", [this] {
            const auto window = panel();
            return window && desktop_.windows().hasFocus(window->window);
        });
    }
    void close()
    {
        desktop_.keyboard().tap(XKB_KEY_Escape);
        desktop_.connection().waitUntil("the panel to be gone", [this] { return !panel(); });
    }

    /// Opens the panel at a place of that scale, and leaves it open with a row and a selected one.
    void copyTwoTexts(Place place, double scale)
    {
        openAt(place);
        ClipboardOwner owner(desktop_.displayName());
        owner.copyText("A");
        waitForRows(1, scale);
        owner.copyText("B");
        waitForRows(2, scale);
    }
    void waitForRows(std::size_t count, double scale)
    {
        try {
            desktop_.connection().waitUntil(std::to_string(count) + " rows at scale " + std::to_string(scale),
                                            [&] { return seen(scale).hasRows(count); });
        } catch (const DesktopFailure& failure) {
            const auto window = panel();
            throw DesktopFailure(failure.what() + (window
                                                       ? " (the panel is " + window->frame.description() + ")"
                                                       : std::string()));
        }
    }
    void selectSecondRow(double scale)
    {
        waitForRows(2, scale);
        desktop_.keyboard().tap(XKB_KEY_Down);
        desktop_.connection().waitUntil("the second row selected",
                                        [&] { return seen(scale).isSecondRowSelected(); });
    }
    void expectSharp(double scale)
    {
        waitForRows(2, scale);
        desktop_.pixels().readQuietScreen();
        seen(scale).expectSharp();
    }
};

class OneScaleTest : public PanelScaleTest, public testing::WithParamInterface<double> {
protected:
    OneScaleTest()
        : PanelScaleTest({.screen = {1600, 1200}, .scale = GetParam()})
    {}
};

TEST_P(OneScaleTest, EdgesLieOnWholePixels)
{
    copyTwoTexts({100, 100}, GetParam());
    expectSharp(GetParam());
    close();
}

INSTANTIATE_TEST_SUITE_P(At, OneScaleTest, testing::Values(1.0, 1.25, 1.5, 2.0),
                         [](const testing::TestParamInfo<double>& scale) {
                             return std::to_string(std::lround(scale.param * 100)) + "Percent";
                         });

/// A monitor of scale 1, and beside it one of another.
class TwoScalesTest : public PanelScaleTest, public testing::WithParamInterface<double> {
protected:
    TwoScalesTest()
        : PanelScaleTest(
              {.screen = {3000, 1600},
               .variables = {{"QT_SCREEN_SCALE_FACTORS", "left=1;right=" + std::to_string(GetParam())}}})
    {}

    void SetUp() override
    {
        Monitors(desktop_).set({{"left", {0, 0, 1200, 1600}}, {"right", {1200, 0, 1800, 1600}}});
        PanelScaleTest::SetUp();
    }

    static constexpr Place onLeft{100, 100};
    static constexpr Place onRight{1300, 100};
};

TEST_P(TwoScalesTest, EachOpeningHasTheScaleOfItsMonitor)
{
    const double scale = GetParam();
    copyTwoTexts(onLeft, 1);
    expectSharp(1);
    close();
    openAt(onRight);
    selectSecondRow(scale);
    expectSharp(scale);
    close();
    openAt(onLeft);
    selectSecondRow(1);
    expectSharp(1);
    close();
}

TEST_P(TwoScalesTest, AHiddenPanelComesBackInTheScaleOfAnotherMonitor)
{
    const double scale = GetParam();
    TextClient editor(desktop_, TextClientKind::gtk);
    copyTwoTexts(onLeft, 1);
    for (const auto& [place, scaleThere] : {std::pair{onRight, scale}, std::pair{onLeft, 1.0}}) {
        editor.activate();
        desktop_.connection().waitUntil("the panel to be hidden", [this] { return !panel(); });
        openAt(place);
        expectSharp(scaleThere);
    }
    close();
}

INSTANTIATE_TEST_SUITE_P(OneAnd, TwoScalesTest, testing::Values(1.25, 1.5, 2.0),
                         [](const testing::TestParamInfo<double>& scale) {
                             return std::to_string(std::lround(scale.param * 100)) + "Percent";
                         });

} // namespace

} // namespace tessel::desktop
