#include "Windows/WindowPlacement.h"

#include <gtest/gtest.h>

#include "Fakes/PrintGeometry.h"

namespace tessel {
namespace {

TEST(WindowPlacement, IsTheMiddleOfTheVisibleFrame)
{
    EXPECT_EQ(centeredOrigin({420, 520}, {{0, 40}, {1920, 1040}}), (Point{750, 300}));
    EXPECT_EQ(centeredOrigin({420, 520}, {{1920, -200}, {1280, 1000}}), (Point{2350, 40}));
}

TEST(WindowPlacement, LiesOnWholePoints)
{
    EXPECT_EQ(centeredOrigin({421, 521}, {{0, 0}, {1920, 1080}}), (Point{749, 279}));
}

TEST(WindowPlacement, KeepsTheTopLeftCornerOfAWindowThatIsTooLarge)
{
    EXPECT_EQ(centeredOrigin({420, 520}, {{100, 50}, {320, 400}}), (Point{100, -70}));
}

} // namespace
} // namespace tessel
