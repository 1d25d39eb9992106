#include <gtest/gtest.h>

#include "X11/ScreenSpace.h"

namespace tessel {
namespace {

const ScreenLayout single{0, 0, {1280, 1024}, 1};

TEST(ScreenSpace, theOriginIsTheBottomLeftCornerOfTheMainScreen)
{
    EXPECT_EQ(toGlobalPoints(PixelRect{0, 0, 1280, 1024}, single), (Rect{{0, 0}, {1280, 1024}}));
    EXPECT_EQ(toGlobalPoints(PixelRect{100, 30, 200, 50}, single), (Rect{{100, 944}, {200, 50}}));
    EXPECT_EQ(toGlobalPoints(0, 1024, single), (Point{0, 0}));
}

TEST(ScreenSpace, aSecondScreenLiesBesideTheMainOne)
{
    const ScreenLayout right{1280, 0, {1920, 1080}, 1};
    EXPECT_EQ(toGlobalPoints(PixelRect{1280, 0, 1920, 1080}, single), (Rect{{1280, -56}, {1920, 1080}}));
    // The same screens with the right one as the main screen.
    EXPECT_EQ(toGlobalPoints(PixelRect{0, 0, 1280, 1024}, right), (Rect{{-1280, 56}, {1280, 1024}}));
}

TEST(ScreenSpace, theWayBackIsTheSameWay)
{
    const ScreenLayout right{1280, 100, {1920, 1080}, 1.25};
    const PixelRect window{1400.5, 300.25, 460, 262};
    const Point back = topLeftInToolkitPoints(toGlobalPoints(window, right), right);
    EXPECT_EQ(back, (Point{1400.5, 300.25}));
}

TEST(ScreenSpace, aScaledScreenKeepsItsPlaceAndCountsFromThere)
{
    const ScreenLayout scaled{1280, 0, {960, 540}, 2};
    EXPECT_EQ(pixelsOf(scaled), (PixelRect{1280, 0, 1920, 1080}));
    EXPECT_EQ(toToolkitPoints({1280, 30, 1920, 1050}, scaled), (PixelRect{1280, 15, 960, 525}));
    EXPECT_EQ(toToolkitPoints({1380, 200, 100, 100}, scaled), (PixelRect{1330, 100, 50, 50}));
}

TEST(ScreenSpace, thePointerIsInPointsOfTheScreenThatItIsOn)
{
    const ScreenLayout main{0, 0, {1024, 819}, 1.25};
    const ScreenLayout scaled{1280, 0, {960, 540}, 2};
    EXPECT_EQ(pixelToGlobalPoint(640, 1000, {main, scaled}, main), (Point{512, 19}));
    EXPECT_EQ(pixelToGlobalPoint(1280 + 500, 100, {main, scaled}, main), (Point{1280 + 250, 819 - 50}));
    EXPECT_EQ(pixelToGlobalPoint(1280, 0, {main, scaled}, main), (Point{1280, 819}))
        << "The edge is the right screen's.";
}

TEST(ScreenSpace, aPointerOutsideEveryScreenIsCountedFromTheMainOne)
{
    EXPECT_EQ(pixelToGlobalPoint(2000, 10, {single}, single), (Point{2000, 1014}));
}

} // namespace
} // namespace tessel
