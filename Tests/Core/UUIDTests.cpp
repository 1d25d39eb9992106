#include <unordered_set>

#include <gtest/gtest.h>

#include "Support/UUID.h"

namespace tessel::test {
namespace {

TEST(UUID, IsAnotherOneEveryTime)
{
    constexpr std::size_t count = 10'000;
    std::unordered_set<UUID> seen;
    for (std::size_t number = 0; number < count; ++number)
        seen.insert(UUID::random());
    EXPECT_EQ(seen.size(), count);
}

TEST(UUID, EqualsItself)
{
    const UUID one = UUID::random();
    const UUID other = UUID::random();
    EXPECT_EQ(one, UUID(one));
    EXPECT_NE(one, other);
}

} // namespace
} // namespace tessel::test
