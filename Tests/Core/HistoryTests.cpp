#include <gmock/gmock.h>

#include "Fakes/FakeDesktop.h"
#include "History/HistoryRules.h"

namespace tessel::test {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;
using testing::Pair;
using testing::UnorderedElementsAre;

class HistoryOfTheState : public testing::Test {
protected:
    FakeDesktop desktop;
    AppState& state = desktop.launch();

    void copyAll(std::initializer_list<std::string_view> texts)
    {
        for (const std::string_view text : texts)
            desktop.copy(text);
    }

    std::vector<std::string> orderedTexts() const
    {
        std::vector<std::string> texts;
        for (const ClipboardItem& item : state.orderedHistory())
            texts.push_back(*std::get<SharedText>(item.content));
        return texts;
    }

    static ClipboardItem strangerItem()
    {
        return {UUID::random(), std::make_shared<const std::string>("stranger"), 0};
    }
};

TEST_F(HistoryOfTheState, ShowsThePinnedEntriesFirstEachGroupNewestFirst)
{
    copyAll({"A", "B", "C"});
    state.togglePinned(desktop.item("A"));
    state.togglePinned(desktop.item("C"));
    EXPECT_THAT(orderedTexts(), ElementsAre("C", "A", "B"));
}

TEST_F(HistoryOfTheState, DoesNotCareWhenAnEntryWasPinned)
{
    copyAll({"A", "B", "C"});
    state.togglePinned(desktop.item("C"));
    state.togglePinned(desktop.item("A"));
    EXPECT_THAT(orderedTexts(), ElementsAre("C", "A", "B"));
}

TEST_F(HistoryOfTheState, ShowsTheHistoryAsItIsWhereNothingIsPinnedOrEverything)
{
    copyAll({"A", "B", "C"});
    EXPECT_THAT(orderedTexts(), ElementsAre("C", "B", "A"));
    for (const auto* text : {"A", "B", "C"})
        state.togglePinned(desktop.item(text));
    EXPECT_THAT(orderedTexts(), ElementsAre("C", "B", "A"));
}

TEST_F(HistoryOfTheState, ShowsANewCopyBelowThePins)
{
    copyAll({"A", "B"});
    state.togglePinned(desktop.item("A"));
    desktop.copy("C");
    EXPECT_THAT(orderedTexts(), ElementsAre("A", "C", "B"));
}

TEST_F(HistoryOfTheState, PinningAndUnpinningLeavesTheHistoryAndTheDateAsTheyWere)
{
    copyAll({"A", "B"});
    const Date date = desktop.item("A").date;
    state.togglePinned(desktop.item("A"));
    EXPECT_THAT(*state.pinnedItemIDs, UnorderedElementsAre(desktop.item("A").id));
    EXPECT_THAT(desktop.texts(), ElementsAre("B", "A"));
    EXPECT_EQ(desktop.item("A").date, date);
    state.togglePinned(desktop.item("A"));
    EXPECT_THAT(*state.pinnedItemIDs, IsEmpty());
    EXPECT_THAT(orderedTexts(), ElementsAre("B", "A"));
}

TEST_F(HistoryOfTheState, PinningTellsTheObserversOnce)
{
    copyAll({"A"});
    int announcements = 0;
    const Token token = state.observe([&] { ++announcements; });
    state.togglePinned(desktop.item("A"));
    EXPECT_EQ(announcements, 1);
}

TEST_F(HistoryOfTheState, RemovingAnEntryUnpinsItAndKeepsTheOrderOfTheRest)
{
    copyAll({"A", "B", "C", "D"});
    state.togglePinned(desktop.item("B"));
    state.togglePinned(desktop.item("D"));
    state.removeItem(desktop.item("B"));
    EXPECT_THAT(desktop.texts(), ElementsAre("D", "C", "A"));
    EXPECT_THAT(*state.pinnedItemIDs, UnorderedElementsAre(desktop.item("D").id));
}

TEST_F(HistoryOfTheState, RemovingAnEntryAssignsTheHistoryAndThenThePins)
{
    copyAll({"A"});
    state.togglePinned(desktop.item("A"));
    std::vector<std::pair<std::size_t, std::size_t>> sizesBefore;
    const Token token =
        state.observe([&] { sizesBefore.emplace_back(state.history->size(), state.pinnedItemIDs->size()); });
    state.removeItem(desktop.item("A"));
    EXPECT_THAT(sizesBefore, ElementsAre(Pair(1, 1), Pair(0, 1)));
}

TEST_F(HistoryOfTheState, RemovingAnEntryByContentOnlyRemovesTheOneOfThatIdentity)
{
    copyAll({"A", "B", "A"});
    state.removeItem(state.history->back());
    EXPECT_THAT(desktop.texts(), ElementsAre("A", "B"));
}

TEST_F(HistoryOfTheState, RemovingAStrangerChangesNothingButDropsItsPin)
{
    copyAll({"A"});
    state.togglePinned(desktop.item("A"));
    const ClipboardItem stranger = strangerItem();
    state.togglePinned(stranger);
    ASSERT_TRUE(state.pinnedItemIDs->contains(stranger.id));
    state.removeItem(stranger);
    EXPECT_THAT(desktop.texts(), ElementsAre("A"));
    EXPECT_THAT(*state.pinnedItemIDs, UnorderedElementsAre(desktop.item("A").id));
}

TEST_F(HistoryOfTheState, OperationsTakeAnEntryByReferenceIntoTheHistoryItself)
{
    copyAll({"A", "B", "C"});
    state.togglePinned(state.history->front());
    state.copyToClipboard(state.history->front());
    state.removeItem(state.history->front());
    EXPECT_THAT(desktop.texts(), ElementsAre("B", "A"));
    EXPECT_THAT(*state.pinnedItemIDs, IsEmpty());
}

TEST_F(HistoryOfTheState, ClearingDropsEveryEntryAndThenEveryPin)
{
    copyAll({"A", "B"});
    state.togglePinned(desktop.item("A"));
    std::vector<std::pair<std::size_t, std::size_t>> sizesBefore;
    const Token token =
        state.observe([&] { sizesBefore.emplace_back(state.history->size(), state.pinnedItemIDs->size()); });
    state.clearHistory();
    EXPECT_THAT(sizesBefore, ElementsAre(Pair(2, 1), Pair(0, 1)));
    EXPECT_TRUE(state.history->empty());
    EXPECT_TRUE(state.pinnedItemIDs->empty());
}

TEST_F(HistoryOfTheState, ClearingAnEmptyHistoryIsAllowed)
{
    state.clearHistory();
    EXPECT_TRUE(state.history->empty());
}

TEST_F(HistoryOfTheState, AClearedValueStillOnThePasteboardIsNotCapturedAgain)
{
    copyAll({"A"});
    state.clearHistory();
    desktop.tick();
    EXPECT_THAT(desktop.texts(), IsEmpty());
    desktop.copy("A");
    EXPECT_THAT(desktop.texts(), ElementsAre("A"));
}

// The rules by themselves.

History historyOf(std::initializer_list<Date> dates)
{
    History history;
    for (const Date date : dates)
        history.push_back({UUID::random(), std::make_shared<const std::string>("text"), date});
    return history;
}

std::vector<Date> datesOf(const History& history)
{
    std::vector<Date> dates;
    for (const ClipboardItem& item : history)
        dates.push_back(item.date);
    return dates;
}

TEST(HistoryRules, TheNewestEntriesAreTheFirst)
{
    const History history = historyOf({3, 2, 1});
    EXPECT_THAT(datesOf(newest(2, history)), ElementsAre(3, 2));
    EXPECT_THAT(datesOf(newest(3, history)), ElementsAre(3, 2, 1));
    EXPECT_THAT(datesOf(newest(4, history)), ElementsAre(3, 2, 1));
    EXPECT_THAT(datesOf(newest(0, history)), IsEmpty());
}

TEST(HistoryRules, AnEntryAtTheCutoffIsKept)
{
    EXPECT_THAT(datesOf(keepingSince(2, historyOf({3, 2, 1.999}))), ElementsAre(3, 2));
}

TEST(HistoryRules, EntriesAreKeptByDateWhateverTheirPlace)
{
    EXPECT_THAT(datesOf(keepingSince(2, historyOf({1, 5, 0, 2}))), ElementsAre(5, 2));
}

TEST(HistoryRules, ANewEntryGoesInFront)
{
    const History rest = historyOf({2, 1});
    const History front = historyOf({3});
    EXPECT_THAT(datesOf(inserting(front.front(), rest)), ElementsAre(3, 2, 1));
    EXPECT_THAT(datesOf(inserting(front.front(), {})), ElementsAre(3));
}

TEST(HistoryRules, PinsOfMissingEntriesAreDropped)
{
    const History history = historyOf({2, 1});
    const UUID stranger = UUID::random();
    EXPECT_THAT(intersecting({history[1].id, stranger}, history), UnorderedElementsAre(history[1].id));
    EXPECT_THAT(intersecting({stranger}, {}), IsEmpty());
}

} // namespace
} // namespace tessel::test
