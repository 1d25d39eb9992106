#include <gtest/gtest.h>

#include "ScreenSpace.h"
#include "X11/ScreenLayout.h"

namespace tessel {
namespace {

constexpr QPointF origin{0, 1024};

TEST(ScreenSpace, theOriginIsTheBottomLeftCornerOfTheMainScreen)
{
    EXPECT_EQ(screenSpace::toSeam(QRectF(0, 0, 1280, 1024), origin), (Rect{{0, 0}, {1280, 1024}}));
    EXPECT_EQ(screenSpace::toSeam(QRectF(100, 30, 200, 50), origin), (Rect{{100, 944}, {200, 50}}));
    EXPECT_EQ(screenSpace::toSeam(QPointF(0, 1024), origin), (Point{0, 0}));
}

TEST(ScreenSpace, aSecondScreenLiesBesideTheMainOne)
{
    EXPECT_EQ(screenSpace::toSeam(QRectF(1280, 0, 1920, 1080), origin), (Rect{{1280, -56}, {1920, 1080}}));
    // The same screens with the right one as the main screen.
    EXPECT_EQ(screenSpace::toSeam(QRectF(0, 0, 1280, 1024), {1280, 1080}), (Rect{{-1280, 56}, {1280, 1024}}));
}

TEST(ScreenSpace, aWindowComesBackFromTheSeamToWholePoints)
{
    EXPECT_EQ(screenSpace::toToolkit(screenSpace::toSeam(QRect(1400, 300, 460, 262))),
              QRect(1400, 300, 460, 262));
    EXPECT_EQ(screenSpace::toToolkit({{100.4, 99.6}, {459.7, 220.2}}).size(), QSize(460, 220));
}

TEST(ScreenLayout, aScaledScreenKeepsItsPlaceAndCountsFromThere)
{
    const ScreenLayout scaled{{1280, 0}, {960, 540}, 2};
    EXPECT_EQ(pixelsOf(scaled), (PixelRect{1280, 0, 1920, 1080}));
    EXPECT_EQ(toToolkitPoints({1280, 30, 1920, 1050}, scaled), QRectF(1280, 15, 960, 525));
    EXPECT_EQ(toToolkitPoints({1380, 200, 100, 100}, scaled), QRectF(1330, 100, 50, 50));
}

TEST(ScreenLayout, thePointerIsInPointsOfTheScreenThatItIsOn)
{
    const ScreenLayout main{{0, 0}, {1024, 819}, 1.25};
    const ScreenLayout scaled{{1280, 0}, {960, 540}, 2};
    EXPECT_EQ(toToolkitPoint(640, 1000, {main, scaled}, main), QPointF(512, 800));
    EXPECT_EQ(toToolkitPoint(1280 + 500, 100, {main, scaled}, main), QPointF(1280 + 250, 50));
    EXPECT_EQ(toToolkitPoint(1280, 0, {main, scaled}, main), QPointF(1280, 0))
        << "The edge is the right screen's.";
}

TEST(ScreenLayout, anEdgeThatTwoScreensClaimIsThatOfTheScreenThatBeginsThere)
{
    // Each is 1000 pixels wide and high: 666.67 points, of which the toolkit makes 667.
    constexpr double scale = 1.5;
    const ScreenLayout left{{0, 0}, {667, 667}, scale};
    const ScreenLayout right{{1000, 0}, {667, 667}, scale};
    const ScreenLayout below{{0, 1000}, {667, 667}, scale};
    const std::vector<std::vector<ScreenLayout>> orders = {{left, right, below}, {below, right, left}};
    for (const auto& screens : orders) {
        EXPECT_EQ(toToolkitPoint(1000, 300, screens, left), QPointF(1000, 200));
        EXPECT_EQ(toToolkitPoint(300, 1000, screens, left), QPointF(200, 1000));
        EXPECT_EQ(toToolkitPoint(999, 300, screens, left), QPointF(666, 200));
    }
}

TEST(ScreenLayout, aPointerOutsideEveryScreenIsCountedFromTheMainOne)
{
    const ScreenLayout single{{0, 0}, {1280, 1024}, 1};
    EXPECT_EQ(toToolkitPoint(2000, 10, {single}, single), QPointF(2000, 10));
}

} // namespace
} // namespace tessel
