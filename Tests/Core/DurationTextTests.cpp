#include <limits>

#include <gtest/gtest.h>

#include "AppState.h"
#include "History/DurationText.h"

namespace tessel::test {
namespace {

TEST(DurationText, BelowAMinuteIsInSeconds)
{
    EXPECT_EQ(durationText(0), "0s");
    EXPECT_EQ(durationText(45), "45s");
    EXPECT_EQ(durationText(59), "59s");
}

TEST(DurationText, BelowAnHourIsInWholeMinutes)
{
    EXPECT_EQ(durationText(60), "1m");
    EXPECT_EQ(durationText(90), "1m");
    EXPECT_EQ(durationText(119), "1m");
    EXPECT_EQ(durationText(120), "2m");
    EXPECT_EQ(durationText(3599), "59m");
}

TEST(DurationText, FromAnHourOnIsInHoursAndMinutes)
{
    EXPECT_EQ(durationText(3600), "1h");
    EXPECT_EQ(durationText(3659), "1h");
    EXPECT_EQ(durationText(3660), "1h 1m");
    EXPECT_EQ(durationText(7199), "1h 59m");
    EXPECT_EQ(durationText(9000), "2h 30m");
    EXPECT_EQ(durationText(21600), "6h");
    EXPECT_EQ(durationText(86400), "24h");
    EXPECT_EQ(durationText(360'060), "100h 1m");
}

TEST(DurationText, HalvesOfASecondAreRoundedAwayFromZero)
{
    EXPECT_EQ(durationText(29.5), "30s");
    EXPECT_EQ(durationText(30.5), "31s");
    EXPECT_EQ(durationText(29.4999), "29s");
    EXPECT_EQ(durationText(59.5), "1m");
    EXPECT_EQ(durationText(59.4), "59s");
    EXPECT_EQ(durationText(3599.5), "1h");
}

TEST(DurationText, NegativeDurationsStayInSecondsHoweverLong)
{
    EXPECT_EQ(durationText(-1), "-1s");
    EXPECT_EQ(durationText(-0.4), "0s");
    EXPECT_EQ(durationText(-0.5), "-1s");
    EXPECT_EQ(durationText(-29.5), "-30s");
    EXPECT_EQ(durationText(-9000), "-9000s");
}

TEST(DurationText, IsWhatTheApplicationStateOffers)
{
    EXPECT_EQ(AppState::formattedDuration(9000), "2h 30m");
    EXPECT_EQ(AppState::formattedDuration(29.5), "30s");
}

class ImpossibleDurationDeathTest : public testing::TestWithParam<double> {};

TEST_P(ImpossibleDurationDeathTest, StopsTheProcess)
{
    EXPECT_DEATH(durationText(GetParam()), "Fatal error");
}

INSTANTIATE_TEST_SUITE_P(Values, ImpossibleDurationDeathTest,
                         testing::Values(std::numeric_limits<double>::quiet_NaN(),
                                         std::numeric_limits<double>::infinity(),
                                         -std::numeric_limits<double>::infinity(), 0x1p63));

} // namespace
} // namespace tessel::test
