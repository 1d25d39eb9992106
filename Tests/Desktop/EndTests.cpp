// How the program ends: what it leaves to others, and who can end it.

#include <fcntl.h>
#include <signal.h>

#include <sstream>

#include "BusClient.h"
#include "ClipboardOwner.h"
#include "FileContent.h"
#include "ProgramTest.h"
#include "SessionManager.h"

namespace tessel::desktop {

namespace {

using testing::HasSubstr;

class EndTest : public ProgramTest {
protected:
    explicit EndTest(DesktopOptions options = {})
        : ProgramTest(std::move(options))
    {}

    /// Owns the selection of clipboard managers, and answers nobody.
    void startSilentManager()
    {
        auto& connection = desktop_.connection();
        const xcb_window_t window = xcb_generate_id(connection.get());
        xcb_create_window(connection.get(), 0, window, connection.root(), -1, -1, 1, 1, 0,
                          XCB_WINDOW_CLASS_INPUT_ONLY, XCB_COPY_FROM_PARENT, 0, nullptr);
        xcb_set_selection_owner(connection.get(), window, connection.atom("CLIPBOARD_MANAGER"),
                                XCB_CURRENT_TIME);
        connection.synchronize();
    }
    void expectHotKeyIsFree() { EXPECT_FALSE(desktop_.keyboard().isGrabbed(XKB_KEY_v, superShiftV.mask)); }
    void expectToEnd()
    {
        const auto status = program_->process().waitForExit();
        EXPECT_TRUE(status.succeeded()) << status.description();
        EXPECT_EQ(Program::sanitizerComplaint(program_->process().errorOutput()), "");
        program_.reset();
    }
    /// Puts a text of the history on the clipboard, which is ours then.
    void copyFromThePanel(const std::string& text)
    {
        copyTexts({text, "another"});
        copies_.reset();
        choose(1);
    }
};

TEST_F(EndTest, TheHotKeyIsFreeForOthersAfterwards)
{
    EXPECT_TRUE(desktop_.keyboard().isGrabbed(XKB_KEY_v, superShiftV.mask));
    program_->process().signal(SIGTERM);
    expectToEnd();
    expectHotKeyIsFree();
}

TEST_F(EndTest, AClipboardManagerThatNeverAnswersDoesNotKeepItForEver)
{
    copyFromThePanel("handed on");
    startSilentManager();
    program_->process().signal(SIGTERM);
    expectToEnd();
    expectHotKeyIsFree();
}

/// While the clipboard's value is handed on, which takes its time, nothing of it is in the way of a new one.
TEST_F(EndTest, StartedAgainWhileItHandsTheClipboardOnItRuns)
{
    copyFromThePanel("handed on");
    startSilentManager();
    EXPECT_TRUE(Program::runOption(desktop_, "--quit").status.succeeded());
    ChildProcess next({Program::executable().string()}, desktop_.environment());
    BusClient client(desktop_.busAddress());
    const auto address = Program::busAddress();
    desktop_.connection().waitUntil("the new one to have the name",
                                    [&] { return client.processOf(address.name) == next.pid(); });
    EXPECT_TRUE(client.askObject(address.name, address.path, Deadline()));
    Panel panel(desktop_, next.pid());
    desktop_.keyboard().chord({XKB_KEY_Super_L, XKB_KEY_Shift_L}, XKB_KEY_v);
    panel.waitUntilOpen();
    expectToEnd();
    EXPECT_TRUE(panel.isOpen());
    EXPECT_TRUE(Program::runOption(desktop_, "--quit").status.succeeded());
    EXPECT_TRUE(next.waitForExit().succeeded()) << next.errorOutput();
}

TEST_F(EndTest, ASecondSignalOfAKindEndsItAtOnce)
{
    copyFromThePanel("handed on");
    startSilentManager();
    program_->process().signal(SIGTERM);
    desktop_.connection().waitUntil("the first signal to be heard", [&] {
        const std::string text = contentOf("/proc/" + std::to_string(program_->process().pid()) + "/status");
        const auto caught = std::stoull(text.substr(text.find("SigCgt:") + 7, 17), nullptr, 16);
        return (caught & (1ULL << (SIGTERM - 1))) == 0;
    });
    program_->process().signal(SIGTERM);
    const auto status = program_->process().waitForExit();
    // Or it has ended in order just before.
    EXPECT_TRUE(status.succeeded() || (status.bySignal && status.number == SIGTERM)) << status.description();
    program_.reset();
}

TEST_F(EndTest, KilledAndStartedAgainItWorksAtOnce)
{
    constexpr int rounds = 5;
    for (int round = 0; round < rounds; ++round) {
        program_->process().kill();
        program_.reset();
        program_.emplace(desktop_);
        program_->openPanel();
        program_->closePanel();
    }
}

TEST_F(EndTest, OfTwoStartsAtOnceOneStays)
{
    constexpr int rounds = 20;
    for (int round = 0; round < rounds; ++round) {
        endProgram();
        const std::vector<std::string> command{Program::executable().string()};
        ChildProcess first(command, desktop_.environment());
        ChildProcess second(command, desktop_.environment());
        desktop_.connection().waitUntil("one of them to end",
                                        [&] { return !first.isRunning() || !second.isRunning(); });
        // How the other one has ended says only how fast this one has started.
        ChildProcess& running = first.isRunning() ? first : second;
        BusClient client(desktop_.busAddress());
        const auto address = Program::busAddress();
        EXPECT_TRUE(client.askObject(address.name, address.path, Deadline()));
        EXPECT_EQ(client.processOf(address.name), running.pid());
        EXPECT_TRUE(running.isRunning());
        EXPECT_TRUE(Program::runOption(desktop_, "--quit").status.succeeded());
        EXPECT_TRUE(running.waitForExit().succeeded()) << running.errorOutput();
        program_.emplace(desktop_);
    }
}

TEST_F(EndTest, OfAHungOneASecondStartSays)
{
    program_->process().signal(SIGSTOP);
    for (const std::vector<std::string>& arguments : {std::vector<std::string>{}, {"--toggle"}, {"--quit"}}) {
        std::vector<std::string> command{Program::executable().string()};
        command.insert(command.end(), arguments.begin(), arguments.end());
        const auto second = runCommand(command, desktop_.environment());
        EXPECT_FALSE(second.status.succeeded());
        EXPECT_THAT(second.errorOutput, HasSubstr("does not answer"));
    }
    program_->process().signal(SIGCONT);
    // The quit that nobody waited for any more is obeyed now.
    expectToEnd();
}

TEST_F(EndTest, NoCoreDumpHasTheHistory)
{
    endProgram();
    ChildProcess shell({"sh", "-c", "ulimit -S -c $(ulimit -H -c); exec " + Program::executable().string()},
                       desktop_.environment());
    const auto address = Program::busAddress();
    desktop_.connection().waitUntil(
        "the program to run", [&] { return BusClient(desktop_.busAddress()).nameHasOwner(address.name); });
    const std::string text = contentOf("/proc/" + std::to_string(shell.pid()) + "/limits");
    std::istringstream line(text.substr(text.find("Max core file size") + 18));
    std::string soft;
    std::string hard;
    line >> soft >> hard;
    // Zero alone would hand it to the collector that a system may have.
    EXPECT_EQ(soft, hard == "0" ? "0" : "1");
    EXPECT_TRUE(Program::runOption(desktop_, "--quit").status.succeeded());
    EXPECT_TRUE(shell.waitForExit().succeeded());
}

/// A session with a manager that programs can join.
class SessionTest : public EndTest {
protected:
    void SetUp() override
    {
        manager_.emplace(desktop_.environment());
        desktop_.addVariable("SESSION_MANAGER", manager_->address());
        EndTest::SetUp();
        manager_->waitForClient();
    }

    std::optional<SessionManager> manager_;
};

TEST_F(SessionTest, ItIsNotStartedAgainByTheManager)
{
    constexpr auto never = "3"; // SmRestartNever.
    EXPECT_EQ(manager_->save(), never);
    // Nothing has ended by that.
    program_->openPanel();
    program_->closePanel();
}

TEST_F(SessionTest, TheEndOfTheSessionEndsItWhateverIsOpen)
{
    copyFromThePanel("handed on");
    program_->openPanel();
    manager_->save();
    manager_->endSession();
    expectToEnd();
    manager_->waitUntilClientIsGone();
    expectHotKeyIsFree();
}

} // namespace

} // namespace tessel::desktop
