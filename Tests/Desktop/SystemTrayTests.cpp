// The menu-bar extra in a system tray of X11, as a user finds it there: the icon, its menu, and what the rows
// do.

#include <algorithm>
#include <map>
#include <optional>

#include "BusClient.h"
#include "SecondaryWindowTest.h"
#include "StatusNotifierHost.h"
#include "SystemTray.h"

namespace tessel::desktop {

namespace {

class SystemTrayTest : public SecondaryWindowTest {
protected:
    explicit SystemTrayTest(DesktopOptions options = {})
        : SecondaryWindowTest(std::move(options))
    {}

    void SetUp() override
    {
        SecondaryWindowTest::SetUp();
        startTray();
    }
    void startTray(const SystemTray::Look& look = {})
    {
        tray_.emplace(desktop_.displayName(), look);
        tray_->awaitIcon();
    }

    Place iconPlace()
    {
        const Frame frame = tray_->iconFrame();
        return {frame.x + frame.width / 2, frame.y + frame.height / 2};
    }
    /// The program's menu, which is no window of a window manager.
    std::optional<WindowFacts> menu()
    {
        const auto isOfProgram = isViewableWindowOf(program_->process().pid());
        return desktop_.windows().find([&](const WindowFacts& window) {
            return isOfProgram(window) && isOverrideRedirect(window.window);
        });
    }
    bool isOverrideRedirect(xcb_window_t window)
    {
        auto* connection = desktop_.connection().get();
        const auto attributes = own(xcb_get_window_attributes_reply(
            connection, xcb_get_window_attributes(connection, window), nullptr));
        return attributes && attributes->override_redirect != 0;
    }
    /// Clicks the icon, and waits until keys are the menu's.
    WindowFacts openMenu(PointerButton button = PointerButton::left)
    {
        desktop_.pointer().moveTo(iconPlace());
        desktop_.pointer().click(button);
        std::optional<WindowFacts> facts;
        desktop_.connection().waitUntil("the menu with the keyboard", [&] {
            facts = menu();
            return facts && desktop_.keyboard().isGrabbed();
        });
        return facts.value();
    }
    void waitUntilMenuIsClosed()
    {
        desktop_.connection().waitUntil("the menu to be closed",
                                        [&] { return !menu() && !desktop_.keyboard().isGrabbed(); });
    }
    /// Chooses the row that is `row` rows below the first that can be chosen.
    void choose(int row)
    {
        openMenu();
        for (int press = 0; press <= row; ++press)
            desktop_.keyboard().tap(XKB_KEY_Down);
        desktop_.keyboard().tap(XKB_KEY_Return);
    }
    enum class Ink { dark, bright };
    /// Waits for an icon that lies on the panel without a seam, most of whose symbol is this bright. The edge
    /// of the symbol has the opposite colour.
    void waitForIcon(const Colour& panel, Ink ink)
    {
        constexpr int darkest = 80;
        constexpr int brightest = 175;
        desktop_.connection().waitUntil("an icon that belongs on its panel", [&] {
            const Picture icon = desktop_.pixels().read(tray_->iconFrame());
            const int green = inkOf(icon)[1];
            return icon.at(0, 0) == panel && (ink == Ink::dark ? green < darkest : green > brightest);
        });
    }
    /// The colour of most of the pixels that do not look like the corner, if there are any.
    static Colour inkOf(const Picture& icon)
    {
        std::map<Colour, int> counts;
        for (const Colour& colour : icon.pixels)
            ++counts[colour];
        counts[icon.at(0, 0)] = 0;
        return std::ranges::max_element(counts, {}, [](const auto& entry) { return entry.second; })->first;
    }

    static constexpr int openHistory = 0;
    static constexpr int clearHistory = 1;
    static constexpr int openSettingsWindow = 2;
    static constexpr int openAboutWindow = 4;
    static constexpr int quit = 5;
    static constexpr Colour white{235, 235, 235};
    static constexpr Colour black{30, 30, 30};

