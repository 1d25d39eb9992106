#include <gmock/gmock.h>

#include "Fakes/FakeDesktop.h"

namespace tessel::test {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;
using testing::Not;
using testing::Pair;

class Capture : public testing::Test {
protected:
    FakeDesktop desktop;
    AppState& state = desktop.launch();

    /// The history grows to `count` entries, named "1" (the oldest) to `count`.
    void fillHistory(int count)
    {
        for (int number = 1; number <= count; ++number)
            desktop.copy(std::to_string(number));
        ASSERT_EQ(state.history->size(), static_cast<std::size_t>(count));
    }
};

// When the pasteboard is looked at.

TEST_F(Capture, LooksEverySevenTenthsOfASecond)
{
    desktop.pasteboard->copyFromElsewhere("A");
    desktop.queue->advance(0.699);
    EXPECT_THAT(desktop.texts(), IsEmpty());
    desktop.queue->advance(0.001);
    EXPECT_THAT(desktop.texts(), ElementsAre("A"));

    desktop.log->forget();
    desktop.queue->advance(7);
    EXPECT_EQ(desktop.log->everything().size(), 10U);
}

TEST_F(Capture, CostsOneReadOfTheCounterWhenNothingChanged)
{
    desktop.copy("A");
    desktop.log->forget();
    desktop.tick();
    EXPECT_THAT(desktop.log->everything(), ElementsAre("pasteboard.changeCount"));
}

TEST_F(Capture, ReadsTheCounterAgainBeforeItReadsTheValue)
{
    desktop.log->forget();
    desktop.copy("A");
    EXPECT_THAT(desktop.log->everything(),
                ElementsAre("pasteboard.changeCount", "pasteboard.changeCount", "pasteboard.string"));
}

TEST_F(Capture, TakesTheLastOfSeveralChangesBetweenTwoTicks)
{
    desktop.pasteboard->copyFromElsewhere("A");
    desktop.pasteboard->copyFromElsewhere("B");
    desktop.copy("C");
    desktop.tick();
    EXPECT_THAT(desktop.texts(), ElementsAre("C"));
}

TEST_F(Capture, NoticesACounterThatGoesBack)
{
    desktop.copy("A");
    desktop.pasteboard->restartChangeCount();
    desktop.copy("B");
    EXPECT_THAT(desktop.texts(), ElementsAre("B", "A"));
}

TEST_F(Capture, GoesOnWhileThePanelIsOpen)
{
    state.showPanel();
    desktop.copy("A");
    EXPECT_THAT(desktop.texts(), ElementsAre("A"));
}

// What is captured.

TEST_F(Capture, RecordsTheTextTheTimeAndAFreshIdentity)
{
    desktop.clock->set(5000);
    desktop.copy("A");
    desktop.copy("B");
    const History& history = *state.history;
    ASSERT_EQ(history.size(), 2U);
    EXPECT_NE(history[0].id, history[1].id);
    EXPECT_NEAR(history[1].date, 5000.7, 1e-6);
    EXPECT_NEAR(history[0].date, 5001.4, 1e-6);
}

TEST_F(Capture, SharesTheTextWithThePasteboard)
{
    desktop.copy("A");
    EXPECT_EQ(std::get<SharedText>(desktop.item("A").content), desktop.pasteboard->textOnBoard());
}

TEST_F(Capture, KeepsWhiteSpaceAsItIs)
{
    desktop.copy(" a\r\n\tb \n");
    desktop.copy("   ");
    desktop.copy("\n");
    EXPECT_THAT(desktop.texts(), ElementsAre("\n", "   ", " a\r\n\tb \n"));
}

TEST_F(Capture, TakesTheTextOfAValueThatIsBothTextAndImage)
{
    desktop.pasteboard->copyFromElsewhere("caption", FakeImage::withPNG("abc"));
    desktop.tick();
    EXPECT_THAT(desktop.texts(), ElementsAre("caption"));
}

TEST_F(Capture, TakesTheImageWhereTheTextIsEmpty)
{
    desktop.pasteboard->copyFromElsewhere("", FakeImage::withPNG("abc"));
    desktop.tick();
    EXPECT_THAT(desktop.texts(), ElementsAre("[image]"));
}

TEST_F(Capture, SharesTheImage)
{
    const SharedImage image = FakeImage::withPNG("abc");
    desktop.copy(image);
    ASSERT_EQ(state.history->size(), 1U);
    EXPECT_EQ(std::get<SharedImage>(state.history->front().content), image);
}

TEST_F(Capture, SkipsAnUnreadableValueAndDoesNotLookAtItAgain)
{
    desktop.copy("A");
    desktop.pasteboard->copyUnreadableFromElsewhere();
    desktop.tick();
    const int reads = desktop.pasteboard->valueReads();
    desktop.queue->advance(7);
    EXPECT_THAT(desktop.texts(), ElementsAre("A"));
    EXPECT_EQ(desktop.pasteboard->valueReads(), reads);
}

TEST_F(Capture, SkipsAnEmptyTextWithoutImage)
{
    desktop.copy("");
    EXPECT_THAT(desktop.texts(), IsEmpty());
}

// Repetitions.

TEST_F(Capture, ATextCopiedTwiceInARowIsOneEntry)
{
    desktop.copy("A");
    const UUID first = desktop.item("A").id;
    desktop.copy("A");
    EXPECT_THAT(desktop.texts(), ElementsAre("A"));
    EXPECT_EQ(desktop.item("A").id, first);
}

TEST_F(Capture, ARepetitionTellsNobody)
{
    desktop.copy("A");
    int announcements = 0;
    const Token token = state.observe([&] { ++announcements; });
    desktop.copy("A");
    EXPECT_EQ(announcements, 0);
}

TEST_F(Capture, OnlyTheNewestEntryIsCompared)
{
    desktop.copy("A");
    desktop.copy("B");
    desktop.copy("A");
    EXPECT_THAT(desktop.texts(), ElementsAre("A", "B", "A"));
}

TEST_F(Capture, TheNewestEntryIsComparedEvenWhereAnotherOneIsPinnedAboveIt)
{
    desktop.copy("A");
    desktop.copy("B");
    state.togglePinned(desktop.item("A"));
    desktop.copy("B");
    EXPECT_THAT(desktop.texts(), ElementsAre("B", "A"));
    desktop.copy("A");
    EXPECT_THAT(desktop.texts(), ElementsAre("A", "B", "A"));
}

TEST_F(Capture, AnImageWithTheSameContentIsARepetition)
{
    desktop.copy(FakeImage::withPNG("abc"));
    desktop.copy(FakeImage::withPNG("abc"));
    EXPECT_EQ(state.history->size(), 1U);
    desktop.copy(FakeImage::withPNG("abd"));
    EXPECT_EQ(state.history->size(), 2U);
}

TEST_F(Capture, ATextThatReadsLikeAnImagesFingerprintIsNoRepetition)
{
    desktop.copy(FakeImage::failing(ImageEncoding::hasNoTIFF, {16, 16}));
    desktop.copy("image:16x16");
    EXPECT_EQ(state.history->size(), 2U);
}

TEST_F(Capture, EncodesAtMostThreeImages)
{
    const auto newest = FakeImage::withPNG("abc");
    const auto next = FakeImage::withPNG("abd");
    desktop.copy(newest);
    const int before = newest->encodings();
    desktop.copy(next);
    EXPECT_LE(newest->encodings() - before + next->encodings(), 3);
}

// The application's own writes.

TEST_F(Capture, SkipsOurOwnWrite)
{
    desktop.copy("A");
    desktop.copy("B");
    state.copyToClipboard(desktop.item("A"));
    desktop.tick();
    EXPECT_THAT(desktop.texts(), ElementsAre("B", "A"));
}

TEST_F(Capture, SkipsOurOwnWriteOfAnImage)
{
    desktop.copy(FakeImage::withPNG("abc"));
    ASSERT_EQ(state.history->size(), 1U);
    const ClipboardItem image = state.history->front();
    desktop.copy("B");
    state.copyToClipboard(image);
    desktop.tick();
    EXPECT_THAT(desktop.texts(), ElementsAre("B", "[image]"));
}

TEST_F(Capture, SkipsOurOwnWriteOnce)
{
    desktop.copy("A");
    desktop.copy("B");
    state.copyToClipboard(desktop.item("A"));
    desktop.tick();
    desktop.copy("A");
    EXPECT_THAT(desktop.texts(), ElementsAre("A", "B", "A"));
}

TEST_F(Capture, SkipsOurOwnWriteEvenAfterTheHistoryWasCleared)
{
    desktop.copy("A");
    state.copyToClipboard(desktop.item("A"));
    state.clearHistory();
    desktop.tick();
    EXPECT_THAT(desktop.texts(), IsEmpty());
}

TEST_F(Capture, AForeignChangeBeforeOurWriteIsSeenUsesTheMarkerUp)
{
    desktop.copy("A");
    desktop.copy("B");
    state.copyToClipboard(desktop.item("A"));
    desktop.copy("foreign");
    EXPECT_THAT(desktop.texts(), ElementsAre("foreign", "B", "A"));
    desktop.copy("A");
    EXPECT_THAT(desktop.texts(), ElementsAre("A", "foreign", "B", "A"));
}

TEST_F(Capture, AForeignRepetitionUsesTheMarkerUpToo)
{
    desktop.copy("A");
    desktop.copy("B");
    state.copyToClipboard(desktop.item("A"));
    desktop.copy("B");
    EXPECT_THAT(desktop.texts(), ElementsAre("B", "A"));
    desktop.copy("A");
    EXPECT_THAT(desktop.texts(), ElementsAre("A", "B", "A"));
}

TEST_F(Capture, AForeignCopyOfWhatWeWroteCountsAsOurWrite)
{
    desktop.copy("A");
    desktop.copy("B");
    state.copyToClipboard(desktop.item("A"));
    desktop.copy("A");
    EXPECT_THAT(desktop.texts(), ElementsAre("B", "A"));
}

TEST_F(Capture, AnUnreadableChangeDoesNotUseTheMarkerUp)
{
    desktop.copy("A");
    desktop.copy("B");
    state.copyToClipboard(desktop.item("A"));
    desktop.pasteboard->copyUnreadableFromElsewhere();
    desktop.tick();
    desktop.copy("A");
    EXPECT_THAT(desktop.texts(), ElementsAre("B", "A"));
}

TEST_F(Capture, ATickWithoutChangeDoesNotUseTheMarkerUp)
{
    desktop.copy("A");
    desktop.copy("B");
    desktop.tick();
    state.copyToClipboard(desktop.item("A"));
    desktop.tick();
    EXPECT_THAT(desktop.texts(), ElementsAre("B", "A"));
}

TEST_F(Capture, OnlyTheLastOfTwoWritesIsMarked)
{
    desktop.copy("A");
    desktop.copy("B");
    desktop.copy("C");
    state.copyToClipboard(desktop.item("A"));
    state.copyToClipboard(desktop.item("B"));
    desktop.tick();
    EXPECT_THAT(desktop.texts(), ElementsAre("C", "B", "A"));
    desktop.copy("A");
    EXPECT_THAT(desktop.texts(), ElementsAre("A", "C", "B", "A"));
}

// The cap.

TEST_F(Capture, KeepsAHundredEntries)
{
    fillHistory(100);
    EXPECT_EQ(desktop.texts().back(), "1");
    desktop.copy("101");
    EXPECT_EQ(state.history->size(), 100U);
    EXPECT_EQ(desktop.texts().front(), "101");
    EXPECT_EQ(desktop.texts().back(), "2");
}

TEST_F(Capture, TheCapDropsAPinnedEntryAndItsPin)
{
    fillHistory(100);
    state.togglePinned(desktop.item("1"));
    state.togglePinned(desktop.item("50"));
    desktop.copy("101");
    EXPECT_EQ(desktop.texts().back(), "2");
    EXPECT_EQ(*state.pinnedItemIDs, PinnedItemIDs{desktop.item("50").id});
}

TEST_F(Capture, TheCapFirstDropsThePinAndThenTheEntry)
{
    fillHistory(100);
    state.togglePinned(desktop.item("1"));
    std::vector<std::pair<std::size_t, std::size_t>> sizesBefore;
    const Token token =
        state.observe([&] { sizesBefore.emplace_back(state.history->size(), state.pinnedItemIDs->size()); });
    desktop.copy("101");
    EXPECT_THAT(sizesBefore, ElementsAre(Pair(100, 1), Pair(101, 1), Pair(101, 0)));
}

TEST_F(Capture, TheCapAssignsNothingUntilItIsExceeded)
{
    fillHistory(99);
    int announcements = 0;
    const Token token = state.observe([&] { ++announcements; });
    desktop.copy("100");
    EXPECT_EQ(announcements, 1);
}

// What a capture does to the panel.

TEST_F(Capture, RefitsAndThenReplacesAVisiblePanel)
{
    desktop.copy("A");
    state.showPanel();
    desktop.screens->pointer = {500, 700};
    desktop.log->forget();
    desktop.copy("B");
    EXPECT_THAT(desktop.log->effects(),
                ElementsAre("panel.setContentSize 460 262", "panel.setFrameOrigin 512 426"));
}

TEST_F(Capture, LeavesAHiddenPanelAlone)
{
    state.showPanel();
    desktop.panel()->hide();
    desktop.log->forget();
    desktop.copy("A");
    EXPECT_THAT(desktop.log->effects(), IsEmpty());
}

TEST_F(Capture, LeavesAVisiblePanelAloneWhenNothingIsCaptured)
{
    desktop.copy("A");
    state.showPanel();
    desktop.log->forget();
    desktop.copy("A");
    desktop.pasteboard->copyUnreadableFromElsewhere();
    desktop.tick();
    EXPECT_THAT(desktop.log->effects(), IsEmpty());
}

// Together with quick clear.

TEST_F(Capture, ComesAfterTheQuickClearPassOfTheSameTick)
{
    state.quickClearPolicy = QuickClearPolicy::custom;
    state.quickClearCustomSeconds = 30;
    desktop.copy("A");
    const UUID old = desktop.item("A").id;
    desktop.pasteboard->copyFromElsewhere("A");
    desktop.clock->jump(60);
    desktop.tick();
    // The old entry expired first, so that the new value is no repetition of it.
    ASSERT_THAT(desktop.texts(), ElementsAre("A"));
    EXPECT_NE(state.history->front().id, old);
}

} // namespace
} // namespace tessel::test
