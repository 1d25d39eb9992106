#include <gmock/gmock.h>

#include "Fakes/FakeDesktop.h"

namespace tessel::test {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;
using testing::Pair;

class QuickClear : public testing::Test {
protected:
    FakeDesktop desktop;
    AppState& state = desktop.launch();
};

TEST_F(QuickClear, ListsItsPoliciesInTheirOrder)
{
    EXPECT_THAT(allQuickClearPolicies,
                ElementsAre(QuickClearPolicy::custom, QuickClearPolicy::oneDay, QuickClearPolicy::never));
    EXPECT_EQ(rawValue(QuickClearPolicy::custom), "custom");
    EXPECT_EQ(rawValue(QuickClearPolicy::oneDay), "oneDay");
    EXPECT_EQ(rawValue(QuickClearPolicy::never), "never");
}

TEST_F(QuickClear, KnowsAPolicyByItsExactNameOnly)
{
    for (const QuickClearPolicy policy : allQuickClearPolicies)
        EXPECT_EQ(quickClearPolicy(rawValue(policy)), policy);
    for (const auto* name : {"", "weekly", "Never", "oneday", "never "})
        EXPECT_EQ(quickClearPolicy(name), std::nullopt) << name;
}

TEST_F(QuickClear, KnowsTheAgeOfEachPolicyInSeconds)
{
    EXPECT_EQ(maximumAge(QuickClearPolicy::custom, 45), 45);
    EXPECT_EQ(maximumAge(QuickClearPolicy::oneDay, 45), 86'400);
    EXPECT_EQ(maximumAge(QuickClearPolicy::never, 45), std::nullopt);
}

TEST_F(QuickClear, NeverKeepsEntriesForGood)
{
    desktop.copy("A");
    desktop.clock->jump(1e9);
    desktop.tick();
    EXPECT_THAT(desktop.texts(), ElementsAre("A"));
}

TEST_F(QuickClear, KeepsAnEntryAtExactlyOneDayAndDropsItOnTheNextTick)
{
    state.quickClearPolicy = QuickClearPolicy::oneDay;
    desktop.copy("A");
    const Date date = state.history->front().date;
    desktop.clock->set(date + 86'400);
    state.quickClearPolicy = QuickClearPolicy::oneDay; // A pass at exactly that age.
    EXPECT_THAT(desktop.texts(), ElementsAre("A"));
    desktop.tick();
    EXPECT_THAT(desktop.texts(), IsEmpty());
}

TEST_F(QuickClear, KeepsAnEntryAtExactlyTheCustomAgeAndDropsItOnTheNextTick)
{
    state.quickClearCustomSeconds = 45;
    state.quickClearPolicy = QuickClearPolicy::custom;
    desktop.copy("A");
    desktop.clock->set(state.history->front().date + 45);
    state.quickClearPolicy = QuickClearPolicy::custom;
    EXPECT_THAT(desktop.texts(), ElementsAre("A"));
    desktop.tick();
    EXPECT_THAT(desktop.texts(), IsEmpty());
}

TEST_F(QuickClear, RunsOnEveryTick)
{
    state.quickClearCustomSeconds = 30;
    state.quickClearPolicy = QuickClearPolicy::custom;
    desktop.copy("A");
    desktop.queue->advance(29.5);
    EXPECT_THAT(desktop.texts(), ElementsAre("A"));
    desktop.queue->advance(1.3);
    EXPECT_THAT(desktop.texts(), IsEmpty());
}

TEST_F(QuickClear, DropsOldEntriesAtOnceWhenThePolicyBecomesCustomPinnedOnesIncluded)
{
    desktop.copy("pinned");
    desktop.copy("old");
    state.togglePinned(desktop.item("pinned"));
    state.quickClearCustomSeconds = 30;
    desktop.clock->jump(31);
    desktop.copy("young");
    EXPECT_THAT(desktop.texts(), ElementsAre("young", "old", "pinned"));
    state.quickClearPolicy = QuickClearPolicy::custom;
    EXPECT_THAT(desktop.texts(), ElementsAre("young"));
    EXPECT_TRUE(state.pinnedItemIDs->empty());
}

TEST_F(QuickClear, DropsOldEntriesAtOnceWhenTheAgeChanges)
{
    state.quickClearPolicy = QuickClearPolicy::custom;
    desktop.copy("old");
    desktop.clock->jump(100);
    desktop.copy("young");
    EXPECT_THAT(desktop.texts(), ElementsAre("young", "old"));
    state.quickClearCustomSeconds = 60;
    EXPECT_THAT(desktop.texts(), ElementsAre("young"));
}

TEST_F(QuickClear, PrunesByTheClampedAgeOnly)
{
    state.quickClearPolicy = QuickClearPolicy::custom;
    desktop.copy("A");
    desktop.clock->jump(20);
    state.quickClearCustomSeconds = 1; // Settles at 30.
    EXPECT_THAT(desktop.texts(), ElementsAre("A"));
}

TEST_F(QuickClear, StoresAPolicyBeforeItPrunes)
{
    desktop.copy("A");
    desktop.clock->jump(100'000);
    std::size_t writesBeforePrune = 0;
    const Token token = state.observe([&] { writesBeforePrune = desktop.defaults->writes().size(); });
    state.quickClearPolicy = QuickClearPolicy::oneDay;
    EXPECT_THAT(desktop.texts(), IsEmpty());
    EXPECT_EQ(writesBeforePrune, 1U);
}

TEST_F(QuickClear, StoresAnAgeBeforeItPrunes)
{
    state.quickClearPolicy = QuickClearPolicy::custom;
    desktop.copy("A");
    desktop.clock->jump(100);
    desktop.defaults->forgetWrites();
    std::size_t writesBeforePrune = 0;
    const Token token = state.observe([&] { writesBeforePrune = desktop.defaults->writes().size(); });
    state.quickClearCustomSeconds = 1;
    EXPECT_THAT(desktop.texts(), IsEmpty());
    EXPECT_EQ(writesBeforePrune, 1U);
}

TEST_F(QuickClear, AssignsTheHistoryAndThenThePins)
{
    desktop.copy("A");
    state.togglePinned(desktop.item("A"));
    desktop.clock->jump(100'000);
    desktop.copy("B");
    state.togglePinned(desktop.item("B"));
    std::vector<std::pair<std::size_t, std::size_t>> sizesBefore;
    const Token token =
        state.observe([&] { sizesBefore.emplace_back(state.history->size(), state.pinnedItemIDs->size()); });
    state.quickClearPolicy = QuickClearPolicy::oneDay;
    EXPECT_THAT(sizesBefore, ElementsAre(Pair(2, 2), Pair(2, 2), Pair(1, 2))); // The first is the policy.
    EXPECT_EQ(*state.pinnedItemIDs, PinnedItemIDs{desktop.item("B").id});
}

TEST_F(QuickClear, TellsNobodyWhenNothingExpires)
{
    state.quickClearPolicy = QuickClearPolicy::oneDay;
    desktop.copy("A");
    int announcements = 0;
    const Token token = state.observe([&] { ++announcements; });
    desktop.queue->advance(60);
    EXPECT_EQ(announcements, 0);
}

TEST_F(QuickClear, KeepsEntriesLongerWhenTheWallClockGoesBack)
{
    state.quickClearCustomSeconds = 30;
    state.quickClearPolicy = QuickClearPolicy::custom;
    desktop.copy("A");
    desktop.clock->jump(-3600);
    desktop.queue->advance(3600);
    EXPECT_THAT(desktop.texts(), ElementsAre("A"));
    desktop.queue->advance(31);
    EXPECT_THAT(desktop.texts(), IsEmpty());
}

TEST_F(QuickClear, DropsAnOldDateEvenBehindYoungOnesAndInFrontOfThem)
{
    state.quickClearPolicy = QuickClearPolicy::oneDay;
    desktop.copy("first");
    desktop.clock->jump(-86'000);
    desktop.copy("second, captured at an earlier time of day");
    desktop.clock->jump(86'000 + 1000);
    desktop.tick();
    EXPECT_THAT(desktop.texts(), ElementsAre("first"));
}

TEST_F(QuickClear, DropsEverythingWhenTheWallClockJumpsAhead)
{
    state.quickClearPolicy = QuickClearPolicy::oneDay;
    desktop.copy("A");
    desktop.copy("B");
    desktop.clock->jump(86'401);
    desktop.tick();
    EXPECT_THAT(desktop.texts(), IsEmpty());
}

} // namespace
} // namespace tessel::test
