// The panel as a window among others.

#include "ProgramTest.h"

namespace tessel::desktop {

namespace {

using testing::Contains;
using testing::IsSupersetOf;

class PanelTest : public ProgramTest {
protected:
    explicit PanelTest(DesktopOptions options = {})
        : ProgramTest(options)
    {}

    /// What is behind the panel is seen in its corners, and the panel between them.
    void waitForRoundCorners()
    {
        constexpr auto behind = Desktop::backgroundColour;
        desktop_.connection().waitUntil("round corners", [&] {
            const auto picture = program_->panel().picture();
            return picture.at(0, 0) == behind && picture.at(Panel::width - 1, picture.height - 1) == behind &&
                   picture.at(Panel::width / 2, picture.height - 20) != behind;
        });
    }
};

TEST_F(PanelTest, EscapeClosesItAndTheFocusReturns)
{
    TextClient editor(desktop_, TextClientKind::gtk);
    program_->openPanel();
    desktop_.connection().waitUntil("the editor to lose the focus", [&] { return !editor.hasFocus(); });
    program_->closePanel();
    desktop_.connection().waitUntil("the editor to have the focus again", [&] { return editor.hasFocus(); });
    desktop_.keyboard().type("typed");
    editor.waitForText("typed");
}

TEST_F(PanelTest, EachOpeningIsANewPanelWithANewSelection)
{
    copyTexts({"A", "B", "C"});
    desktop_.pointer().moveTo(restingPlace);
    const auto first = program_->openPanel();
    const auto fresh = program_->panel().picture();
    desktop_.keyboard().tap(XKB_KEY_Down);
    program_->panel().waitUntilItDiffersFrom(fresh);
    program_->pressHotKey();
    program_->panel().waitUntilClosed();
    const auto second = program_->openPanel();
    EXPECT_NE(second.window, first.window);
    desktop_.connection().waitUntil("the panel to look as at first",
                                    [&] { return program_->panel().picture() == fresh; });
    program_->closePanel();
}

TEST_F(PanelTest, TenEntriesMakeItAsHighAsSix)
{
    copyTexts({"1", "2", "3", "4", "5", "6"});
    EXPECT_EQ(program_->openPanel().frame.height, 550);
    program_->closePanel();
    copyTexts({"7", "8", "9", "10"});
    EXPECT_EQ(program_->openPanel().frame.height, 550);
    program_->closePanel();
}

TEST_F(PanelTest, ShownAgainWhileItIsInFrontItHasNoOtherProgramToPasteInto)
{
    TextClient editor(desktop_, TextClientKind::gtk);
    copyTexts({"A", "B"});
    editor.activate();
    program_->openPanel();
    EXPECT_TRUE(Program::runOption(desktop_, "--show").status.succeeded());
    SelectionWatch clipboard(desktop_.displayName());
    desktop_.keyboard().tap(XKB_KEY_Return);
    program_->panel().waitUntilClosed();
    clipboard.waitForMoreThan(0);
    letTheProgramTick();
    EXPECT_EQ(ClipboardReader(desktop_.displayName()).readText(), "B");
    EXPECT_EQ(editor.pasteCount(), 0);
    EXPECT_EQ(editor.text(), "");
}

TEST_F(PanelTest, ItSitsBesideThePointerAndInsideTheScreen)
{
    const auto screen = desktop_.screen();
    const std::vector<Place> places = {{300, 200},
                                       {screen.width - 100, 200},
                                       {300, screen.height - 30},
                                       {screen.width - 1, screen.height - 1},
                                       {0, 0}};
    for (const auto place : places) {
        desktop_.pointer().moveTo(place);
        const auto panel = program_->openPanel();
        EXPECT_EQ(panel.frame, Panel::frameBeside(place, 0, screen))
            << panel.frame.description() << " beside " << place.x << "," << place.y;
        program_->closePanel();
    }
}

TEST_F(PanelTest, ItSaysWhatItIsToTheWindowManager)
{
    const auto panel = program_->openPanel();
    const auto& windows = desktop_.windows();
    EXPECT_EQ(panel.instanceName, "tessel-clipboard");
    EXPECT_NE(panel.className, "");
    EXPECT_NE(panel.title, "");
    EXPECT_EQ(panel.processIdentifier, program_->process().pid());
    EXPECT_THAT(windows.atomNames(panel.window, "_NET_WM_WINDOW_TYPE"),
                Contains("_NET_WM_WINDOW_TYPE_UTILITY"));
    // The window manager keeps the states that it knows. Openbox tells a sticky window by its desktop alone.
    EXPECT_THAT(
        windows.atomNames(panel.window, "_NET_WM_STATE"),
        IsSupersetOf({"_NET_WM_STATE_ABOVE", "_NET_WM_STATE_SKIP_TASKBAR", "_NET_WM_STATE_SKIP_PAGER"}));
    // The window manager's answer to a window that wants no decoration: a frame without any extent.
    const std::vector<std::uint32_t> noExtents{0, 0, 0, 0};
    desktop_.connection().waitUntil("a frame without any extent", [&] {
        return desktop_.connection().propertyItems(panel.window, "_NET_FRAME_EXTENTS") == noExtents;
    });
    // The first flag of WM_NORMAL_HINTS says that the user chose the position (ICCCM section 4.1.2.3).
    const auto hints = desktop_.connection().propertyItems(panel.window, "WM_NORMAL_HINTS");
    ASSERT_FALSE(hints.empty());
    EXPECT_EQ(hints.front() & 1U, 1U);
    program_->closePanel();
}

TEST_F(PanelTest, ItHidesWhileAnotherProgramIsActiveAndComesBackByTheHotKey)
{
    TextClient editor(desktop_, TextClientKind::gtk);
    copyTexts({"A", "B"});
    program_->openPanel();
    editor.activate();
    program_->panel().waitUntilClosed();
    choose(1);
    expectPastedOnce(editor, "A");
}

TEST_F(PanelTest, ItOpensOnEveryDesktopOfTheWindowManager)
{
    const auto panel = program_->openPanel();
    const auto desktops = desktop_.connection().propertyItems(panel.window, "_NET_WM_DESKTOP");
    ASSERT_EQ(desktops.size(), 1U);
    EXPECT_EQ(desktops.front(), 0xFFFFFFFFU);
    program_->closePanel();
}

TEST_F(PanelTest, TheWindowManagerMayEndAndStartAgain)
{
    copyTexts({"A", "B"});
    TextClient editor(desktop_, TextClientKind::gtk);
    const auto expectThatItIsUsable = [&](int downPresses, const std::string& text) {
        editor.setText("");
        editor.activate();
        const auto panel = program_->openPanel();
        EXPECT_TRUE(desktop_.windows().hasFocus(panel.window));
        program_->closePanel();
        desktop_.connection().waitUntil("the editor to have the focus again",
                                        [&] { return editor.hasFocus(); });
        choose(downPresses);
        editor.waitForText(text);
    };
    expectThatItIsUsable(0, "B");
    desktop_.endWindowManager();
    expectThatItIsUsable(1, "A");
    desktop_.startWindowManager();
    expectThatItIsUsable(0, "B");
    EXPECT_EQ(editor.pasteCount(), 3);
}

TEST_F(PanelTest, TheWindowManagerMayEndAndStartAgainWhileItIsOpen)
{
    copyTexts({"A"});
    TextClient editor(desktop_, TextClientKind::gtk);
    const auto expectThatItOpensAgain = [&] {
        editor.activate();
        program_->panel().waitUntilClosed();
        const auto panel = program_->openPanel();
        EXPECT_TRUE(desktop_.windows().hasFocus(panel.window));
    };
    program_->openPanel();
    desktop_.endWindowManager();
    expectThatItOpensAgain();
    desktop_.startWindowManager();
    expectThatItOpensAgain();
    program_->closePanel();
}

class CompositedPanelTest : public PanelTest {
protected:
    CompositedPanelTest()
        : PanelTest({.compositor = CompositorChoice::picom})
    {}
};

TEST_F(CompositedPanelTest, ItIsTranslucentWithRoundCorners)
{
    program_->openPanel();
    waitForRoundCorners();
    program_->closePanel();
}

TEST_F(PanelTest, ItHasRoundCornersWithoutACompositorToo)
{
    program_->openPanel();
    waitForRoundCorners();
    program_->closePanel();
}

} // namespace

} // namespace tessel::desktop
