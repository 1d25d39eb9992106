#include <gmock/gmock.h>

#include "Fakes/FakeDesktop.h"

namespace tessel::test {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

using Stroke = FakeKeyStrokes::Stroke;

class Paste : public testing::Test {
protected:
    FakeDesktop desktop;
    AppState& state = desktop.launch();

    void SetUp() override
    {
        desktop.copy("A");
        desktop.copy("B");
    }

    static Stroke commandV(std::optional<ProcessIdentifier> process)
    {
        return {9, ModifierFlags{0x100000}, process};
    }
};

TEST_F(Paste, TakesItsStepsInTheOneOrder)
{
    state.showPanel();
    desktop.log->forget();
    state.copyAndPaste(desktop.item("A"));
    EXPECT_THAT(desktop.log->everything(),
                ElementsAre("pasteboard.clearContents", "pasteboard.setString", "panel.close", "panel.drop",
                            "activate editor", "trust.isProcessTrusted", "processIdentifier editor",
                            "queue.asyncAfter 0.12"));
    EXPECT_EQ(state.panelController, nullptr);
    EXPECT_THAT(desktop.editor->activations(), ElementsAre(ActivationOptions{2}));
}

TEST_F(Paste, PutsExactlyTheTextOnThePasteboard)
{
    state.copyAndPaste(desktop.item("A"));
    ASSERT_NE(desktop.pasteboard->textOnBoard(), nullptr);
    EXPECT_EQ(*desktop.pasteboard->textOnBoard(), "A");
    EXPECT_EQ(desktop.pasteboard->imageOnBoard(), nullptr);
}

TEST_F(Paste, SharesTheTextWithThePasteboard)
{
    const ClipboardItem item = desktop.item("A");
    state.copyAndPaste(item);
    EXPECT_EQ(desktop.pasteboard->textOnBoard(), std::get<SharedText>(item.content));
}

TEST_F(Paste, WritesAnImageAsAnImageAndNotAsText)
{
    const SharedImage image = FakeImage::withPNG("abc");
    desktop.copy(image);
    desktop.copy("C");
    desktop.log->forget();
    state.copyToClipboard((*state.history)[1]);
    EXPECT_THAT(desktop.log->effects(), ElementsAre("pasteboard.clearContents", "pasteboard.writeObjects"));
    EXPECT_EQ(desktop.pasteboard->imageOnBoard(), image);
    EXPECT_EQ(desktop.pasteboard->textOnBoard(), nullptr);
}

TEST_F(Paste, SendsOneCommandVToTheRecordedProcessAfterTheDelay)
{
    state.showPanel();
    state.copyAndPaste(desktop.item("A"));
    desktop.queue->advance(0.119);
    EXPECT_THAT(desktop.keyStrokes->strokes(), IsEmpty());
    desktop.queue->advance(0.001);
    EXPECT_THAT(desktop.keyStrokes->strokes(), ElementsAre(commandV(ProcessIdentifier{1001})));
    desktop.queue->advance(10);
    EXPECT_EQ(desktop.keyStrokes->strokes().size(), 1U);
}

TEST_F(Paste, GoesToTheApplicationThatWasInFrontWhenThePanelOpened)
{
    state.showPanel();
    desktop.workspace->frontmost = desktop.browser;
    state.copyAndPaste(desktop.item("A"));
    desktop.queue->advance(1);
    EXPECT_THAT(desktop.keyStrokes->strokes(), ElementsAre(commandV(ProcessIdentifier{1001})));
    EXPECT_THAT(desktop.browser->activations(), IsEmpty());
}

TEST_F(Paste, KeepsItsProcessWhenThePanelIsOpenedAgainWithinTheDelay)
{
    state.showPanel();
    state.copyAndPaste(desktop.item("A"));
    desktop.workspace->frontmost = desktop.browser;
    state.showPanel();
    desktop.queue->advance(1);
    EXPECT_THAT(desktop.keyStrokes->strokes(), ElementsAre(commandV(ProcessIdentifier{1001})));
}

TEST_F(Paste, GoesToAnybodyWhereNoApplicationWasInFront)
{
    desktop.workspace->frontmost = nullptr;
    state.showPanel();
    desktop.log->forget();
    state.copyAndPaste(desktop.item("A"));
    desktop.queue->advance(0.12);
    EXPECT_THAT(desktop.keyStrokes->strokes(), ElementsAre(commandV(std::nullopt)));
    EXPECT_THAT(desktop.editor->activations(), IsEmpty());
}

TEST_F(Paste, ForgetsAnEarlierTargetWhenThePanelOpensWithNoApplicationInFront)
{
    state.showPanel();
    state.togglePanel();
    desktop.workspace->frontmost = nullptr;
    state.showPanel();
    state.copyAndPaste(desktop.item("A"));
    desktop.queue->advance(1);
    EXPECT_THAT(desktop.keyStrokes->strokes(), ElementsAre(commandV(std::nullopt)));
}

TEST_F(Paste, StillUsesTheProcessOfAnApplicationThatHasQuit)
{
    state.showPanel();
    desktop.editor->hasQuit = true;
    state.copyAndPaste(desktop.item("A"));
    desktop.queue->advance(1);
    EXPECT_THAT(desktop.keyStrokes->strokes(), ElementsAre(commandV(ProcessIdentifier{1001})));
}

TEST_F(Paste, WorksWithoutAPanel)
{
    desktop.log->forget();
    state.copyAndPaste(desktop.item("A"));
    desktop.queue->advance(0.12);
    EXPECT_THAT(desktop.keyStrokes->strokes(), ElementsAre(commandV(std::nullopt)));
}

TEST_F(Paste, ClosesAndDropsAHiddenPanelToo)
{
    state.showPanel();
    desktop.panel()->hide();
    state.copyAndPaste(desktop.item("A"));
    EXPECT_EQ(state.panelController, nullptr);
}

TEST_F(Paste, LeavesTheOtherWindowsOpen)
{
    state.showSettingsWindow();
    state.copyAndPaste(desktop.item("A"));
    ASSERT_NE(desktop.settings(), nullptr);
    EXPECT_TRUE(desktop.settings()->isWindowVisible());
}

TEST_F(Paste, WritesNoHistoryEntry)
{
    state.copyAndPaste(desktop.item("A"));
    desktop.queue->advance(5);
    EXPECT_THAT(desktop.texts(), ElementsAre("B", "A"));
}

TEST_F(Paste, SendsOneStrokeForEachOfTwoPastes)
{
    state.showPanel();
    state.copyAndPaste(desktop.item("A"));
    desktop.queue->advance(0.05);
    state.copyAndPaste(desktop.item("B"));
    desktop.queue->advance(1);
    EXPECT_EQ(desktop.keyStrokes->strokes().size(), 2U);
}

TEST_F(Paste, WithoutTrustPromptsAndThenOpensTheSettingsAndPostsNothing)
{
    desktop.trust->isTrusted = false;
    state.showPanel();
    desktop.log->forget();
    state.copyAndPaste(desktop.item("A"));
    EXPECT_THAT(desktop.log->effects(),
                ElementsAre("pasteboard.clearContents", "pasteboard.setString", "panel.close", "panel.drop",
                            "activate editor", "trust.prompt", "workspace.openURL"));
    EXPECT_THAT(desktop.trust->promptOptions(), ElementsAre(TrustPrompt::show));
    EXPECT_THAT(desktop.workspace->openedURLs(),
                ElementsAre("x-apple.systempreferences:com.apple.preference.security?Privacy_Accessibility"));
    desktop.queue->advance(10);
    EXPECT_THAT(desktop.keyStrokes->strokes(), IsEmpty());
    EXPECT_EQ(*desktop.pasteboard->textOnBoard(), "A");
}

TEST_F(Paste, WithoutTrustPromptsEveryTime)
{
    desktop.trust->isTrusted = false;
    state.copyAndPaste(desktop.item("A"));
    state.copyAndPaste(desktop.item("A"));
    EXPECT_EQ(desktop.trust->promptOptions().size(), 2U);
    EXPECT_EQ(desktop.workspace->openedURLs().size(), 2U);
}

TEST_F(Paste, AsksForTheTrustEveryTime)
{
    desktop.trust->isTrusted = false;
    state.copyAndPaste(desktop.item("A"));
    desktop.trust->isTrusted = true;
    state.copyAndPaste(desktop.item("A"));
    desktop.queue->advance(1);
    EXPECT_EQ(desktop.keyStrokes->strokes().size(), 1U);
}

TEST_F(Paste, CopyingOnlyLeavesThePanelOpenAndSendsNothing)
{
    state.showPanel();
    desktop.log->forget();
    state.copyToClipboard(desktop.item("A"));
    desktop.queue->advance(0.5);
    EXPECT_THAT(desktop.log->effects(), ElementsAre("pasteboard.clearContents", "pasteboard.setString"));
    EXPECT_NE(desktop.panel(), nullptr);
}

/// A pasteboard that lets the poll timer fire the moment it is cleared, and again the moment it is written.
class PasteboardSeenAtOnce final : public Pasteboard {
public:
    std::function<void()> onClear;
    std::function<void()> onWrite;

