// The window that says what is missing where keys cannot be sent to other applications.

#include "ProgramTest.h"
#include "ProgramWindow.h"
#include "UntrustedTest.h"

namespace tessel::desktop {

namespace {

constexpr Extent size{430, 250}; // Points.

class OnboardingTest : public UntrustedTest {
protected:
    OnboardingTest()
        : UntrustedTest(ServerChoice::withoutSyntheticKeys)
    {}

    ProgramWindow windowOf(Program& program) { return {desktop_, program.process().pid(), "Setup Required"}; }
};

TEST_F(OnboardingTest, OpensOneWindowInTheMiddleInFrontWithTheFocus)
{
    Program program(desktop_);
    auto window = windowOf(program);
    const auto facts = window.waitUntilOpen();
    EXPECT_EQ(window.count(), 1U);
    const auto [width, height] = desktop_.screen();
    // What is in the middle is the window, with or without its frame.
    const auto middle = ProgramWindow::centered(size, {0, 0, width, height});
    constexpr int titleBar = 40;
    EXPECT_EQ(facts.frame.width, middle.width);
    EXPECT_EQ(facts.frame.height, middle.height);
    EXPECT_NEAR(facts.frame.x, middle.x, titleBar);
    EXPECT_NEAR(facts.frame.y, middle.y, titleBar);
    const auto frontmost =
        desktop_.windows().find([](const WindowFacts& candidate) { return candidate.isViewable; });
    EXPECT_EQ(frontmost.value().window, facts.window);
    EXPECT_TRUE(program.quit().succeeded());
    EXPECT_EQ(Program::sanitizerComplaint(program.process().errorOutput()), "");
}

TEST_F(OnboardingTest, HasAnIconForTaskBars)
{
    Program program(desktop_);
    windowOf(program).waitForIcon();
}

TEST_F(OnboardingTest, TheWindowManagersButtonClosesItAndNothingOpensItAgain)
{
    Program program(desktop_);
    auto window = windowOf(program);
    window.waitUntilOpen();
    window.askToClose();
    window.waitUntilClosed();
    showPanel(program);
    program.waitUntilItHasRead();
    EXPECT_FALSE(window.isOpen());
    EXPECT_TRUE(program.quit().succeeded());
}

TEST_F(OnboardingTest, StaysOpenUnderThePanel)
{
    Program program(desktop_);
    auto window = windowOf(program);
    window.waitUntilOpen();
    showPanel(program);
    EXPECT_TRUE(window.isOpen());
    desktop_.keyboard().sendTap(XKB_KEY_Escape, program.panel().waitUntilOpen().window);
    program.panel().waitUntilClosed();
    EXPECT_TRUE(window.isOpen());
    EXPECT_TRUE(program.quit().succeeded());
}

class TrustedTest : public ProgramTest {};

TEST_F(TrustedTest, OpensNoWindow)
{
    program_->waitUntilItHasRead();
    letTheProgramTick();
    EXPECT_FALSE(desktop_.windows().find(isViewableWindowOf(program_->process().pid())));
}

} // namespace

} // namespace tessel::desktop
