#include <limits>

#include <gtest/gtest.h>

#include "Support/WholeNumber.h"

namespace tessel::test {
namespace {

TEST(WholeNumber, TruncationGoesTowardZero)
{
    EXPECT_EQ(truncatedToWhole(99.9), 99);
    EXPECT_EQ(truncatedToWhole(-99.9), -99);
    EXPECT_EQ(truncatedToWhole(-0.9), 0);
}

TEST(WholeNumber, RoundingTakesHalvesAwayFromZero)
{
    EXPECT_EQ(roundedToWhole(0.5), 1);
    EXPECT_EQ(roundedToWhole(1.5), 2);
    EXPECT_EQ(roundedToWhole(2.5), 3);
    EXPECT_EQ(roundedToWhole(-0.5), -1);
    EXPECT_EQ(roundedToWhole(-2.5), -3);
    EXPECT_EQ(roundedToWhole(2.4999), 2);
}

TEST(WholeNumber, RoundingDoesNotFallForTheNumberJustBelowAHalf)
{
    EXPECT_EQ(roundedToWhole(0.49999999999999994), 0);
}

TEST(WholeNumber, TheEndsOfTheRangeFit)
{
    constexpr double greatestBelowLimit = 0x1p63 - 1024;
    EXPECT_EQ(truncatedToWhole(-0x1p63), std::numeric_limits<std::int64_t>::min());
    EXPECT_EQ(roundedToWhole(-0x1p63), std::numeric_limits<std::int64_t>::min());
    EXPECT_EQ(truncatedToWhole(greatestBelowLimit), std::numeric_limits<std::int64_t>::max() - 1023);
    EXPECT_EQ(roundedToWhole(greatestBelowLimit), std::numeric_limits<std::int64_t>::max() - 1023);
}

class NoWholeNumberDeathTest : public testing::TestWithParam<double> {};

TEST_P(NoWholeNumberDeathTest, CannotBeTruncated)
{
    EXPECT_DEATH(truncatedToWhole(GetParam()), "Fatal error");
}

TEST_P(NoWholeNumberDeathTest, CannotBeRounded)
{
    EXPECT_DEATH(roundedToWhole(GetParam()), "Fatal error");
}

INSTANTIATE_TEST_SUITE_P(Values, NoWholeNumberDeathTest,
                         testing::Values(std::numeric_limits<double>::quiet_NaN(),
                                         std::numeric_limits<double>::infinity(),
                                         -std::numeric_limits<double>::infinity(), 0x1p63, 1e300,
                                         -0x1p63 - 2048, std::numeric_limits<double>::lowest()));

} // namespace
} // namespace tessel::test
