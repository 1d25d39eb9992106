// What the desktop is made of crashes, and the program stays.

#include <signal.h>

#include "ProgramTest.h"
#include "SettingsPortal.h"

namespace tessel::desktop {

namespace {

using testing::HasSubstr;

class CrashTest : public ProgramTest {
protected:
    explicit CrashTest(DesktopOptions options = {})
        : ProgramTest(std::move(options))
    {}

    /// The main job, from the hot key to the paste.
    void expectItWorks()
    {
        TextClient editor(desktop_, TextClientKind::gtk);
        editor.activate();
        choose(1);
        expectPastedOnce(editor, "A");
    }
};

TEST_F(CrashTest, OfTheWindowManager)
{
    copyTexts({"A", "B"});
    program_->openPanel();
    desktop_.killWindowManager();
    EXPECT_TRUE(program_->process().isRunning());
    program_->closePanel();
    desktop_.startWindowManager();
    expectItWorks();
}

TEST_F(CrashTest, OfTheSettingsPortal)
{
    copyTexts({"A", "B"});
    {
        SettingsPortal portal(desktop_);
        portal.setColorScheme(SettingsPortal::Scheme::dark);
        portal.start();
        portal.setColorScheme(SettingsPortal::Scheme::light);
        portal.kill();
    }
    expectItWorks();
}

class BusCrashTest : public CrashTest {
protected:
    void TearDown() override
    {
        EXPECT_FALSE(desktop_.keyboard().isAnyKeyDown());
        program_->process().signal(SIGTERM);
        const auto status = program_->process().waitForExit();
        EXPECT_TRUE(status.succeeded()) << status.description();
    }
};

TEST_F(BusCrashTest, OfTheSessionBus)
{
    copyTexts({"A", "B"});
    desktop_.killBus();
    expectItWorks();
    const auto second = runCommand({Program::executable().string(), "--toggle"}, desktop_.environment());
    EXPECT_FALSE(second.status.succeeded());
    EXPECT_THAT(second.errorOutput, HasSubstr("session bus"));
    EXPECT_TRUE(program_->process().isRunning());
}

class CompositorCrashTest : public CrashTest {
protected:
    CompositorCrashTest()
        : CrashTest({.compositor = CompositorChoice::picom})
    {}
};

TEST_F(CompositorCrashTest, OfTheCompositor)
{
    copyTexts({"A", "B"});
    program_->openPanel();
    desktop_.killCompositor();
    program_->closePanel();
    expectItWorks();
}

TEST(ServerCrashTest, TheLossOfTheXServerEndsItWithAMessage)
{
    Desktop desktop;
    Program program(desktop);
    desktop.killServer();
    const auto status = program.process().waitForExit();
    EXPECT_FALSE(status.bySignal) << status.description();
    EXPECT_FALSE(status.succeeded());
    EXPECT_NE(program.process().errorOutput(), "");
}

} // namespace

} // namespace tessel::desktop
