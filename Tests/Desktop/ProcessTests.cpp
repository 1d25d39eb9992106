// The process: its options, one per session, with and without a session bus.

#include <csignal>
#include <cstring>

#include "ProgramTest.h"

namespace tessel::desktop {

namespace {

using testing::HasSubstr;

class ProcessTest : public ProgramTest {};

TEST_F(ProcessTest, ToggleOpensAndClosesTheRunningOnesPanel)
{
    EXPECT_TRUE(Program::runOption(desktop_, "--toggle").status.succeeded());
    program_->panel().waitUntilOpen();
    EXPECT_TRUE(Program::runOption(desktop_, "--toggle").status.succeeded());
    program_->panel().waitUntilClosed();
}

TEST_F(ProcessTest, ShowOpensAndKeepsOpen)
{
    for (int round = 0; round < 2; ++round) {
        EXPECT_TRUE(Program::runOption(desktop_, "--show").status.succeeded());
        program_->panel().waitUntilOpen();
    }
    program_->closePanel();
}

TEST_F(ProcessTest, AProgramThatAnOptionStartedIsReachedByTheNextOne)
{
    for (const auto* option : {"--show", "--toggle"}) {
        endProgram();
        program_.emplace(desktop_, std::vector<std::string>{option});
        program_->panel().waitUntilOpen();
        EXPECT_TRUE(Program::runOption(desktop_, "--toggle").status.succeeded());
        program_->panel().waitUntilClosed();
    }
}

TEST_F(ProcessTest, ASecondStartReachesTheRunningOneAndEnds)
{
    const auto second = runCommand({Program::executable().string()}, desktop_.environment());
    EXPECT_TRUE(second.status.succeeded()) << second.errorOutput;
    EXPECT_TRUE(program_->process().isRunning());
    program_->panel().waitUntilOpen();
    program_->closePanel();
}

TEST_F(ProcessTest, QuitEndsIt)
{
    EXPECT_TRUE(Program::runOption(desktop_, "--quit").status.succeeded());
    EXPECT_TRUE(program_->process().waitForExit().succeeded());
    program_.reset();
    const auto again = Program::runOption(desktop_, "--quit");
    EXPECT_FALSE(again.status.succeeded());
    EXPECT_THAT(again.errorOutput, HasSubstr("not running"));
}

TEST_F(ProcessTest, QuitEndsItWithThePanelOpenToo)
{
    program_->openPanel();
    EXPECT_TRUE(Program::runOption(desktop_, "--quit").status.succeeded());
    EXPECT_TRUE(program_->process().waitForExit().succeeded());
    program_.reset();
}

/// What sessions, service managers and terminals send.
class EndingSignalTest : public ProcessTest, public testing::WithParamInterface<int> {};

TEST_P(EndingSignalTest, EndsItInOrder)
{
    program_->process().signal(GetParam());
    const auto status = program_->process().waitForExit();
    EXPECT_TRUE(status.succeeded()) << status.description();
    program_.reset();
}

TEST_P(EndingSignalTest, EndsItInOrderWithThePanelOpenToo)
{
    program_->openPanel();
    program_->process().signal(GetParam());
    const auto status = program_->process().waitForExit();
    EXPECT_TRUE(status.succeeded()) << status.description();
    program_.reset();
}

INSTANTIATE_TEST_SUITE_P(Number, EndingSignalTest, testing::Values(SIGTERM, SIGHUP, SIGINT),
                         [](const auto& number) { return std::string(sigabbrev_np(number.param)); });

TEST_F(ProcessTest, VersionAndHelpAnswerAtOnce)
{
    EXPECT_THAT(Program::runOption(desktop_, "--version").output, HasSubstr("Tessel Clipboard"));
    EXPECT_THAT(Program::runOption(desktop_, "--help").output, HasSubstr("--toggle"));
    EXPECT_FALSE(Program::runOption(desktop_, "--nonsense").status.succeeded());
}

TEST_F(ProcessTest, ToggleReturnsTheFocusToTheEditorToo)
{
    copyTexts({"A", "B"});
    TextClient editor(desktop_, TextClientKind::gtk);
    EXPECT_TRUE(Program::runOption(desktop_, "--toggle").status.succeeded());
    program_->panel().waitUntilOpen();
    desktop_.keyboard().tap(XKB_KEY_Down);
    desktop_.keyboard().tap(XKB_KEY_Return);
    expectPastedOnce(editor, "A");
}

class NoBusTest : public ProgramTest {
protected:
    NoBusTest()
        : ProgramTest({.bus = BusChoice::none})
    {}
};

TEST_F(NoBusTest, TheProgramRunsAllTheSame)
{
    copyTexts({"A", "B"});
    TextClient editor(desktop_, TextClientKind::gtk);
    choose(1);
    expectPastedOnce(editor, "A");
    EXPECT_THAT(program_->process().errorOutput(), HasSubstr("session bus"));
}

TEST_F(NoBusTest, TheOptionsSayWhatIsMissing)
{
    for (const auto* option : {"--quit", "--toggle", "--show"}) {
        const auto result = Program::runOption(desktop_, option);
        EXPECT_FALSE(result.status.succeeded()) << option;
        EXPECT_THAT(result.errorOutput, HasSubstr("session bus")) << option;
    }
}

} // namespace

} // namespace tessel::desktop
