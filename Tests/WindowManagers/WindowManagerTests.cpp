// The whole walk under the window managers that people have, and without one.

#include <algorithm>
#include <array>
#include <cstdlib>
#include <filesystem>
#include <sstream>

#include "Dock.h"
#include "Monitors.h"
#include "ProgramTest.h"
#include "ProgramWindow.h"

namespace tessel::desktop {

namespace {

using testing::Contains;
using testing::IsSupersetOf;

/// The value of `_NET_WM_DESKTOP` (EWMH) that means all of them.
const std::vector<std::uint32_t> everyDesktop{0xFFFFFFFF};
/// The value of `_NET_FRAME_EXTENTS` (EWMH) of a window without decoration.
const std::vector<std::uint32_t> noExtents{0, 0, 0, 0};

/// A place that is inside `outer` and, by some distance, outside `cover`.
Place uncoveredPlace(const Frame& outer, const Frame& cover)
{
    constexpr int distance = 10;
    const std::array<Place, 4> corners{
        Place{outer.x + distance, outer.y + distance},
        Place{outer.x + outer.width - distance, outer.y + distance},
        Place{outer.x + distance, outer.y + outer.height - distance},
        Place{outer.x + outer.width - distance, outer.y + outer.height - distance}};
    const auto isCovered = [&](Place place) {
        return place.x >= cover.x - distance && place.x < cover.x + cover.width + distance &&
               place.y >= cover.y - distance && place.y < cover.y + cover.height + distance;
    };
    const auto found = std::find_if_not(corners.begin(), corners.end(), isCovered);
    if (found == corners.end())
        throw DesktopFailure("the window " + outer.description() + " is covered by " + cover.description());
    return *found;
}

class WindowManagerTest : public ProgramTest, public testing::WithParamInterface<WindowManagerChoice> {
protected:
    WindowManagerTest()
        : ProgramTest({.windowManager = GetParam()})
    {}

    static bool hasWindowManager() { return GetParam() != WindowManagerChoice::none; }

    void waitForFocus(TextClient& client)
    {
        // A client learns a little later than the server that it has lost the focus.
        desktop_.connection().waitUntil("the editor to have the focus again", [&] {
            return desktop_.windows().hasFocus(client.window()) && client.hasFocus();
        });
    }

    /// Is `upper` stacked above `lower`?
    bool isAbove(xcb_window_t upper, xcb_window_t lower)
    {
        const auto windows = desktop_.windows().all();
        const auto indexOf = [&](xcb_window_t window) {
            return std::find_if(windows.begin(), windows.end(),
                                [window](const WindowFacts& facts) { return facts.window == window; });
        };
        return indexOf(upper) > indexOf(lower);
    }

    /// Leaves a picture of the screen behind where somebody wants to look at it: in the directory that
    /// `TESSEL_PICTURES` names.
    void keepPicture(const std::string& name)
    {
        const char* directory = std::getenv("TESSEL_PICTURES");
        if (directory == nullptr)
            return;
        std::ostringstream manager;
        manager << GetParam();
        writePng(desktop_.pixels().readQuietScreen(),
                 std::filesystem::path(directory) / (manager.str() + "-" + name + ".png"));
    }

    /// Opens the panel beside the pointer at `place` until it is at its place inside `visible`: the program
    /// may not have heard yet of what has changed.
    void awaitOpeningInside(const Frame& visible, Place place)
    {
        desktop_.pointer().moveTo(place);
        const auto expected = Panel::frameBeside(place, 0, visible);
        desktop_.connection().waitUntil("the panel to open at " + expected.description(), [&] {
            program_->openPanel();
            // A window manager may place it once more after it is on the screen.
            desktop_.pixels().readQuietScreen();
            const bool isThere = program_->panel().find().value().frame == expected;
            program_->closePanel();
            return isThere;
        });
    }

