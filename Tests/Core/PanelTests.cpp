#include <algorithm>

#include <gmock/gmock.h>

#include "Fakes/FakeDesktop.h"

namespace tessel::test {
namespace {

using testing::Contains;
using testing::ElementsAre;
using testing::IsEmpty;
using testing::Not;

class Panel : public testing::Test {
protected:
    FakeDesktop desktop;
    AppState& state = desktop.launch();

    void copyEntries(int count)
    {
        for (int number = 0; number < count; ++number)
            desktop.copy("entry " + std::to_string(number));
    }
};

TEST_F(Panel, OpensInTheOneOrder)
{
    desktop.log->forget();
    state.showPanel();
    EXPECT_THAT(desktop.log->effects(),
                ElementsAre("panel.make", "panel.setContentSize 460 220", "panel.setFrameOrigin 412 368",
                            "panel.showWindow", "application.activate ignoring others",
                            "panel.makeKeyAndOrderFront"));
}

TEST_F(Panel, RecordsTheFrontApplicationBeforeEverythingElse)
{
    desktop.log->forget();
    state.showPanel();
    EXPECT_EQ(desktop.log->everything().front(), "workspace.frontmostApplication");
}

TEST_F(Panel, WithoutEntriesHasTheSmallestSize)
{
    state.showPanel();
    EXPECT_EQ(desktop.panel()->frame().size, (Size{460, 220}));
}

TEST_F(Panel, CountsPinnedEntriesOnce)
{
    copyEntries(3);
    state.togglePinned(state.history->front());
    state.showPanel();
    EXPECT_EQ(desktop.panel()->frame().size, (Size{460, 334}));
}

TEST_F(Panel, WithTenEntriesIsAsHighAsWithSix)
{
    copyEntries(10);
    state.showPanel();
    EXPECT_EQ(desktop.panel()->frame().size, (Size{460, 550}));
}

TEST_F(Panel, GrowsWithEachCaptureWhileItIsOpen)
{
    state.showPanel();
    std::vector<double> heights;
    for (int number = 0; number < 8; ++number) {
        desktop.copy("next " + std::to_string(number));
        heights.push_back(desktop.panel()->frame().size.height);
    }
    EXPECT_THAT(heights, ElementsAre(220, 262, 334, 406, 478, 550, 550, 550));
}

TEST_F(Panel, IsPlacedByItsNewSizeAndNotByItsOldOne)
{
    desktop.screens->pointer = {400, 800};
    copyEntries(3);
    state.showPanel();
    EXPECT_EQ(desktop.panel()->frame().origin, (Point{412, 800 - 334 - 12}));
}

TEST_F(Panel, OpensOnTheDisplayUnderThePointer)
{
    desktop.screens->all.push_back({{{1440, 0}, {1920, 1080}}, {{1440, 40}, {1920, 1010}}});
    desktop.screens->pointer = {3300, 50};
    state.showPanel();
    EXPECT_EQ(desktop.panel()->frame().origin, (Point{2900, 40}));
}

TEST_F(Panel, ReadsThePointerAgainOnceTheScreenIsChosen)
{
    int reads = 0;
    desktop.screens->afterMouseLocation = [&] {
        if (++reads == 1)
            desktop.screens->pointer = {500, 500};
    };
    state.showPanel();
    EXPECT_EQ(desktop.panel()->frame().origin, (Point{512, 268}));
}

TEST_F(Panel, OpensOnTheMainScreenWhereThePointerIsOnNone)
{
    desktop.screens->pointer = {-500, 600};
    state.showPanel();
    EXPECT_EQ(desktop.panel()->frame().origin, (Point{0, 368}));
}

TEST_F(Panel, OpensWhereItIsWhereThereIsNoScreen)
{
    desktop.screens->all.clear();
    desktop.screens->main.reset();
    state.showPanel();
    EXPECT_EQ(desktop.panel()->placements(), 0);
    EXPECT_TRUE(desktop.panel()->isWindowVisible());
}

// Toggling.

TEST_F(Panel, ToggledTwiceIsGoneAndTheThirdTimeIsANewOne)
{
    desktop.log->forget();
    state.togglePanel();
    EXPECT_NE(desktop.panel(), nullptr);
    state.togglePanel();
    EXPECT_EQ(desktop.panel(), nullptr);
    state.togglePanel();
    EXPECT_NE(desktop.panel(), nullptr);
    const auto& effects = desktop.log->effects();
    EXPECT_EQ(std::count(effects.begin(), effects.end(), "panel.make"), 2);
    EXPECT_EQ(std::count(effects.begin(), effects.end(), "panel.drop"), 1);
}

TEST_F(Panel, ClosesBeforeItIsDropped)
{
    state.togglePanel();
    desktop.log->forget();
    state.togglePanel();
    EXPECT_THAT(desktop.log->everything(), ElementsAre("panel.close", "panel.drop"));
}

TEST_F(Panel, HiddenBySystemIsShownAgainByTogglingWithoutRebuilding)
{
    state.togglePanel();
    desktop.panel()->hide();
    copyEntries(2);
    desktop.screens->pointer = {100, 700};
    desktop.log->forget();
    state.togglePanel();
    EXPECT_THAT(desktop.log->effects(),
                ElementsAre("panel.setContentSize 460 262", "panel.setFrameOrigin 112 426",
                            "panel.showWindow", "application.activate ignoring others",
                            "panel.makeKeyAndOrderFront"));
}

TEST_F(Panel, ShownAgainAfterHavingBeenHiddenRecordsTheFrontApplicationAnew)
{
    copyEntries(1);
    state.togglePanel();
    desktop.panel()->hide();
    desktop.workspace->frontmost = desktop.browser;
    state.togglePanel();
    state.copyAndPaste(state.history->front());
    EXPECT_THAT(desktop.editor->activations(), IsEmpty());
    EXPECT_THAT(desktop.browser->activations(), ElementsAre(ActivationOptions::ignoringOtherApps));
}

TEST_F(Panel, WithoutAWindowIsShownAndNotClosedByToggling)
{
    state.togglePanel();
    desktop.panel()->loseWindow();
    desktop.log->forget();
    state.togglePanel();
    EXPECT_THAT(desktop.log->effects(),
                ElementsAre("panel.showWindow", "application.activate ignoring others",
                            "panel.makeKeyAndOrderFront"));
}

TEST_F(Panel, WithoutAWindowIsNeitherFittedNorPlacedByACapture)
{
    state.showPanel();
    desktop.panel()->loseWindow();
    desktop.log->forget();
    copyEntries(1);
    EXPECT_THAT(desktop.log->effects(), IsEmpty());
}

TEST_F(Panel, ShownWhileItIsVisibleStaysAndIsFittedAndPlacedAgain)
{
    state.showPanel();
    desktop.log->forget();
    state.showPanel();
    EXPECT_THAT(desktop.log->effects(), Not(Contains("panel.make")));
    EXPECT_THAT(desktop.log->effects(), Contains("panel.setFrameOrigin 412 368"));
}

TEST_F(Panel, OpenedWhileThisApplicationIsInFrontPastesIntoThisApplication)
{
    copyEntries(1);
    const auto ourselves =
        std::make_shared<FakeRunningApplication>(desktop.log, "ourselves", ProcessIdentifier{7});
    state.showSettingsWindow();
    desktop.workspace->frontmost = ourselves;
    state.showPanel();
    state.copyAndPaste(state.history->front());
    desktop.queue->advance(1);
    ASSERT_EQ(desktop.keyStrokes->strokes().size(), 1U);
    EXPECT_EQ(desktop.keyStrokes->strokes().front().process, ProcessIdentifier{7});
}

// The windows that the composition root leaves out.

TEST_F(Panel, ThatIsAbsentDoesNothing)
{
    const auto bare = AppState::create(desktop.platform(), {});
    desktop.queue->runPending();
    desktop.log->forget();
    bare->showPanel();
    bare->togglePanel();
    EXPECT_EQ(bare->panelController, nullptr);
    EXPECT_THAT(desktop.log->effects(), IsEmpty());
}

TEST_F(Panel, ThatCannotBeMadeDoesNothing)
{
    WindowFactory windows;
    windows.panel = [](AppState&, const PanelDescription&) { return nullptr; };
    const auto bare = AppState::create(desktop.platform(), windows);
    desktop.queue->runPending();
    desktop.log->forget();
    bare->togglePanel();
    EXPECT_THAT(desktop.log->effects(), IsEmpty());
}

} // namespace
} // namespace tessel::test
