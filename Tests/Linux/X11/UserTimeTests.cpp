#include <gtest/gtest.h>

#include "X11/UserTime.h"

namespace tessel {
namespace {

TEST(UserTime, theLatestTimeIsKept)
{
    UserTime time;
    EXPECT_EQ(time.last(), 0U);
    time.note(1000);
    time.note(900);
    time.note(0);
    EXPECT_EQ(time.last(), 1000U);
    time.note(1001);
    EXPECT_EQ(time.last(), 1001U);
}

TEST(UserTime, theServersClockWrapsAround)
{
    UserTime time;
    time.note(0xFFFFFF00);
    time.note(0x00000010);
    EXPECT_EQ(time.last(), 0x10U);
    time.note(0xFFFFFFF0);
    EXPECT_EQ(time.last(), 0x10U);
}

TEST(UserTime, aTimeOfTheClocksSecondHalfIsTakenFirst)
{
    UserTime time;
    time.note(0xF0000000);
    EXPECT_EQ(time.last(), 0xF0000000U);
}

TEST(UserTime, aRequestWithoutATimeIsNotTakenForAnOldOne)
{
    UserTime time;
    time.note(1000);
    time.noteStartupIdentifier("launcher-12-host-app_TIME1500");
    EXPECT_EQ(time.last(), 1500U);
    time.noteStartupIdentifier("");
    EXPECT_EQ(time.last(), 0U);
    time.note(1600);
    EXPECT_EQ(time.last(), 1600U);
}

TEST(UserTime, aStartupIdentifierEndsInATime)
{
    EXPECT_EQ(timeOfStartupIdentifier("launcher-12-host-app_TIME345678"), 345678U);
    EXPECT_EQ(timeOfStartupIdentifier("a_TIME1_TIME22"), 22U);
    for (const char* without : {"", "launcher-12", "x_TIME", "x_TIME12b", "x_TIME0", "x_TIME99999999999"})
        EXPECT_EQ(timeOfStartupIdentifier(without), std::nullopt) << without;
}

} // namespace
} // namespace tessel
