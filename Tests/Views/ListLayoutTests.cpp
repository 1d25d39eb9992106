#include <array>

#include <gtest/gtest.h>

#include "Panel/ListLayout.h"
#include "Panel/ScrollAnimation.h"
#include "Support/ScrollPosition.h"

namespace tessel::test {

namespace {

using Section = ListLayout::Section;

constexpr int captionHeight = 20;
constexpr std::array heights = {50, 70, 60};

} // namespace

TEST(ListLayout, StacksCaptionsAndRowsTenPointsApart)
{
    const ListLayout layout(heights, 1, captionHeight);
    ASSERT_EQ(layout.captions().size(), 2U);
    EXPECT_EQ(layout.captions()[0].extent.top, 4);
    EXPECT_EQ(layout.rows()[0].top, 4 + 20 + 10);
    EXPECT_EQ(layout.captions()[1].section, Section::recent);
    EXPECT_EQ(layout.captions()[1].extent.top, 34 + 50 + 10);
    EXPECT_EQ(layout.rows()[1].top, 94 + 20 + 10);
    EXPECT_EQ(layout.rows()[2].top, 124 + 70 + 10);
    EXPECT_EQ(layout.contentHeight(), 204 + 60 + 10 + 16 + 18);
}

TEST(ListLayout, HasNoCaptionForAnEmptySection)
{
    EXPECT_EQ(ListLayout(heights, 0, captionHeight).captions().size(), 1U);
    EXPECT_EQ(ListLayout(heights, 3, captionHeight).captions().size(), 1U);
    EXPECT_EQ(ListLayout(heights, 3, captionHeight).captions()[0].section, Section::pinned);
}

TEST(ListLayout, FindsTheRowAtAHeight)
{
    const ListLayout layout(heights, 0, captionHeight);
    EXPECT_FALSE(layout.rowAt(33.9));
    EXPECT_EQ(layout.rowAt(34), 0U);
    EXPECT_EQ(layout.rowAt(83.9), 0U);
    EXPECT_FALSE(layout.rowAt(84));
    EXPECT_EQ(layout.rowAt(94), 1U);
    EXPECT_FALSE(layout.rowAt(10'000));
}

TEST(ListLayout, FindsTheRowsBetweenTwoHeights)
{
    const ListLayout layout(heights, 0, captionHeight);
    EXPECT_EQ(layout.rowsBetween(0, 10'000).end, 3U);
    EXPECT_EQ(layout.rowsBetween(84, 94).first, 1U);
    EXPECT_EQ(layout.rowsBetween(84, 94).end, 1U);
    EXPECT_EQ(layout.rowsBetween(83, 95).first, 0U);
    EXPECT_EQ(layout.rowsBetween(83, 95).end, 2U);
}

TEST(ListLayout, BringsCaptionAndEndIntoViewWithTheRowsBesideThem)
{
    const ListLayout layout(heights, 1, captionHeight);
    EXPECT_EQ(layout.surroundings(0).top, 0);
    EXPECT_EQ(layout.surroundings(1).top, layout.captions()[1].extent.top - 10);
    EXPECT_EQ(layout.surroundings(2).top, layout.rows()[2].top - 10);
    EXPECT_EQ(layout.surroundings(2).bottom(), layout.contentHeight());
}

TEST(ScrollPosition, NeverLeavesTheContent)
{
    ScrollPosition position;
    position.setViewHeight(100);
    position.setContentHeight(250);
    position.scrollTo(-10);
    EXPECT_EQ(position.offset(), 0);
    position.scrollTo(1000);
    EXPECT_EQ(position.offset(), 150);
    position.setContentHeight(120);
    EXPECT_EQ(position.offset(), 20);
    position.setContentHeight(80);
    EXPECT_EQ(position.offset(), 0);
    EXPECT_FALSE(position.overflows());
}

TEST(ScrollPosition, RevealsWithTheLeastMovement)
{
    ScrollPosition position;
    position.setViewHeight(100);
    position.setContentHeight(1000);
    position.reveal({50, 40});
    EXPECT_EQ(position.offset(), 0);
    position.reveal({150, 40});
    EXPECT_EQ(position.offset(), 90);
    position.reveal({70, 40});
    EXPECT_EQ(position.offset(), 70);
    position.reveal({500, 300});
    EXPECT_EQ(position.offset(), 500);
}

TEST(ScrollAnimation, ReachesItsTargetWhateverTheSteps)
{
    for (const double step : {0.001, 0.016, 0.5}) {
        ScrollAnimation animation;
        animation.moveTo(100);
        double position = 0;
        int steps = 0;
        while (animation.target()) {
            const double next = animation.advanced(position, step);
            ASSERT_GT(next, position);
            position = next;
            ASSERT_LT(++steps, 1000);
        }
        EXPECT_EQ(position, 100);
    }
}

} // namespace tessel::test
