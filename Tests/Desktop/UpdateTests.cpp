// Looking for updates in the running program: with real processes, a real server and a real feed.

#include <filesystem>

#include "AccessibilityBus.h"
#include "FileContent.h"
#include "ScreenReader.h"
#include "SecondaryWindowTest.h"

namespace tessel::desktop {

namespace {

using testing::HasSubstr;

/// Where a test has the server's files, and a stand-in for the program that opens addresses; before the
/// desktop is there.
struct Publisher {
    Publisher()
    {
        const auto opener =
            directory.write("bin/xdg-open", "#!/bin/sh\necho \"$1\" >> " + opened().string() + "\n");
        std::filesystem::permissions(opener, std::filesystem::perms::owner_all);
    }
    Environment variables() const
    {
        const char* path = std::getenv("PATH");
        return {{"XDG_CONFIG_DIRS", (directory.path() / "xdg").string()},
                {"SSL_CERT_FILE", (directory.path() / "authority.pem").string()},
                {"PATH", (directory.path() / "bin").string() + ":" + (path != nullptr ? path : "")}};
    }
    void start(const std::string& manner = "whole")
    {
        server.emplace(std::vector<std::string>{TESSEL_UPDATE_SERVER, directory.path().string(), manner},
                       Environment());
        server->waitForLine("ready");
    }
    void publish(const std::string& version) const
    {
        directory.write(
            "feed.xml",
            "<rss xmlns:sparkle=\"http://www.andymatuschak.org/xml-namespaces/sparkle\"><channel><item>"
            "<sparkle:version>" +
                version +
                "</sparkle:version><link>https://tessel-clipboard.example/get</link>"
                "<description>What is new</description></item></channel></rss>");
    }
    std::filesystem::path opened() const { return directory.path() / "opened"; }

    TemporaryDirectory directory;
    std::optional<ChildProcess> server;
};

class UpdateTest : public Publisher, public SecondaryWindowTest {
protected:
    /// See AccessibilityTest.
    UpdateTest()
        : SecondaryWindowTest({.variables = variables(), .leakCheck = LeakCheck::off})
    {}

    void SetUp() override { bus_.emplace(desktop_, AccessibilityBus::Status::enabled); }
    void TearDown() override
    {
        reader_.reset();
        SecondaryWindowTest::TearDown();
    }

    void launch() { SecondaryWindowTest::SetUp(); }
    ProgramWindow updates() { return window("Software Update"); }
    void checkForUpdates()
    {
        EXPECT_TRUE(Program::runOption(desktop_, "--check-for-updates").status.succeeded());
        updates().waitUntilOpen();
    }
    AccessibleNode waitForText(const std::string& text) { return reader().waitForNode("label", text); }
    ScreenReader& reader()
    {
        if (!reader_)
            reader_.emplace(desktop_, program_->process().pid());
        return *reader_;
    }
    /// What the program remembers, once it contains `text`.
    void waitForState(const std::string& text)
    {
        const auto file = desktop_.directory().path() / "home/.local/state/tessel-clipboard/state.json";
        desktop_.connection().waitUntil("the program to remember " + text,
                                        [&] { return contentOf(file).find(text) != std::string::npos; });
    }

    std::optional<AccessibilityBus> bus_;
    std::optional<ScreenReader> reader_;
};

TEST_F(UpdateTest, WithoutAFeedItSaysThatPackagesBringUpdatesAndGivesTheFocusBack)
{
    launch();
    TextClient editor(desktop_, TextClientKind::gtk);
    checkForUpdates();
    waitForText("Updates come with your system");
    desktop_.keyboard().tap(XKB_KEY_Escape);
    updates().waitUntilClosed();
    desktop_.connection().waitUntil("the editor to have the focus again", [&] {
        return desktop_.windows().hasFocus(editor.window()) && editor.hasFocus();
    });
}

TEST_F(UpdateTest, ItsWindowHasAnIconForTaskBars)
{
    launch();
    checkForUpdates();
    updates().waitForIcon();
}

TEST_F(UpdateTest, ANewVersionsPageIsOpenedByReturn)
{
    publish("99.0");
    start();
    launch();
    checkForUpdates();
    waitForText("A new version of Tessel Clipboard is available!");
    waitForText("What is new");
    waitForState("updates.lastCheck");
    desktop_.keyboard().tap(XKB_KEY_Return);
    updates().waitUntilClosed();
    desktop_.connection().waitUntil("the page to be opened", [&] {
        return contentOf(opened()) == "https://tessel-clipboard.example/get\n";
    });
}

TEST_F(UpdateTest, ASkippedVersionIsRemembered)
{
    publish("99.0");
    start();
    launch();
    checkForUpdates();
    const auto button = reader().waitForNode("push button", "Skip This Version");
    reader().act(button.path, "Press");
    updates().waitUntilClosed();
    waitForState("\"updates.skippedVersion\": \"99.0\"");
}

TEST_F(UpdateTest, AnInstallationThatSaysHowOftenIsLookedForByItself)
{
    publish("99.0");
    start();
    const auto configuration = directory.path() / "xdg/tessel-clipboard/updates.json";
    std::string content = contentOf(configuration);
    content.insert(content.find('{') + 1, "\"interval\": 86400,");
    directory.write("xdg/tessel-clipboard/updates.json", content);
    launch();
    // The start is left alone: the first look is taken a minute later.
    desktop_.connection().waitUntil(
        "the new version to be shown", [&] { return updates().find().has_value(); }, Deadline(3min));
    waitForText("A new version of Tessel Clipboard is available!");
    waitForState("updates.lastCheck");
}

TEST_F(UpdateTest, AnOldFeedHasNothingNew)
{
    publish("0.0.1");
    start();
    launch();
    checkForUpdates();
    waitForText("You're up to date!");
}

TEST_F(UpdateTest, AServerThatNobodyKnowsIsNotListenedTo)
{
    publish("99.0");
    start();
    // Nobody's word counts any more.
    directory.write("authority.pem", "");
    launch();
    checkForUpdates();
    waitForText("The connection to the update server is not secure");
}

TEST_F(UpdateTest, ALookThatTakesItsTimeIsCancelled)
{
    publish("99.0");
    start("trickling");
    launch();
    checkForUpdates();
    waitForText("Checking for updates…");
    desktop_.keyboard().tap(XKB_KEY_Escape);
    updates().waitUntilClosed();
    // It can look again.
    checkForUpdates();
    desktop_.keyboard().tap(XKB_KEY_Escape);
    updates().waitUntilClosed();
}

TEST_F(UpdateTest, ABrokenConfigurationIsSaidToBeBroken)
{
    directory.write("xdg/tessel-clipboard/updates.json", "{");
    launch();
    checkForUpdates();
    waitForText("Updates are not set up correctly");
}

} // namespace

} // namespace tessel::desktop
