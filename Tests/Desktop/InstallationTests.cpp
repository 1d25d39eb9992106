// The installed program: what desktops find of it, and how they start it.

#include <algorithm>
#include <fstream>
#include <sstream>

#include "BusClient.h"
#include "FileContent.h"
#include "SecondaryWindowTest.h"

namespace tessel::desktop {

namespace {

using testing::HasSubstr;

/// The value of a key that occurs first in an entry of a desktop or of a service.
std::string valueOf(const std::string& entry, const std::string& key)
{
    const auto start = entry.find("\n" + key + "=");
    if (start == std::string::npos)
        return {};
    const auto value = start + key.size() + 2;
    return entry.substr(value, entry.find('\n', value) - value);
}

/// Installed for one user of a desktop, below `~/.local`.
class InstallationTest : public testing::Test {
protected:
    InstallationTest()
    {
        const auto installation =
            runCommand({TESSEL_CMAKE, "--install", TESSEL_BUILD_DIRECTORY, "--prefix", prefix_.string()},
                       desktop_.environment());
        if (!installation.status.succeeded())
            throw DesktopFailure("the installation failed: " + installation.errorOutput);
        client_.reloadServices();
    }
    ~InstallationTest() override { EXPECT_TRUE(quit().status.succeeded()); }

    CommandResult quit() { return runCommand({program().string(), "--quit"}, desktop_.environment()); }
    std::filesystem::path program() const { return prefix_ / "bin/tessel-clipboard"; }
    std::filesystem::path entry() const
    {
        return prefix_ / "share/applications/org.tesselclipboard.TesselClipboard.desktop";
    }
    /// The process that has the program's name, which there must be.
    pid_t runningProcess()
    {
        const auto process = client_.processOf(Program::busAddress().name);
        if (!process)
            throw DesktopFailure("the program does not run");
        return *process;
    }
    /// What a launcher has in its surroundings: it passes over entries whose program it does not find.
    Environment launcherEnvironment() const
    {
        Environment environment = desktop_.environment();
        environment["PATH"] = program().parent_path().string() + ":" + environment["PATH"];
        return environment;
    }
    /// As a menu starts a program that the session bus can activate.
    void launch()
    {
        const auto launched = runCommand({"gtk-launch", Program::busAddress().name}, launcherEnvironment());
        EXPECT_TRUE(launched.status.succeeded()) << launched.errorOutput;
        desktop_.connection().waitUntil("the program to be activated",
                                        [this] { return client_.nameHasOwner(Program::busAddress().name); });
    }
    /// As a launcher starts a program that does not look whether the session bus can.
    void runCommandOfEntry()
    {
        // What is started inherits the output, so that only the launcher's end can be awaited, and outlives
        // it outside of its process group.
        ChildProcess launcher({"setsid", "--wait", "gio", "launch", entry().string()}, launcherEnvironment());
        EXPECT_TRUE(launcher.waitForExit().succeeded());
    }
    void act(const std::string& action)
    {
        const auto address = Program::busAddress();
        const auto called =
            runCommand({"gdbus", "call", "--session", "--timeout", "60", "--dest", address.name,
                        "--object-path", address.path, "--method",
                        "org.freedesktop.Application.ActivateAction", action, "@av []", "@a{sv} {}"},
                       desktop_.environment());
        EXPECT_TRUE(called.status.succeeded()) << called.errorOutput;
    }

