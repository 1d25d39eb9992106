// What the program says once on a desktop without a tray.

#include "FileContent.h"
#include "SecondaryWindowTest.h"
#include "SystemTray.h"

namespace tessel::desktop {

namespace {

/// A first start; there is no tray here.
class TrayNoticeTest : public SecondaryWindowTest {
protected:
    TrayNoticeTest() { std::filesystem::remove_all(stateDirectory()); }

    std::filesystem::path stateDirectory() const
    {
        return desktop_.directory().path() / "home/.local/state/tessel-clipboard";
    }
    void waitForNotice()
    {
        desktop_.connection().waitUntil("the notice", [this] { return notice().isOpen(); });
    }
    ProgramWindow notice() { return window("Tessel Clipboard is running"); }
};

TEST_F(TrayNoticeTest, ItComesWithoutTakingTheFocusAndNeverAgain)
{
    TextClient editor(desktop_, TextClientKind::gtk);
    editor.activate();
    waitForNotice();
    desktop_.pixels().readQuietScreen();
    EXPECT_TRUE(editor.hasFocus());
    desktop_.keyboard().type("still here");
    editor.waitForText("still here");
    endProgram();
    EXPECT_THAT(contentOf(stateDirectory() / "state.json"), testing::HasSubstr("trayNoticeShown"));
}

TEST_F(TrayNoticeTest, ItGoesWhenATrayComesAfterAll)
{
    waitForNotice();
    SystemTray tray(desktop_.displayName(), {});
    tray.awaitIcon();
    notice().waitUntilClosed();
}

TEST_F(TrayNoticeTest, ItHasAnIconForTaskBars)
{
    notice().waitForIcon();
}

TEST_F(TrayNoticeTest, AStateFileThatCannotBeWrittenOrReadIsNoHindrance)
{
    endProgram();
    std::filesystem::remove_all(stateDirectory());
    std::filesystem::create_directories(stateDirectory() / "state.json");
    program_.emplace(desktop_);
    waitForNotice();
    program_->openPanel();
    program_->closePanel();
}

} // namespace

} // namespace tessel::desktop
