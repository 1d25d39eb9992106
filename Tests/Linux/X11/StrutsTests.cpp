#include <array>

#include <gtest/gtest.h>

#include "X11/Struts.h"

namespace tessel {
namespace {

const PixelRect leftScreen{0, 0, 1280, 1024};
const PixelRect rightScreen{1280, 0, 1920, 1080};
constexpr double rootWidth = 3200;
constexpr double rootHeight = 1080;

std::vector<PixelRect> visible(const std::vector<Strut>& struts)
{
    return visibleRects({leftScreen, rightScreen}, rootWidth, rootHeight, struts);
}

TEST(Struts, withoutDocksScreensAreVisibleAsAWhole)
{
    EXPECT_EQ(visible({}), (std::vector{leftScreen, rightScreen}));
}

TEST(Struts, aPanelAtTheTopReservesOnItsOwnScreenOnly)
{
    Strut strut;
    strut.top = {30, 0, 1279};
    EXPECT_EQ(visible({strut}), (std::vector<PixelRect>{{0, 30, 1280, 994}, rightScreen}));
}

TEST(Struts, aPanelAtTheBottomIsMeasuredFromTheRootWindowsEdge)
{
    Strut strut;
    strut.bottom = {rootHeight - 1024 + 40, 0, 1279}; // The left screen ends above the root window's edge.
    EXPECT_EQ(visible({strut}), (std::vector<PixelRect>{{0, 0, 1280, 984}, rightScreen}));
    strut.bottom = {40, 1280, 3199};
    EXPECT_EQ(visible({strut}), (std::vector<PixelRect>{leftScreen, {1280, 0, 1920, 1040}}));
}

TEST(Struts, aDockBetweenTwoScreensReservesOnlyItsStrip)
{
    Strut strut;
    strut.left = {1280 + 48, 0, 1079};
    EXPECT_EQ(visible({strut}), (std::vector<PixelRect>{leftScreen, {1328, 0, 1872, 1080}}));
    Strut fromTheRight;
    fromTheRight.right = {1920 + 48, 0, 1023};
    EXPECT_EQ(visible({fromTheRight}), (std::vector<PixelRect>{{0, 0, 1232, 1024}, rightScreen}));
}

TEST(Struts, severalDocksAddUp)
{
    Strut top;
    top.top = {30, 0, 1279};
    Strut thicker;
    thicker.top = {50, 0, 600};
    Strut left;
    left.left = {60, 0, 1023};
    EXPECT_EQ(visible({top, thicker, left})[0], (PixelRect{60, 50, 1220, 974}));
}

TEST(Struts, aDockThatClaimsAWholeScreenClaimsNothing)
{
    Strut strut;
    strut.top = {1024, 0, 1279};
    EXPECT_EQ(visible({strut})[0], leftScreen);
    Strut left;
    left.left = {700, 0, 1023};
    Strut right;
    right.right = {rootWidth - 600, 0, 1023};
    EXPECT_EQ(visible({left, right})[0], (PixelRect{700, 0, 580, 1024}));
}

TEST(Struts, theEdgesOfARangeAreBothIncluded)
{
    Strut strut;
    strut.top = {30, 1279, 1279};
    EXPECT_EQ(visible({strut})[0].y, 30);
    strut.top = {30, 1280, 1280};
    EXPECT_EQ(visible({strut})[0].y, 0);
    EXPECT_EQ(visible({strut})[1].y, 30);
}

TEST(Struts, thePartialPropertyIsPreferred)
{
    const std::array<std::uint32_t, 12> partial = {0, 0, 30, 0, 0, 0, 0, 0, 100, 200, 0, 0};
    const std::array<std::uint32_t, 4> whole = {0, 0, 99, 0};
    const auto strut = strutFromProperties(partial, whole);
    ASSERT_TRUE(strut);
    EXPECT_EQ(strut->top, (StrutEdge{30, 100, 200}));
}

TEST(Struts, theOldPropertyReservesAlongTheWholeEdge)
{
    const std::array<std::uint32_t, 4> whole = {0, 0, 0, 25};
    const auto strut = strutFromProperties({}, whole);
    ASSERT_TRUE(strut);
    EXPECT_EQ(visible({*strut})[1], (PixelRect{1280, 0, 1920, 1055}));
}

TEST(Struts, tooFewNumbersOrNothingReservedIsNone)
{
    const std::array<std::uint32_t, 3> few = {10, 10, 10};
    const std::array<std::uint32_t, 4> zero = {0, 0, 0, 0};
    EXPECT_EQ(strutFromProperties(few, few), std::nullopt);
    EXPECT_EQ(strutFromProperties({}, zero), std::nullopt);
}

} // namespace
} // namespace tessel
