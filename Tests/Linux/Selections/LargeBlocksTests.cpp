#include <algorithm>
#include <vector>

#include <gtest/gtest.h>

#include "X11/Selections/LargeBlocks.h"

namespace tessel {
namespace {

constexpr std::size_t megabyte = std::size_t{1} << 20;

TEST(LargeBlocks, GiveTheirPagesBackBeforeTheyAreFreed)
{
    std::vector<char> block(32 * megabyte, 'x');
    giveBackPages(block.data(), block.size());
    // The kernel hands out empty pages again. Of the first and the last page a part belongs to others.
    const auto left = std::ranges::count(block, 'x');
    constexpr std::ptrdiff_t largestPages = 2 * 64 * 1024;
    EXPECT_LE(left, largestPages);
}

TEST(LargeBlocks, ThatAreNotLargeKeepTheirs)
{
    std::vector<char> block(megabyte, 'x');
    giveBackPages(block.data(), block.size());
    EXPECT_EQ(std::ranges::count(block, 'x'), static_cast<std::ptrdiff_t>(block.size()));
}

} // namespace
} // namespace tessel
