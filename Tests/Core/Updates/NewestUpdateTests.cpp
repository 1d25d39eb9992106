#include <gtest/gtest.h>

#include "Updates/NewestUpdate.h"

namespace tessel::test {
namespace {

UpdateItem item(const std::string& version, const std::string& minimumSystemVersion = "")
{
    return {version, version, minimumSystemVersion, "", "", ""};
}

std::string newestOf(const std::vector<UpdateItem>& items)
{
    const UpdateItem* newest = newestUpdate(items, "1.0", "6.1.0");
    return newest != nullptr ? newest->version : "none";
}

TEST(NewestUpdate, IsNoneInAnEmptyFeed)
{
    EXPECT_EQ(newestOf({}), "none");
}

TEST(NewestUpdate, IsNeitherEqualNorOlder)
{
    EXPECT_EQ(newestOf({item("1.0"), item("1.0.0"), item("0.9"), item("1.0b3")}), "none");
}

TEST(NewestUpdate, IsTheNewestWhereverItStands)
{
    EXPECT_EQ(newestOf({item("1.1"), item("1.3"), item("1.2")}), "1.3");
    EXPECT_EQ(newestOf({item("1.3"), item("1.2")}), "1.3");
    EXPECT_EQ(newestOf({item("1.2"), item("1.3")}), "1.3");
}

TEST(NewestUpdate, IsTheFirstOfEqualOnes)
{
    const std::vector<UpdateItem> items = {item("1.1"), item("1.1.0")};
    EXPECT_EQ(newestUpdate(items, "1.0", ""), &items.front());
}

TEST(NewestUpdate, RunsOnThisSystem)
{
    EXPECT_EQ(newestOf({item("2.0", "6.2"), item("1.5", "6.1"), item("1.4")}), "1.5");
    EXPECT_EQ(newestOf({item("2.0", "6.1.0")}), "2.0");
    EXPECT_EQ(newestOf({item("2.0", "6.1.1")}), "none");
    EXPECT_EQ(newestOf({item("2.0", "13.0")}), "none");
}

TEST(NewestUpdate, IsForEverybody)
{
    UpdateItem beta = item("2.0");
    beta.channel = "beta";
    EXPECT_EQ(newestOf({beta, item("1.1")}), "1.1");
}

} // namespace
} // namespace tessel::test