    Desktop desktop_;
    std::filesystem::path prefix_ = desktop_.directory().path() / "home/.local";
    BusClient client_{desktop_.busAddress()};
};

TEST_F(InstallationTest, TheEntryIsValidAndNamesWhatIsThere)
{
    const auto validation = runCommand({"desktop-file-validate", entry().string()}, desktop_.environment());
    EXPECT_TRUE(validation.status.succeeded());
    EXPECT_EQ(validation.output, "");
    const std::string text = contentOf(entry());
    EXPECT_TRUE(std::filesystem::exists(prefix_ / "bin" / valueOf(text, "Exec")));
    EXPECT_TRUE(std::filesystem::exists(prefix_ / "share/icons/hicolor/scalable/apps" /
                                        (valueOf(text, "Icon") + ".svg")));
    EXPECT_TRUE(
        std::filesystem::exists(prefix_ / "share/metainfo/org.tesselclipboard.TesselClipboard.metainfo.xml"));
    const std::string service =
        contentOf(prefix_ / "share/dbus-1/services/org.tesselclipboard.TesselClipboard.service");
    EXPECT_EQ(valueOf(service, "Exec"), program().string());
    EXPECT_EQ(valueOf(service, "Name"), Program::busAddress().name);
    act("about"); // Something to end.
}

TEST_F(InstallationTest, TheProgramFindsWhatLoadsItsUpdates)
{
    const auto download = prefix_ / "libexec/tessel-clipboard/tessel-clipboard-download";
    EXPECT_FALSE(runCommand({download.string()}, desktop_.environment()).errorOutput.empty());
    // One in its place that says for what it is called.
    const auto called = desktop_.directory().path() / "called";
    std::filesystem::remove(download);
    std::ofstream(download) << "#!/bin/sh\necho \"$1\" >> " << called.string() << "\n";
    std::filesystem::permissions(download, std::filesystem::perms::owner_all);
    const std::string key(43, 'A');
    desktop_.directory().write("xdg/tessel-clipboard/updates.json",
                               R"({"feed": "https://feed.example/", "publicKey": ")" + key + "=\"}");
    Environment environment = desktop_.environment();
    environment["XDG_CONFIG_DIRS"] = (desktop_.directory().path() / "xdg").string();
    ChildProcess running({program().string(), "--check-for-updates"}, environment);
    desktop_.connection().waitUntil("the download to be started", [&] {
        return contentOf(called).find("https://feed.example/\n") != std::string::npos;
    });
    EXPECT_TRUE(quit().status.succeeded());
    EXPECT_TRUE(running.waitForExit().succeeded());
    act("about"); // Something to end.
}

TEST_F(InstallationTest, ALauncherStartsItWithItsHistoryAndReachesItAgain)
{
    launch();
    const pid_t process = runningProcess();
    EXPECT_EQ(std::filesystem::read_symlink("/proc/" + std::to_string(process) + "/exe"), program());
    Panel panel(desktop_, process);
    panel.waitUntilOpen();
    desktop_.keyboard().tap(XKB_KEY_Escape);
    panel.waitUntilClosed();
    launch();
    panel.waitUntilOpen();
    EXPECT_EQ(runningProcess(), process);
}

TEST_F(InstallationTest, ALauncherThatRunsTheCommandStartsItAndReachesItAgain)
{
    runCommandOfEntry();
    desktop_.connection().waitUntil("the program to be started",
                                    [this] { return client_.nameHasOwner(Program::busAddress().name); });
    const pid_t process = runningProcess();
    runCommandOfEntry();
    Panel(desktop_, process).waitUntilOpen();
    EXPECT_EQ(runningProcess(), process);
}

TEST_F(InstallationTest, AnActionOfTheEntryStartsTheProgramToo)
{
    act("settings");
    ProgramWindow(desktop_, runningProcess(), "Settings").waitUntilOpen();
}

/// What a launcher runs that knows nothing of the session bus.
TEST_F(InstallationTest, TheCommandOfEachActionIsUnderstood)
{
    act("about");
    std::string actions = valueOf(contentOf(entry()), "Actions");
    std::istringstream list(actions);
    int count = 0;
    for (std::string action; std::getline(list, action, ';'); ++count) {
        const std::string text = contentOf(entry());
        const auto group = text.find("[Desktop Action " + action + "]");
        ASSERT_NE(group, std::string::npos) << action;
        std::istringstream command(valueOf(text.substr(group), "Exec"));
        std::string name;
        std::string option;
        command >> name >> option;
        if (action == "quit")
            continue; // The end of the test.
        const auto result = runCommand({(prefix_ / "bin" / name).string(), option}, desktop_.environment());
        EXPECT_TRUE(result.status.succeeded()) << action << ": " << result.errorOutput;
    }
    EXPECT_EQ(count, 5);
}

} // namespace

} // namespace tessel::desktop
