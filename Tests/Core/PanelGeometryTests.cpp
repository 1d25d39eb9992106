#include <gmock/gmock.h>

#include "Fakes/PrintGeometry.h"
#include "Panel/PanelGeometry.h"

namespace tessel::test {
namespace {

constexpr Size panel = {460, 220};
constexpr Rect visible = {{0, 70}, {1440, 805}};

Point origin(Point pointer)
{
    return panelOrigin(pointer, panel, visible);
}

// Size.

TEST(PanelSize, FollowsTheNumberOfEntriesUpToSix)
{
    const std::vector<double> heights = {220, 220, 262, 334, 406, 478, 550, 550, 550, 550, 550};
    for (std::size_t count = 0; count < heights.size(); ++count)
        EXPECT_EQ(panelContentSize(count), (Size{460, heights[count]})) << count;
    EXPECT_EQ(panelContentSize(100), (Size{460, 550}));
}

// Placement.

TEST(PanelPlacement, IsTwelvePointsRightOfAndBelowThePointer)
{
    EXPECT_EQ(origin({400, 600}), (Point{412, 368}));
}

TEST(PanelPlacement, KeepsFractionsOfAPoint)
{
    EXPECT_EQ(origin({400.25, 600.5}), (Point{412.25, 368.5}));
}

TEST(PanelPlacement, AlignsTheRightEdgesNearTheRight)
{
    EXPECT_EQ(origin({1340, 600}).x, 980); // 100 points from the edge.
    EXPECT_EQ(origin({1440, 600}).x, 980);
    EXPECT_EQ(origin({968, 600}).x, 980); // Fits exactly.
    EXPECT_EQ(origin({967, 600}).x, 979);
    EXPECT_EQ(origin({969, 600}).x, 980);
}

TEST(PanelPlacement, RestsOnTheBottomEdgeNearTheBottom)
{
    EXPECT_EQ(origin({400, 100}).y, 70);
    EXPECT_EQ(origin({400, 0}).y, 70);
    EXPECT_EQ(origin({400, 302}).y, 70); // Fits exactly.
    EXPECT_EQ(origin({400, 303}).y, 71);
}

TEST(PanelPlacement, StaysBelowTheTopEdgeUnderTheMenuBar)
{
    EXPECT_EQ(origin({400, 900}).y, 655); // In the menu bar: the top edges meet.
    EXPECT_EQ(origin({400, 887}).y, 655);
    EXPECT_EQ(origin({400, 886}).y, 654);
}

TEST(PanelPlacement, StaysInsideTheLeftEdge)
{
    constexpr Rect withLeftDock = {{100, 0}, {1340, 875}};
    EXPECT_EQ(panelOrigin({0, 600}, panel, withLeftDock).x, 100);
    EXPECT_EQ(panelOrigin({88, 600}, panel, withLeftDock).x, 100);
    EXPECT_EQ(panelOrigin({89, 600}, panel, withLeftDock).x, 101);
}

TEST(PanelPlacement, MeetsBothEdgesInACorner)
{
    EXPECT_EQ(origin({1440, 0}), (Point{980, 70}));
    EXPECT_EQ(origin({1440, 900}), (Point{980, 655}));
    EXPECT_EQ(origin({-20, 0}), (Point{0, 70}));
}

TEST(PanelPlacement, LetsTheRightAndTopEdgesWinWhereThePanelIsLargerThanTheScreen)
{
    constexpr Rect small = {{10, 20}, {300, 200}};
    const Point placed = panelOrigin({100, 100}, {460, 550}, small);
    EXPECT_EQ(placed.x + 460, small.maxX());
    EXPECT_EQ(placed.y + 550, small.maxY());
}

TEST(PanelPlacement, WorksInNegativeCoordinates)
{
    constexpr Rect leftScreen = {{-1920, -180}, {1920, 1080}};
    EXPECT_EQ(panelOrigin({-1000, 400}, panel, leftScreen), (Point{-988, 168}));
    EXPECT_EQ(panelOrigin({-10, -170}, panel, leftScreen), (Point{-460, -180}));
}

// Which screen.

TEST(MouseInRect, HasTheLeftAndTopEdgesButNotTheRightAndBottomOnes)
{
    constexpr Rect rect = {{100, 200}, {50, 40}};
    EXPECT_TRUE(mouseInRect({125, 220}, rect));
    EXPECT_TRUE(mouseInRect({100, 220}, rect));
    EXPECT_FALSE(mouseInRect({99.999, 220}, rect));
    EXPECT_TRUE(mouseInRect({149.999, 220}, rect));
    EXPECT_FALSE(mouseInRect({150, 220}, rect));
    EXPECT_TRUE(mouseInRect({125, 240}, rect));
    EXPECT_FALSE(mouseInRect({125, 240.001}, rect));
    EXPECT_TRUE(mouseInRect({125, 200.001}, rect));
    EXPECT_FALSE(mouseInRect({125, 200}, rect));
}

TEST(MouseInRect, HasOnlyTheTopLeftCorner)
{
    constexpr Rect rect = {{0, 0}, {10, 10}};
    EXPECT_TRUE(mouseInRect({0, 10}, rect));
    EXPECT_FALSE(mouseInRect({10, 10}, rect));
    EXPECT_FALSE(mouseInRect({0, 0}, rect));
    EXPECT_FALSE(mouseInRect({10, 0}, rect));
}

TEST(MouseInRect, IsNeverTrueForAnEmptyRectangle)
{
    EXPECT_FALSE(mouseInRect({5, 5}, {{5, 5}, {0, 0}}));
}

constexpr Screen left = {{{0, 0}, {1000, 800}}, {{0, 0}, {1000, 775}}};
constexpr Screen right = {{{1000, 0}, {1000, 800}}, {{1000, 50}, {1000, 750}}};

std::optional<Rect> frameForPanel(Point pointer, const std::vector<Screen>& screens,
                                  const std::optional<Screen>& mainScreen)
{
    const auto screen = screenInUse(pointer, screens, mainScreen);
    return screen ? std::optional(screen->frame) : std::nullopt;
}

TEST(ScreenForPanel, IsTheOneUnderThePointer)
{
    EXPECT_EQ(frameForPanel({10, 10}, {left, right}, right), left.frame);
    EXPECT_EQ(frameForPanel({1010, 10}, {left, right}, left), right.frame);
}

TEST(ScreenForPanel, IsFoundByTheWholeFrameAndNotByItsVisiblePart)
{
    EXPECT_EQ(frameForPanel({1500, 20}, {left, right}, left), right.frame);
}

TEST(ScreenForPanel, TheSharedEdgeBelongsToTheRightScreen)
{
    EXPECT_EQ(frameForPanel({1000, 400}, {left, right}, std::nullopt), right.frame);
    EXPECT_EQ(frameForPanel({999.5, 400}, {left, right}, std::nullopt), left.frame);
}

TEST(ScreenForPanel, IsTheFirstOfMirroredScreens)
{
    const Screen mirror = {left.frame, {{0, 100}, {1000, 600}}};
    EXPECT_EQ(screenInUse({10, 10}, {left, mirror}, right)->visibleFrame, left.visibleFrame);
    EXPECT_EQ(screenInUse({10, 10}, {mirror, left}, right)->visibleFrame, mirror.visibleFrame);
}

TEST(ScreenForPanel, IsTheMainScreenWhereThePointerIsOnNone)
{
    EXPECT_EQ(frameForPanel({5000, 5000}, {left, right}, right), right.frame);
    EXPECT_EQ(frameForPanel({0, 0}, {}, left), left.frame);
}

TEST(ScreenForPanel, IsNoneWhereThePointerIsOnNoneAndThereIsNoMainScreen)
{
    EXPECT_EQ(frameForPanel({5000, 5000}, {left, right}, std::nullopt), std::nullopt);
    EXPECT_EQ(frameForPanel({0, 0}, {}, std::nullopt), std::nullopt);
}

} // namespace
} // namespace tessel::test