    std::int64_t changeCount() const override { return changeCount_; }
    SharedText string() const override { return text_; }
    SharedImage image() const override { return nullptr; }
    void clearContents() override
    {
        ++changeCount_;
        text_ = nullptr;
        onClear();
    }
    void setString(SharedText text) override
    {
        ++changeCount_;
        text_ = std::move(text);
        onWrite();
    }
    void writeObjects(SharedImage) override {}

private:
    std::int64_t changeCount_ = 0;
    SharedText text_;
};

TEST_F(Paste, MarksItsWriteBeforeThePasteboardIsTouched)
{
    const auto pasteboard = std::make_shared<PasteboardSeenAtOnce>();
    Platform platform = desktop.platform();
    platform.pasteboard = pasteboard;
    const auto own = AppState::create(platform, {});
    pasteboard->onClear = [&] {
        // An application that was quicker takes the pasteboard over with the very same text, and the timer
        // fires.
        pasteboard->onWrite = [&] { desktop.tick(); };
        pasteboard->setString(std::make_shared<const std::string>("A"));
        pasteboard->onWrite = [] {};
    };
    own->copyToClipboard(desktop.item("A"));
    EXPECT_TRUE(own->history->empty()) << "The write was captured, so it was marked too late.";
}

} // namespace
} // namespace tessel::test