    /// Presses Alt+Tab while the panel is open. Alt stays down until the window manager has seen the keys.
    void switchByKeys()
    {
        desktop_.keyboard().press(XKB_KEY_Alt_L);
        desktop_.keyboard().tap(XKB_KEY_Tab);
        desktop_.connection().waitUntil("the window manager to switch", [&] {
            return !program_->panel().isOpen() || desktop_.keyboard().isGrabbed();
        });
        desktop_.keyboard().release(XKB_KEY_Alt_L);
    }

    /// Clicks into a client's window, beside the panel.
    void clickInto(TextClient& client)
    {
        const auto outer = desktop_.windows().facts(client.window()).value().frame;
        desktop_.pointer().moveTo(uncoveredPlace(outer, program_->panel().find().value().frame));
        desktop_.pointer().click();
    }
};

TEST_P(WindowManagerTest, ThePanelOpensBesideThePointerAboveTheEditorWithTheFocus)
{
    TextClient editor(desktop_, TextClientKind::gtk);
    copyTexts({"A", "B", "C"});
    const auto middle = desktop_.windows().facts(editor.window()).value().frame;
    const auto screen = desktop_.screen();
    // Not at the very edge, from which kwin pushes the pointer back.
    const std::vector<Place> places = {{middle.x + middle.width / 4, middle.y + middle.height / 4},
                                       {300, 200},
                                       {screen.width - 3, screen.height - 3},
                                       {2, 2}};
    for (const auto place : places) {
        desktop_.pointer().moveTo(place);
        editor.activate();
        const auto panel = program_->openPanel();
        const auto expected = Panel::frameBeside(place, 3, screen);
        program_->panel().waitForFrame(expected);
        // And there it stays.
        desktop_.pixels().readQuietScreen();
        const auto settled = program_->panel().find();
        ASSERT_TRUE(settled);
        EXPECT_EQ(settled->frame, expected)
            << settled->frame.description() << " beside " << place.x << "," << place.y;
        EXPECT_TRUE(isAbove(panel.window, editor.window()));
        EXPECT_TRUE(desktop_.windows().hasFocus(panel.window));
        // A client learns a little later than the server that it has lost the focus.
        desktop_.connection().waitUntil("the editor to have lost the focus",
                                        [&] { return !editor.hasFocus(); });
        program_->closePanel();
        waitForFocus(editor);
    }
}

TEST_P(WindowManagerTest, ItLeavesTheOtherWindowsWhereTheyAre)
{
    TextClient first(desktop_, TextClientKind::gtk);
    TextClient second(desktop_, TextClientKind::qt);
    const auto framesNow = [&] {
        return std::array{desktop_.windows().facts(first.window()).value().frame,
                          desktop_.windows().facts(second.window()).value().frame};
    };
    desktop_.pixels().readQuietScreen();
    const auto before = framesNow();
    program_->openPanel();
    desktop_.pixels().readQuietScreen();
    EXPECT_EQ(framesNow(), before);
    program_->closePanel();
    EXPECT_EQ(framesNow(), before);
}

TEST_P(WindowManagerTest, ItSaysWhatItIs)
{
    // The second opening of one window, too.
    TextClient editor(desktop_, TextClientKind::gtk);
    program_->openPanel();
    editor.activate();
    program_->panel().waitUntilClosed();

    const auto panel = program_->openPanel();
    const auto& windows = desktop_.windows();
    EXPECT_EQ(panel.instanceName, "tessel-clipboard");
    EXPECT_EQ(panel.processIdentifier, program_->process().pid());
    EXPECT_THAT(windows.atomNames(panel.window, "_NET_WM_WINDOW_TYPE"),
                Contains("_NET_WM_WINDOW_TYPE_UTILITY"));
    EXPECT_THAT(
        windows.atomNames(panel.window, "_NET_WM_STATE"),
        IsSupersetOf({"_NET_WM_STATE_ABOVE", "_NET_WM_STATE_SKIP_TASKBAR", "_NET_WM_STATE_SKIP_PAGER"}));
    desktop_.connection().waitUntil("the panel to be on every desktop", [&] {
        return desktop_.connection().propertyItems(panel.window, "_NET_WM_DESKTOP") == everyDesktop;
    });
    // Not every window manager says it; the two that do may say it a little later.
    if (GetParam() == WindowManagerChoice::openbox || GetParam() == WindowManagerChoice::xfwm4)
        desktop_.connection().waitUntil("a frame without any extent", [&] {
            return desktop_.connection().propertyItems(panel.window, "_NET_FRAME_EXTENTS") == noExtents;
        });
    program_->closePanel();
}

TEST_P(WindowManagerTest, TheSecondEntryIsPastedOnceIntoTheTextViewThatWasInFront)
{
    TextClient other(desktop_, TextClientKind::qt);
    TextClient target(desktop_, TextClientKind::gtk);
    copyTexts({"A", "B", "C"});
    target.activate();
    choose(1);
    expectPastedOnce(target, "B");
    EXPECT_EQ(other.text(), "");
}

TEST_P(WindowManagerTest, EscapeAndTheHotKeyCloseItAndTheFocusReturns)
{
    TextClient other(desktop_, TextClientKind::gtk);
    TextClient editor(desktop_, TextClientKind::qt);
    program_->openPanel();
    program_->closePanel();
    waitForFocus(editor);
    program_->openPanel();
    program_->pressHotKey();
    program_->panel().waitUntilClosed();
    waitForFocus(editor);
    desktop_.keyboard().type("typed");
    editor.waitForText("typed");
    EXPECT_EQ(other.text(), "");
}

TEST_P(WindowManagerTest, TwoQuickPressesOpenAndClose)
{
    TextClient editor(desktop_, TextClientKind::gtk);
    program_->pressHotKey();
    program_->pressHotKey();
    letTheProgramTick();
    program_->waitUntilItHasRead();
    program_->panel().waitUntilClosed();
    waitForFocus(editor);
    program_->openPanel();
    program_->closePanel();
}

TEST_P(WindowManagerTest, AClickIntoAnotherWindowHidesItAndTheHotKeyShowsItAgain)
{
    TextClient editor(desktop_, TextClientKind::gtk);
    copyTexts({"A", "B"});
    editor.activate();
    program_->openPanel();
    clickInto(editor);
    // Without a window manager it is up to the clicked program to take the focus, and this one does not.
    if (!hasWindowManager())
        editor.activate();
    program_->panel().waitUntilClosed();
    waitForFocus(editor);
    choose(1);
    expectPastedOnce(editor, "A");
}

TEST_P(WindowManagerTest, ACaptureWhileItIsOpenFitsItInPlace)
{
    TextClient editor(desktop_, TextClientKind::gtk);
    program_->openPanel();
    copies_.emplace(desktop_, *program_);
    for (const auto* text : {"A", "B", "C", "D"})
        copies_->copyText(text);
    const auto panel = program_->panel().find();
    ASSERT_TRUE(panel);
    EXPECT_TRUE(desktop_.windows().hasFocus(panel->window));
    EXPECT_TRUE(isAbove(panel->window, editor.window()));
    program_->closePanel();
    waitForFocus(editor);
}

TEST_P(WindowManagerTest, ItOpensWorksAndClosesWithNoOtherWindow)
{
    copyTexts({"A", "B"});
    choose(1);
    letTheProgramTick();
    EXPECT_EQ(ClipboardReader(desktop_.displayName()).readText(), "A");
    EXPECT_FALSE(program_->panel().isOpen());
    TextClient editor(desktop_, TextClientKind::gtk);
    EXPECT_EQ(editor.text(), "");
    choose(0);
    expectPastedOnce(editor, "B");
}

TEST_P(WindowManagerTest, ADragOfItsBackgroundMovesIt)
{
    TextClient editor(desktop_, TextClientKind::gtk);
    const auto before = program_->openPanel();
    // Between the title and the buttons.
    constexpr Place grip{220, 14};
    constexpr int way = 120;
    constexpr int step = 4;
    auto& pointer = desktop_.pointer();
    pointer.moveTo({before.frame.x + grip.x, before.frame.y + grip.y});
    pointer.press();
    desktop_.connection().waitUntil("the panel to follow the pointer", [&] {
        const auto panel = program_->panel().find();
        if (panel && panel->frame.x >= before.frame.x + way)
            return true;
        const auto place = pointer.location();
        pointer.moveTo({place.x + step, place.y + step});
        return false;
    });
    pointer.release();
    const auto panel = program_->panel().waitUntilOpen();
    EXPECT_EQ(panel.window, before.window);
    EXPECT_EQ(panel.frame.width, before.frame.width);
    EXPECT_EQ(panel.frame.height, before.frame.height);
    program_->closePanel();
    waitForFocus(editor);
}

TEST_P(WindowManagerTest, TheArrowsAndReturnPasteWithPictures)
{
    TextClient target(desktop_, TextClientKind::gtk);
    copyTexts({"First text", "Second text", "Third text"});
    target.activate();
    desktop_.pointer().moveTo({300, 200});
    program_->openPanel();
    const auto first = program_->panel().picture();
    keepPicture("1-open");
    desktop_.keyboard().tap(XKB_KEY_Down);
    program_->panel().waitUntilItDiffersFrom(first);
    const auto second = program_->panel().picture();
    desktop_.keyboard().tap(XKB_KEY_Down);
    program_->panel().waitUntilItDiffersFrom(second);
    desktop_.keyboard().tap(XKB_KEY_Up);
    keepPicture("2-second-chosen");
    desktop_.keyboard().tap(XKB_KEY_Return);
    expectPastedOnce(target, "Second text");
    keepPicture("3-pasted");
}

TEST_P(WindowManagerTest, ADoubleClickPastes)
{
    TextClient target(desktop_, TextClientKind::gtk);
    copyTexts({"A", "B", "C"});
    target.activate();
    SelectionWatch clipboard(desktop_.displayName());
    const auto panel = program_->openPanel().frame;
    // In the second of three rows, right of its text.
    desktop_.pointer().moveTo({panel.x + 300, panel.y + 185});
    desktop_.pointer().doubleClick();
    program_->panel().waitUntilClosed();
    clipboard.waitForMoreThan(0);
    expectPastedOnce(target, "B");
}

TEST_P(WindowManagerTest, AnotherApplicationThatIsActivatedByTheKeyboardHidesIt)
{
    // With only one window there is nothing to switch to, some window managers say.
    TextClient other(desktop_, TextClientKind::gtk);
    TextClient editor(desktop_, TextClientKind::gtk);
    program_->openPanel();
    // Not every window manager here has a key for that; a task bar that is used by keys does the same.
    if (WindowManager::switchesByKeys(GetParam()))
        switchByKeys();
    else
        editor.activate();
    program_->panel().waitUntilClosed();
    waitForFocus(editor);
    desktop_.keyboard().type("x");
    editor.waitForText("x");
    // The same panel is shown again.
    program_->openPanel();
    program_->closePanel();
    waitForFocus(editor);
}

TEST_P(WindowManagerTest, ACaptureNearTheBottomEdgeLetsItGrowUpwards)
{
    TextClient editor(desktop_, TextClientKind::gtk);
    const int y = desktop_.screen().height - 40;
    const std::array places{Place{500, y}, Place{490, y}};
    desktop_.pointer().moveTo(places[0]);
    program_->openPanel();
    ClipboardOwner owner(desktop_.displayName());
    std::size_t count = 0;
    for (const auto* text : {"A", "B", "C", "D", "E", "F"}) {
        // To the left and back, so that every capture is seen by the panel's move.
        const auto place = places.at(++count % places.size());
        desktop_.pointer().moveTo(place);
        owner.copyText(text);
        program_->panel().waitForFrame(Panel::frameBeside(place, count, desktop_.screen()));
    }
    keepPicture("4-grown-at-the-bottom");
    program_->closePanel();
    waitForFocus(editor);
}

TEST_P(WindowManagerTest, TheCommandLineOpensItWithTheFocusOverAProgramThatIsTypedInto)
{
    TextClient other(desktop_, TextClientKind::gtk);
    copyTexts({"A", "B"});
    // The program's user did something last before this editor was there.
    TextClient editor(desktop_, TextClientKind::qt);
    editor.activate();
    desktop_.keyboard().type("typed ");
    editor.waitForText("typed ");
    EXPECT_TRUE(Program::runOption(desktop_, "--toggle").status.succeeded());
    program_->panel().waitUntilOpen();
    desktop_.keyboard().tap(XKB_KEY_Return);
    expectPastedOnce(editor, "typed B");
}

TEST_P(WindowManagerTest, ItOpensOverAFullScreenWindow)
{
    if (!hasWindowManager())
        return; // Nobody gives a window the whole screen.
    TextClient editor(desktop_, TextClientKind::gtk);
    copyTexts({"A", "B"});
    editor.activate();
    desktop_.windows().makeFullScreen(editor.window());
    const auto panel = program_->openPanel();
    EXPECT_TRUE(isAbove(panel.window, editor.window()));
    // All of it is seen, from its first row to its last one.
    for (const int y : {panel.frame.y + 2, panel.frame.y + panel.frame.height - 3})
        desktop_.connection().waitUntil("the panel's edges before the editor", [&] {
            return desktop_.pixels().at(panel.frame.x + Panel::width / 2, y) !=
                   desktop_.pixels().at(panel.frame.x - 10, y);
        });
    keepPicture("6-over-a-full-screen-window");
    desktop_.keyboard().tap(XKB_KEY_Return);
    expectPastedOnce(editor, "B");
    // i3 takes the whole screen away from a window when another one gets the focus.
    if (GetParam() == WindowManagerChoice::i3)
        return;
    EXPECT_THAT(desktop_.windows().atomNames(editor.window(), "_NET_WM_STATE"),
                Contains("_NET_WM_STATE_FULLSCREEN"));
}

TEST_P(WindowManagerTest, ItOpensOnTheMonitorUnderThePointer)
{
    const Frame left{0, 0, 640, 1024};
    const Frame right{640, 0, 640, 900};
    Monitors(desktop_).set({{"left", left}, {"right", right}});
    TextClient editor(desktop_, TextClientKind::gtk);
    awaitOpeningInside(right, {1200, 880});
    awaitOpeningInside(left, {630, 300});
    awaitOpeningInside(right, {645, 300});
}

TEST_P(WindowManagerTest, ItStaysClearOfADock)
{
    const Dock dock(desktop_.displayName(), ScreenEdge::bottom, {0, 974, 1280, 50});
    TextClient editor(desktop_, TextClientKind::gtk);
    awaitOpeningInside({0, 0, 1280, 974}, {400, 990});
    desktop_.pointer().moveTo({400, 900});
    program_->openPanel();
    keepPicture("5-above-a-dock");
    program_->closePanel();
}

TEST_P(WindowManagerTest, TheSettingsOpenInTheMiddleAndComeToTheFrontWithTheFocus)
{
    TextClient editor(desktop_, TextClientKind::gtk);
    ProgramWindow settings(desktop_, program_->process().pid(), "Settings");
    const auto [width, height] = desktop_.screen();
    const auto middle = ProgramWindow::centered({420, 520}, {0, 0, width, height});
    // i3 leaves room for a title bar that is not there.
    const int mostOff = GetParam() == WindowManagerChoice::i3 ? 20 : 0;
    for (int times = 0; times < 2; ++times) {
        editor.activate();
        desktop_.keyboard().type("typed");
        desktop_.connection().waitUntil("the editor to have what is typed",
                                        [&] { return editor.text().ends_with("typed"); });
        EXPECT_TRUE(Program::runOption(desktop_, "--settings").status.succeeded());
        const auto window = settings.waitUntilOpen();
        letTheProgramTick();
        const auto frame = settings.find().value().frame;
        EXPECT_NEAR(frame.x, middle.x, mostOff);
        EXPECT_NEAR(frame.y, middle.y, mostOff);
        EXPECT_EQ(frame.width, middle.width);
        EXPECT_EQ(frame.height, middle.height);
        EXPECT_TRUE(isAbove(window.window, editor.window()));
        EXPECT_TRUE(desktop_.windows().hasFocus(window.window));
        EXPECT_EQ(settings.count(), 1U);
    }
    desktop_.keyboard().tap(XKB_KEY_Escape);
    settings.waitUntilClosed();
    waitForFocus(editor);
}

TEST_P(WindowManagerTest, ThePanelOverTheSettingsGivesTheFocusBackToThemAndTheyToTheEditor)
{
    TextClient editor(desktop_, TextClientKind::gtk);
    ProgramWindow settings(desktop_, program_->process().pid(), "Settings");
    EXPECT_TRUE(Program::runOption(desktop_, "--settings").status.succeeded());
    const auto window = settings.waitUntilOpen();
    const auto panel = program_->openPanel();
    EXPECT_TRUE(isAbove(panel.window, window.window));
    program_->closePanel();
    EXPECT_EQ(settings.waitUntilOpen().window, window.window);
    desktop_.keyboard().tap(XKB_KEY_Escape);
    settings.waitUntilClosed();
    waitForFocus(editor);
}

class StartTest : public WindowManagerTest {
protected:
    void SetUp() override {}