    std::optional<SystemTray> tray_;
};

TEST_F(SystemTrayTest, AnIconComesToATrayThatComesLaterAndToEachAfterIt)
{
    EXPECT_EQ(tray_->iconTitle(), "Clipboard");
    tray_.reset();
    startTray();
    EXPECT_EQ(tray_->requestCount(), 1);
    openMenu();
}

TEST_F(SystemTrayTest, AnIconComesToATrayThatWasThereBefore)
{
    restartProgram();
    tray_->awaitIcon();
    openMenu();
}

TEST_F(SystemTrayTest, APressOfTheLeftButtonOpensTheMenuAndTheNextOneClosesIt)
{
    const WindowFacts facts = openMenu();
    EXPECT_GE(facts.frame.width, 240);
    desktop_.pointer().click();
    waitUntilMenuIsClosed();
    program_->waitUntilItHasRead();
    EXPECT_FALSE(menu());
}

TEST_F(SystemTrayTest, APressOfTheRightButtonOpensTheMenuToo)
{
    openMenu(PointerButton::right);
    desktop_.keyboard().tap(XKB_KEY_Escape);
    waitUntilMenuIsClosed();
}

TEST_F(SystemTrayTest, AClickElsewhereClosesTheMenu)
{
    openMenu();
    desktop_.pointer().moveTo({900, 900});
    desktop_.pointer().click();
    waitUntilMenuIsClosed();
}

TEST_F(SystemTrayTest, OpenHistoryPastesIntoTheApplicationInFrontBeforeTheClick)
{
    copyTexts({"chosen from the tray"});
    TextClient editor(desktop_, TextClientKind::gtk);
    choose(openHistory);
    program_->panel().waitUntilOpen();
    desktop_.keyboard().tap(XKB_KEY_Return);
    expectPastedOnce(editor, "chosen from the tray");
}

TEST_F(SystemTrayTest, ClearHistoryEmptiesTheListOfAnOpenPanelWithItsPins)
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
    choose(clearHistory);
    waitUntilMenuIsClosed();
    program_->panel().waitUntilItIs(empty);
    program_->closePanel();
    expectEntryCount(0);
}

TEST_F(SystemTrayTest, RowsOpenTheSettingsAndTheAboutWindow)
{
    choose(openSettingsWindow);
    settings().waitUntilOpen();
    choose(openAboutWindow);
    about().waitUntilOpen();
}

TEST_F(SystemTrayTest, QuitEndsTheProgramWell)
{
    choose(quit);
    const auto status = program_->process().waitForExit();
    EXPECT_TRUE(status.succeeded()) << status.description();
    program_.reset();
    tray_->awaitNoIcon();
}

TEST_F(SystemTrayTest, TheIconGoesWhenAMenuBarOfTheSessionBusShowsItAndReturnsAfterIt)
{
    StatusNotifierHost host(desktop_);
    host.start();
    host.awaitItem();
    tray_->awaitNoIcon();
    host.stop();
    tray_->awaitIcon();
}

TEST_F(SystemTrayTest, NoIconComesWhereAMenuBarOfTheSessionBusShowsIt)
{
    endProgram();
    tray_.emplace(desktop_.displayName());
    StatusNotifierHost host(desktop_);
    host.start();
    program_.emplace(desktop_);
    host.awaitItem();
    tray_->awaitNoIcon();
}

TEST_F(SystemTrayTest, AMenuBarThatNeverAnswersHoldsNothingUp)
{
    endProgram();
    BusClient silent(desktop_.busAddress());
    silent.ownName("org.kde.StatusNotifierWatcher");
    program_.emplace(desktop_);
    tray_.reset();
    startTray();
    openMenu();
    desktop_.keyboard().tap(XKB_KEY_Escape);
    waitUntilMenuIsClosed();
    program_->openPanel();
    program_->closePanel();
}

TEST_F(SystemTrayTest, AnIconWithAnOpacityHasTheSymbolAndNothingBehindIt)
{
    startTray({.icons = white, .wantsOpacity = true});
    const auto isBright = [](std::uint32_t pixel) { return pixel >> 24 == 255 && (pixel & 255) > 175; };
    std::vector<std::uint32_t> pixels;
    desktop_.connection().waitUntil("a symbol as bright as the tray wants it", [&] {
        pixels = tray_->iconPixels();
        return std::ranges::count_if(pixels, isBright) > 50;
    });
    EXPECT_EQ(pixels.front(), 0U);
    EXPECT_EQ(pixels.back(), 0U);
    EXPECT_GT(std::ranges::count(pixels, 0U), 100);
}

class SystemTrayLookTest : public SystemTrayTest, public testing::WithParamInterface<CompositorChoice> {
protected:
    SystemTrayLookTest()
        : SystemTrayTest({.compositor = GetParam()})
    {}
};

TEST_P(SystemTrayLookTest, TheIconIsSeenOnABrightPanelAndOnADarkOne)
{
    waitForIcon(white, Ink::dark);
    startTray({.panel = black});
    waitForIcon(black, Ink::bright);
}

TEST_P(SystemTrayLookTest, TheIconHasTheColourThatTheTrayNames)
{
    // Whatever the panel looks like.
    startTray({.panel = white, .icons = white});
    waitForIcon(white, Ink::bright);
    startTray({.panel = black, .icons = black});
    waitForIcon(black, Ink::dark);
}

TEST_P(SystemTrayLookTest, TheIconFollowsThePanelWhenThePointerComes)
{
    waitForIcon(white, Ink::dark);
    tray_->paintPanel(black);
    desktop_.pointer().moveTo(iconPlace());
    waitForIcon(black, Ink::bright);
}

INSTANTIATE_TEST_SUITE_P(WithAndWithoutACompositor, SystemTrayLookTest,
                         testing::Values(CompositorChoice::none, CompositorChoice::picom),
                         [](const testing::TestParamInfo<CompositorChoice>& choice) {
                             return choice.param == CompositorChoice::none ? "none" : "picom";
                         });

} // namespace

} // namespace tessel::desktop
