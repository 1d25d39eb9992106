#include <climits>

#include <gtest/gtest.h>

#include "Fakes/FakeDesktop.h"
#include "Panel/PanelSelection.h"

namespace tessel::test {
namespace {

History entries(int count)
{
    History history;
    for (int number = 0; number < count; ++number)
        history.push_back({UUID::random(), std::make_shared<const std::string>("entry"), 0});
    return history;
}

// Moving.

TEST(MovedSelection, StaysAsItIsInAnEmptyList)
{
    const UUID gone = UUID::random();
    EXPECT_EQ(movedSelection({}, std::nullopt, 1), std::nullopt);
    EXPECT_EQ(movedSelection({}, gone, -1), gone);
}

TEST(MovedSelection, BeginsAtTheFirstEntryWhateverTheStep)
{
    const History list = entries(3);
    for (const int step : {-1, 1, 5})
        EXPECT_EQ(movedSelection(list, std::nullopt, step), list[0].id) << step;
}

TEST(MovedSelection, BeginsAtTheFirstEntryWhereTheSelectedOneIsGone)
{
    const History list = entries(3);
    for (const int step : {-1, 1})
        EXPECT_EQ(movedSelection(list, UUID::random(), step), list[0].id) << step;
}

TEST(MovedSelection, GoesByTheStep)
{
    const History list = entries(5);
    EXPECT_EQ(movedSelection(list, list[1].id, 1), list[2].id);
    EXPECT_EQ(movedSelection(list, list[1].id, -1), list[0].id);
    EXPECT_EQ(movedSelection(list, list[1].id, 3), list[4].id);
    EXPECT_EQ(movedSelection(list, list[4].id, -4), list[0].id);
    EXPECT_EQ(movedSelection(list, list[2].id, 0), list[2].id);
}

TEST(MovedSelection, StopsAtBothEnds)
{
    const History list = entries(3);
    EXPECT_EQ(movedSelection(list, list[0].id, -1), list[0].id);
    EXPECT_EQ(movedSelection(list, list[2].id, 1), list[2].id);
    EXPECT_EQ(movedSelection(list, list[1].id, 7), list[2].id);
    EXPECT_EQ(movedSelection(list, list[1].id, -7), list[0].id);
    EXPECT_EQ(movedSelection(list, list[1].id, INT_MAX), list[2].id);
    EXPECT_EQ(movedSelection(list, list[1].id, INT_MIN), list[0].id);
}

TEST(MovedSelection, StaysOnTheLastEntryHoweverOftenDownIsPressed)
{
    const History list = entries(3);
    std::optional<UUID> selected = list[2].id;
    for (int press = 0; press < 3; ++press)
        selected = movedSelection(list, selected, 1);
    EXPECT_EQ(selected, list[2].id);
}

TEST(MovedSelection, StaysOnTheOnlyEntry)
{
    const History list = entries(1);
    EXPECT_EQ(movedSelection(list, list[0].id, 1), list[0].id);
    EXPECT_EQ(movedSelection(list, list[0].id, -1), list[0].id);
}

TEST(MovedSelection, CrossesFromThePinnedEntriesIntoTheOthers)
{
    FakeDesktop desktop;
    AppState& state = desktop.launch();
    for (const auto* text : {"A", "B", "C"})
        desktop.copy(text);
    state.togglePinned(desktop.item("A"));
    state.togglePinned(desktop.item("C"));

    std::optional<UUID> selected = ensuredSelection(state.orderedHistory(), std::nullopt);
    EXPECT_EQ(selected, desktop.item("C").id);
    selected = movedSelection(state.orderedHistory(), selected, 1);
    EXPECT_EQ(selected, desktop.item("A").id);
    selected = movedSelection(state.orderedHistory(), selected, 1);
    EXPECT_EQ(selected, desktop.item("B").id);
}

// Keeping it valid.

TEST(EnsuredSelection, IsAbsentInAnEmptyList)
{
    EXPECT_EQ(ensuredSelection({}, std::nullopt), std::nullopt);
    EXPECT_EQ(ensuredSelection({}, UUID::random()), std::nullopt);
}

TEST(EnsuredSelection, KeepsAnEntryThatIsThere)
{
    const History list = entries(3);
    EXPECT_EQ(ensuredSelection(list, list[2].id), list[2].id);
}

TEST(EnsuredSelection, FallsBackToTheFirstEntry)
{
    const History list = entries(3);
    EXPECT_EQ(ensuredSelection(list, std::nullopt), list[0].id);
    EXPECT_EQ(ensuredSelection(list, UUID::random()), list[0].id);
}

TEST(EnsuredSelection, FallsBackToTheFirstEntryAndNotToANeighbourOfTheRemovedOne)
{
    FakeDesktop desktop;
    AppState& state = desktop.launch();
    for (const auto* text : {"A", "B", "C", "D"})
        desktop.copy(text);
    const UUID selected = desktop.item("B").id;
    state.removeItem(desktop.item("B"));
    EXPECT_EQ(ensuredSelection(state.orderedHistory(), selected), desktop.item("D").id);
}

TEST(EnsuredSelection, StaysOnAnEntryThatIsPinned)
{
    FakeDesktop desktop;
    AppState& state = desktop.launch();
    for (const auto* text : {"A", "B"})
        desktop.copy(text);
    state.togglePinned(desktop.item("A"));
    EXPECT_EQ(ensuredSelection(state.orderedHistory(), desktop.item("A").id), desktop.item("A").id);
    EXPECT_EQ(ensuredSelection(state.orderedHistory(), desktop.item("B").id), desktop.item("B").id);
}

// Finding its entry.

TEST(SelectedItem, IsTheEntryOfTheSelectedIdentity)
{
    const History list = entries(3);
    EXPECT_EQ(selectedItem(list, list[1].id), &list[1]);
}

TEST(SelectedItem, IsNoneWithoutASelectionOrWhereTheEntryIsGone)
{
    const History list = entries(3);
    EXPECT_EQ(selectedItem(list, std::nullopt), nullptr);
    EXPECT_EQ(selectedItem(list, UUID::random()), nullptr);
    EXPECT_EQ(selectedItem({}, list[0].id), nullptr);
}

} // namespace
} // namespace tessel::test
