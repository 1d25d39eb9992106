#include <cstdlib>

#include <sys/prctl.h>
#include <sys/resource.h>

#include <gtest/gtest.h>

#include "Desktop/CoreDumps.h"

namespace tessel {
namespace {

rlim_t limitNow()
{
    rlimit limit = {};
    ::getrlimit(RLIMIT_CORE, &limit);
    return limit.rlim_cur;
}

void lowerLimitTo(rlim_t most)
{
    const rlimit limit = {most, most};
    ::setrlimit(RLIMIT_CORE, &limit);
}

/// In processes of their own, as nothing of it can be taken back.
TEST(CoreDumpsTest, ALimitOfOneByteKeepsCollectorsAwayToo)
{
    rlimit limit = {};
    ASSERT_EQ(::getrlimit(RLIMIT_CORE, &limit), 0);
    if (limit.rlim_max < 1)
        GTEST_SKIP() << "this process may have no limit but zero";
    EXPECT_EXIT(
        {
            forbidCoreDumps();
            std::_Exit(limitNow() == 1 ? EXIT_SUCCESS : EXIT_FAILURE);
        },
        testing::ExitedWithCode(EXIT_SUCCESS), "");
}

TEST(CoreDumpsTest, WhereOnlyZeroIsAllowedTheProcessCannotBeDumped)
{
    EXPECT_EXIT(
        {
            lowerLimitTo(0);
            forbidCoreDumps();
            std::_Exit(limitNow() == 0 && ::prctl(PR_GET_DUMPABLE) == 0 ? EXIT_SUCCESS : EXIT_FAILURE);
        },
        testing::ExitedWithCode(EXIT_SUCCESS), "");
}

} // namespace
} // namespace tessel