    /// Starts the program, presses the hot key as soon as the program has it, and expects an open panel.
    void expectFirstHotKeyOpens()
    {
        ChildProcess process({Program::executable().string()}, desktop_.environment());
        Panel panel(desktop_, process.pid());
        constexpr auto superAndShift = std::uint16_t{XCB_MOD_MASK_4 | XCB_MOD_MASK_SHIFT};
        desktop_.connection().waitUntil("the program to have its hot key", [&] {
            return desktop_.keyboard().isGrabbed(XKB_KEY_v, superAndShift);
        });
        desktop_.keyboard().chord({XKB_KEY_Super_L, XKB_KEY_Shift_L}, XKB_KEY_v);
        panel.waitUntilOpen();
        letTheProgramTick();
        EXPECT_TRUE(panel.isOpen());
        desktop_.keyboard().tap(XKB_KEY_Escape);
        panel.waitUntilClosed();
        EXPECT_TRUE(Program::runOption(desktop_, "--quit").status.succeeded());
        EXPECT_TRUE(process.waitForExit().succeeded());
    }
};

TEST_P(StartTest, TheFirstHotKeyOpensThePanelOverAnEditor)
{
    TextClient editor(desktop_, TextClientKind::gtk);
    expectFirstHotKeyOpens();
    waitForFocus(editor);
}

TEST_P(StartTest, TheFirstHotKeyOpensThePanelOnAnEmptyDesktop)
{
    expectFirstHotKeyOpens();
}

const auto everyChoice =
    testing::Values(WindowManagerChoice::openbox, WindowManagerChoice::xfwm4, WindowManagerChoice::i3,
                    WindowManagerChoice::kwin, WindowManagerChoice::none);

INSTANTIATE_TEST_SUITE_P(Under, StartTest, everyChoice, testing::PrintToStringParamName());

INSTANTIATE_TEST_SUITE_P(Under, WindowManagerTest, everyChoice, testing::PrintToStringParamName());

} // namespace

} // namespace tessel::desktop
