// The menu-bar extra in a menu bar of the session bus, as its host finds it there: the icon, the entries, and
// what they do.

#include <algorithm>

#include "SecondaryWindowTest.h"
#include "StatusNotifierHost.h"

namespace tessel::desktop {

namespace {

class StatusItemTest : public SecondaryWindowTest {
protected:
    void SetUp() override
    {
        host_.start();
        SecondaryWindowTest::SetUp();
        host_.awaitItem();
    }

    void choose(const std::string& label)
    {
        host_.openMenu();
        host_.click(label);
    }

    StatusNotifierHost host_{desktop_};
};

TEST_F(StatusItemTest, HasItsTitleItsSymbolAndAMenuForAPlainClick)
{
    EXPECT_EQ(host_.property("Title"), "Clipboard");
    EXPECT_EQ(host_.property("Status"), "Active");
    EXPECT_EQ(host_.property("ItemIsMenu"), "true");
    for (const int size : {16, 22, 24, 32, 44, 48}) {
        const auto pixels = host_.icon(size);
        ASSERT_EQ(pixels.size(), static_cast<std::size_t>(size * size));
        const auto isInked = [](std::uint32_t pixel) { return pixel >> 24U == 255; };
        const auto inked = std::ranges::count_if(pixels, isInked);
        EXPECT_GT(inked, size * size / 8) << size;
        EXPECT_LT(inked, size * size * 7 / 8) << size;
    }
}

TEST_F(StatusItemTest, HasItsRowsInTheirOrder)
{
    using enum StatusMenuEntry::Kind;
    host_.openMenu();
    EXPECT_EQ(host_.menu(), (std::vector<StatusMenuEntry>{{disabled, "Tessel Clipboard"},
                                                          {disabled, "Cmd + Shift + V"},
                                                          {separator, ""},
                                                          {enabled, "Open History"},
                                                          {enabled, "Clear history"},
                                                          {enabled, "Settings"},
                                                          {enabled, "Check for Updates..."},
                                                          {enabled, "About"},
                                                          {separator, ""},
                                                          {enabled, "Quit"}}));
}

TEST_F(StatusItemTest, OpenHistoryPastesIntoTheApplicationInFront)
{
    copyTexts({"chosen from the menu bar"});
    TextClient editor(desktop_, TextClientKind::gtk);
    choose("Open History");
    program_->panel().waitUntilOpen();
    desktop_.keyboard().tap(XKB_KEY_Return);
    expectPastedOnce(editor, "chosen from the menu bar");
}

TEST_F(StatusItemTest, ClearHistoryEmptiesTheListOfAnOpenPanelWithItsPins)
{
    program_->openPanel();
    desktop_.pixels().readQuietScreen();
    const Picture empty = program_->panel().picture();
    program_->closePanel();
    copyTexts({"A"});
    desktop_.pointer().moveTo(restingPlace);
    program_->openPanel();
    desktop_.keyboard().chord({XKB_KEY_Control_L}, XKB_KEY_p);
    program_->waitUntilItHasRead();
    EXPECT_FALSE(program_->panel().picture() == empty);
    choose("Clear history");
    program_->panel().waitUntilItIs(empty);
    program_->closePanel();
    expectEntryCount(0);
}

TEST_F(StatusItemTest, RowsOpenTheirWindows)
{
    choose("Settings");
    settings().waitUntilOpen();
    choose("About");
    about().waitUntilOpen();
    choose("Check for Updates...");
    window("Software Update").waitUntilOpen();
}

TEST_F(StatusItemTest, QuitEndsTheProgramWell)
{
    choose("Quit");
    const auto status = program_->process().waitForExit();
    EXPECT_TRUE(status.succeeded()) << status.description();
    program_.reset();
    host_.awaitNoItem();
}

TEST_F(StatusItemTest, ComesBackToAMenuBarThatIsStartedAnewAndAfterItsOwnProgramIs)
{
    host_.stop();
    host_.start();
    host_.awaitItem();
    restartProgram();
    host_.awaitItem();
    choose("About");
    about().waitUntilOpen();
}

} // namespace

} // namespace tessel::desktop
