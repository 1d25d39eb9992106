#include "FoundationClock.h"
#include "Support/MacOSTest.h"

namespace tessel::test {
namespace {

using ClockTests = MacOSTest;

TEST_F(ClockTests, CountsTheSecondsOfTheSystemsDateSince1970)
{
    expectCall("[NSDate date]", Object{"now"});
    expectCall("[now timeIntervalSince1970]", 1795305600.25);
    EXPECT_EQ(FoundationClock().now(), 1795305600.25);
}

} // namespace
} // namespace tessel::test
