// The life of the settings and the about window in the running program: where they open, who has the focus,
// what closes them.

#include "SecondaryWindowTest.h"

#include "Dock.h"
#include "Monitors.h"

namespace tessel::desktop {

namespace {

struct Subject {
    const char* option;
    const char* title;
    Extent size;
};

void PrintTo(const Subject& subject, std::ostream* stream)
{
    *stream << subject.title;
}

constexpr Subject settingsWindow = {"--settings", "Settings", {420, 520}};
constexpr Subject aboutWindow = {"--about", "About Tessel Clipboard", {420, 340}};

class EitherWindowTest : public SecondaryWindowTest, public testing::WithParamInterface<Subject> {
protected:
    ProgramWindow subject() { return window(GetParam().title); }
    WindowFacts open()
    {
        EXPECT_TRUE(Program::runOption(desktop_, GetParam().option).status.succeeded());
        return subject().waitUntilOpen();
    }
    /// Moves it as a window manager does, waits until the program knows, and returns where it is then.
    Frame moveAside(const WindowFacts& facts)
    {
        const auto moved = subject().moveTo({facts.frame.x + 130, facts.frame.y - 70});
        program_->waitUntilItHasRead();
        return moved.frame;
    }
    void waitUntilItHasTheFocus(TextClient& client)
    {
        desktop_.connection().waitUntil("the editor to have the focus again", [&] {
            return desktop_.windows().hasFocus(client.window()) && client.hasFocus();
        });
    }
};

TEST_P(EitherWindowTest, OpensInTheMiddleOfTheScreenWithTheFocus)
{
    TextClient editor(desktop_, TextClientKind::gtk);
    open();
    const auto [width, height] = desktop_.screen();
    subject().waitForFrame(ProgramWindow::centered(GetParam().size, {0, 0, width, height}));
    EXPECT_EQ(subject().count(), 1U);
}

TEST_P(EitherWindowTest, HasAnIconForTaskBars)
{
    open();
    subject().waitForIcon();
}

TEST_P(EitherWindowTest, OpensOnTheMonitorUnderThePointerClearOfADock)
{
    Monitors(desktop_).set({{"left", {0, 0, 640, 1024}}, {"right", {640, 0, 640, 900}}});
    const Dock dock(desktop_.displayName(), ScreenEdge::top, {640, 0, 640, 60});
    const Frame visible{640, 60, 640, 840};
    desktop_.pointer().moveTo({1200, 700});
    // The program may not have heard yet of what has changed.
    desktop_.connection().waitUntil("the program to know the monitors and the dock", [&] {
        program_->openPanel();
        const auto panel = program_->panel().find().value().frame;
        program_->closePanel();
        return panel == Panel::frameBeside({1200, 700}, 0, visible);
    });
    open();
    subject().waitForFrame(ProgramWindow::centered(GetParam().size, visible));
}

TEST_P(EitherWindowTest, OpenedTwiceIsOneWindowThatComesToTheFront)
{
    const auto first = open();
    TextClient editor(desktop_, TextClientKind::gtk);
    editor.activate();
    desktop_.keyboard().type("typed");
    editor.waitForText("typed");
    const auto second = open();
    EXPECT_EQ(second.window, first.window);
    EXPECT_EQ(second.frame, first.frame);
    EXPECT_EQ(subject().count(), 1U);
    const auto frontmost = desktop_.windows().find([](const WindowFacts& facts) { return facts.isViewable; });
    EXPECT_EQ(frontmost.value().window, first.window) << "it is not in front";
}

TEST_P(EitherWindowTest, ComesBackFromMinimised)
{
    const auto first = open();
    TextClient editor(desktop_, TextClientKind::gtk);
    desktop_.windows().minimise(first.window);
    subject().waitUntilClosed();
    EXPECT_EQ(open().window, first.window);
}

TEST_P(EitherWindowTest, IsMovedByItsBackgroundAsFarAsThePointer)
{
    const Frame start = open().frame;
    // Beside the content, which is inset.
    const Place grip = {start.x + 8, start.y + start.height / 2};
    constexpr int way = 100;
    auto& pointer = desktop_.pointer();
    pointer.moveTo(grip);
    pointer.press();
    for (int gone = 0; gone <= way; gone += 4)
        pointer.moveTo({grip.x + gone, grip.y - gone});
    subject().waitForFrame({start.x + way, start.y - way, start.width, start.height});
    pointer.release();
}

TEST_P(EitherWindowTest, EscapeClosesItAndTheNextOneIsBackInTheMiddle)
{
    TextClient editor(desktop_, TextClientKind::gtk);
    const auto first = open();
    moveAside(first);
    desktop_.keyboard().tap(XKB_KEY_Escape);
    subject().waitUntilClosed();
    waitUntilItHasTheFocus(editor);
    open();
    subject().waitForFrame(first.frame);
}

TEST_P(EitherWindowTest, ClosedByTheWindowManagerItIsShownAgainWhereItWas)
{
    TextClient editor(desktop_, TextClientKind::gtk);
    const auto aside = moveAside(open());
    subject().askToClose();
    subject().waitUntilClosed();
    waitUntilItHasTheFocus(editor);
    open();
    subject().waitForFrame(aside);
}

TEST_P(EitherWindowTest, QuittingDoesNotAskIt)
{
    open();
    endProgram();
}

TEST_P(EitherWindowTest, OpensWhereTheProgramDidNotRun)
{
    endProgram();
    program_.emplace(desktop_, std::vector<std::string>{GetParam().option});
    subject().waitUntilOpen();
    EXPECT_FALSE(program_->panel().isOpen());
}

INSTANTIATE_TEST_SUITE_P(Of, EitherWindowTest, testing::Values(settingsWindow, aboutWindow),
                         [](const auto& subject) { return std::string(subject.param.option).substr(2); });

TEST_F(SecondaryWindowTest, EscapeClosesPanelSettingsAndAboutOneAPress)
{
    openAbout();
    openSettings();
    program_->openPanel();
    desktop_.keyboard().tap(XKB_KEY_Escape);
    program_->panel().waitUntilClosed();
    settings().waitUntilOpen();
    EXPECT_TRUE(about().isOpen());
    desktop_.keyboard().tap(XKB_KEY_Escape);
    settings().waitUntilClosed();
    about().waitUntilOpen();
    desktop_.keyboard().tap(XKB_KEY_Escape);
    about().waitUntilClosed();
}

TEST_F(SecondaryWindowTest, AnOpenPanelStaysWhenTheSettingsTakeTheFocus)
{
    TextClient editor(desktop_, TextClientKind::gtk);
    program_->openPanel();
    const auto window = openSettings();
    letTheProgramTick();
    EXPECT_TRUE(program_->panel().isOpen());
    EXPECT_TRUE(desktop_.windows().hasFocus(window.window));
    // Another application in front hides the panel, and not the settings.
    editor.activate();
    program_->panel().waitUntilClosed();
    EXPECT_TRUE(settings().isOpen());
}

TEST_F(SecondaryWindowTest, ThePanelPastesIntoTheApplicationBehindTheSettings)
{
    TextClient editor(desktop_, TextClientKind::gtk);
    copyTexts({"A", "B"});
    openSettings();
    editor.activate();
    choose(1);
    expectPastedOnce(editor, "A");
    EXPECT_TRUE(settings().isOpen());
}

} // namespace

} // namespace tessel::desktop
