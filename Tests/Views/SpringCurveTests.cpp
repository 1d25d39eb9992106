#include "Support/SpringCurve.h"

#include <cmath>

#include <gtest/gtest.h>

namespace tessel::test {

TEST(SpringCurve, StartsAtRestAndEndsAtOne)
{
    const SpringCurve spring(0.55, 0.88);
    EXPECT_EQ(spring.at(0), 0);
    EXPECT_EQ(spring.at(-1), 0);
    EXPECT_NEAR(spring.at(0.001), 0, 1e-3); // No sudden start.
    EXPECT_NEAR(spring.at(spring.settlingTime()), 1, 1e-3);
    EXPECT_NEAR(spring.at(10), 1, 1e-9);
}

// The equation of a damped spring, x'' = k (1 - x) - c x', in steps that are small enough to be exact.
TEST(SpringCurve, MovesAsADampedSpring)
{
    constexpr double response = 0.55;
    constexpr double dampingFraction = 0.88;
    const SpringCurve spring(response, dampingFraction);
    const double angularFrequency = 2 * std::acos(-1.0) / response;
    double position = 0;
    double speed = 0;
    constexpr double step = 1e-5;
    for (int count = 1; count <= 100'000; ++count) {
        const double pull = angularFrequency * angularFrequency * (1 - position);
        speed += (pull - 2 * dampingFraction * angularFrequency * speed) * step;
        position += speed * step;
        if (count % 10'000 == 0) {
            EXPECT_NEAR(spring.at(count * step), position, 1e-3) << count * step;
        }
    }
}

TEST(SpringCurve, SwingsBeyondItsEndALittle)
{
    const SpringCurve spring(0.55, 0.88);
    double highest = 0;
    for (double seconds = 0; seconds < 2; seconds += 0.001)
        highest = std::fmax(highest, spring.at(seconds));
    // exp(-pi z / sqrt(1 - z^2)) of a spring whose damping fraction is z.
    EXPECT_NEAR(highest, 1 + std::exp(-std::acos(-1.0) * 0.88 / std::sqrt(1 - 0.88 * 0.88)), 1e-5);
    EXPECT_GT(highest, 1);
}

TEST(SpringCurve, StaysAtItsEndAfterTheSettlingTime)
{
    const SpringCurve spring(0.55, 0.5);
    for (double seconds = spring.settlingTime(); seconds < 5; seconds += 0.01)
        EXPECT_NEAR(spring.at(seconds), 1, 1e-3);
}

} // namespace tessel::test
