// The panel as a window among others.

#include "ProgramTest.h"

namespace tessel::desktop {

namespace {

using testing::Contains;
using testing::Each;
using testing::IsSupersetOf;

class PanelTest : public ProgramTest {};

TEST_F(PanelTest, EscapeClosesItAndTheFocusReturns)
{
    TextClient editor(desktop_, TextClientKind::gtk);
    program_->openPanel();
    EXPECT_FALSE(editor.hasFocus());
    program_->closePanel();
    desktop_.connection().waitUntil("the editor to have the focus again", [&] { return editor.hasFocus(); });
    desktop_.keyboard().type("typed");
    editor.waitForText("typed");
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
    EXPECT_THAT(desktop_.connection().propertyItems(panel.window, "_NET_FRAME_EXTENTS"), Each(0U));
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

class CompositedPanelTest : public ProgramTest {
protected:
    CompositedPanelTest()
        : ProgramTest({.compositor = CompositorChoice::picom})
    {}
};

TEST_F(CompositedPanelTest, ItIsTranslucentWithRoundCorners)
{
    program_->openPanel();
    desktop_.pixels().readQuietScreen();
    const auto picture = program_->panel().picture();
    EXPECT_EQ(picture.at(0, 0), Desktop::backgroundColour);
    EXPECT_EQ(picture.at(Panel::width - 1, picture.height - 1), Desktop::backgroundColour);
    EXPECT_NE(picture.at(Panel::width / 2, picture.height - 20), Desktop::backgroundColour);
    program_->closePanel();
}

TEST_F(PanelTest, ItHasRoundCornersWithoutACompositorToo)
{
    program_->openPanel();
    const auto picture = program_->panel().picture();
    EXPECT_EQ(picture.at(0, 0), Desktop::backgroundColour);
    EXPECT_EQ(picture.at(Panel::width - 1, picture.height - 1), Desktop::backgroundColour);
    program_->closePanel();
}

} // namespace

} // namespace tessel::desktop
