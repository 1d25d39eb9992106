// The panel among monitors, docks and scales.

#include <array>
#include <cmath>
#include <map>

#include "Dock.h"
#include "Monitors.h"
#include "ProgramTest.h"
#include "SettingsManager.h"

namespace tessel::desktop {

namespace {

/// The first hot key after a change of the screens may overtake the news of it, which comes to the program on
/// another connection. So the panel is opened until it is where it belongs.
void waitUntilItOpensAt(Program& program, Desktop& desktop, const Frame& expected)
{
    Frame seen;
    try {
        desktop.connection().waitUntil("the panel to open at " + expected.description(), [&] {
            seen = program.openPanel().frame;
            program.closePanel();
            return seen == expected;
        });
    } catch (const DesktopFailure& failure) {
        throw DesktopFailure(std::string(failure.what()) + " (it opened at " + seen.description() + ")");
    }
}

class ScreensTest : public ProgramTest, public testing::WithParamInterface<WindowManagerChoice> {
protected:
    ScreensTest()
        : ProgramTest({.screen = wholeScreen, .windowManager = GetParam()})
    {}

    /// Opens the panel beside the pointer at `place`, expects it inside `visible`, and closes it.
    void expectBeside(Place place, const Frame& visible)
    {
        desktop_.pointer().moveTo(place);
        const auto panel = program_->openPanel();
        const auto expected = Panel::frameBeside(place, 0, visible);
        EXPECT_EQ(panel.frame, expected) << panel.frame.description() << " and not " << expected.description()
                                         << " beside " << place.x << "," << place.y;
        program_->closePanel();
    }

    /// The same after something has changed.
    void awaitBeside(Place place, const Frame& visible)
    {
        desktop_.pointer().moveTo(place);
        waitUntilItOpensAt(*program_, desktop_, Panel::frameBeside(place, 0, visible));
    }

    static constexpr Extent wholeScreen{2000, 1200};
    static constexpr Frame whole{0, 0, 2000, 1200};
    static constexpr Frame left{0, 0, 1000, 1200};
    /// Shorter than the left one: nothing is below it.
    static constexpr Frame right{1000, 0, 1000, 900};

    Monitors monitors_{desktop_};
};

/// Two monitors side by side, of which the right one ends earlier.
class TwoMonitorsTest : public ScreensTest {
protected:
    void SetUp() override
    {
        monitors_.set({{"left", left}, {"right", right}});
        ScreensTest::SetUp();
    }
};

TEST_P(TwoMonitorsTest, ItOpensOnTheMonitorThatThePointerIsOn)
{
    for (const auto& monitor : {left, right}) {
        const int lastX = monitor.x + monitor.width - 1;
        const int lastY = monitor.y + monitor.height - 1;
        expectBeside({monitor.x, monitor.y}, monitor);
        expectBeside({lastX, monitor.y}, monitor);
        expectBeside({monitor.x, lastY}, monitor);
        expectBeside({lastX, lastY}, monitor);
        expectBeside({monitor.x + monitor.width / 2, monitor.y + monitor.height / 2}, monitor);
    }
}

TEST_P(TwoMonitorsTest, TheSharedEdgeIsTheRightMonitors)
{
    expectBeside({999, 400}, left);
    expectBeside({1000, 400}, right);
}

TEST_P(TwoMonitorsTest, OutsideEveryMonitorTheMainOneCounts)
{
    // In the corner below the right monitor; the first monitor is the main one where none is primary.
    expectBeside({1500, 1100}, left);
    expectBeside({1999, 900}, left);
}

TEST_P(TwoMonitorsTest, ThePrimaryMonitorIsTheMainOne)
{
    monitors_.set({{"second", right}, {"first", left}}, Monitors::Primary::first);
    awaitBeside({1500, 1100}, right);
    awaitBeside({999, 400}, left);
    awaitBeside({1000, 400}, right);
}

TEST_P(ScreensTest, MonitorsThatComeGoAndChangeAreFollowed)
{
    awaitBeside({990, 400}, whole);
    monitors_.set({{"left", left}, {"right", right}});
    awaitBeside({990, 400}, left);
    awaitBeside({1990, 890}, right);
    monitors_.set({{"left", left}, {"right", {1000, 0, 800, 700}}});
    awaitBeside({1790, 690}, {1000, 0, 800, 700});
    monitors_.set({{"only", whole}});
    awaitBeside({990, 890}, whole);
}

TEST_P(ScreensTest, AnotherModeIsFollowed)
{
    monitors_.resizeScreen({1280, 1024});
    awaitBeside({1270, 1000}, {0, 0, 1280, 1024});
}

TEST_P(ScreensTest, ItWorksAgainAfterEveryMonitorWasOff)
{
    monitors_.switchOff();
    program_->openPanel();
    program_->closePanel();
    monitors_.switchOn();
    awaitBeside({990, 400}, whole);
}

TEST_P(ScreensTest, ItOpensOnWhatIsLeftWhenItsMonitorWentWhileItWasOpen)
{
    monitors_.set({{"left", left}, {"right", right}});
    awaitBeside({1500, 300}, right);
    program_->openPanel();
    monitors_.set({{"left", left}});
    program_->closePanel();
    awaitBeside({400, 300}, left);
}

const auto openboxAndNone = testing::Values(WindowManagerChoice::openbox, WindowManagerChoice::none);

INSTANTIATE_TEST_SUITE_P(Under, ScreensTest, openboxAndNone, testing::PrintToStringParamName());
INSTANTIATE_TEST_SUITE_P(Under, TwoMonitorsTest, openboxAndNone, testing::PrintToStringParamName());

struct DockCase {
    const char* name;
    ScreenEdge edge;
    Frame dock;
    Frame visible;
    Place pointer;
};

void PrintTo(const DockCase& dock, std::ostream* stream)
{
    *stream << dock.name;
}

const auto everyEdge = testing::Values(
    DockCase{"Left", ScreenEdge::left, {0, 0, 70, 1024}, {70, 0, 1210, 1024}, {3, 400}},
    DockCase{"Right", ScreenEdge::right, {1220, 0, 60, 1024}, {0, 0, 1220, 1024}, {1277, 400}},
    DockCase{"Top", ScreenEdge::top, {0, 0, 1280, 50}, {0, 50, 1280, 974}, {400, 3}},
    DockCase{"Bottom", ScreenEdge::bottom, {0, 984, 1280, 40}, {0, 0, 1280, 984}, {400, 1020}});

std::string nameOf(const testing::TestParamInfo<DockCase>& dock)
{
    return dock.param.name;
}

class DockTest : public ProgramTest, public testing::WithParamInterface<DockCase> {
protected:
    explicit DockTest(DesktopOptions options = {})
        : ProgramTest(options)
    {}
};

/// Window managers have ideas of their own about a dock between two monitors, and about windows beside it.
class UnmanagedDockTest : public DockTest {
protected:
    UnmanagedDockTest()
        : DockTest({.windowManager = WindowManagerChoice::none})
    {}
};

TEST_P(UnmanagedDockTest, OnTheSecondMonitorOnlyItNarrowsOnlyThatOne)
{
    const Frame left{0, 0, 640, 1024};
    const Frame right{640, 0, 640, 900};
    Monitors(desktop_).set({{"left", left}, {"right", right}});
    struct Case {
        Frame dock;
        Frame visible;
    };
    const std::map<ScreenEdge, Case> cases = {
        {ScreenEdge::left, {{640, 0, 60, 900}, {700, 0, 580, 900}}},
        {ScreenEdge::right, {{1220, 0, 60, 900}, {640, 0, 580, 900}}},
        {ScreenEdge::top, {{640, 0, 640, 50}, {640, 50, 640, 850}}},
        {ScreenEdge::bottom, {{640, 860, 640, 40}, {640, 0, 640, 860}}}};
    const auto& [frame, visible] = cases.at(GetParam().edge);
    const Dock dock(desktop_.displayName(), GetParam().edge, frame);
    const std::array places{Place{642, 2}, Place{1278, 2}, Place{642, 898}, Place{1278, 898}};
    for (const auto place : places) {
        desktop_.pointer().moveTo(place);
        waitUntilItOpensAt(*program_, desktop_, Panel::frameBeside(place, 0, visible));
    }
    for (const auto place : {Place{2, 2}, Place{638, 2}, Place{2, 1022}, Place{638, 898}}) {
        desktop_.pointer().moveTo(place);
        EXPECT_EQ(program_->openPanel().frame, Panel::frameBeside(place, 0, left));
        program_->closePanel();
    }
}

TEST_P(DockTest, ItStaysClearOfADockAsLongAsThatIsThere)
{
    const auto& [name, edge, frame, visible, pointer] = GetParam();
    const Frame whole{0, 0, desktop_.screen().width, desktop_.screen().height};
    desktop_.pointer().moveTo(pointer);
    const auto besideDock = Panel::frameBeside(pointer, 0, visible);
    const auto withoutDock = Panel::frameBeside(pointer, 0, whole);
    ASSERT_NE(besideDock, withoutDock);
    waitUntilItOpensAt(*program_, desktop_, withoutDock);
    for (const auto strut : {Dock::Strut::partial, Dock::Strut::whole}) {
        {
            Dock dock(desktop_.displayName(), edge, frame, strut);
            waitUntilItOpensAt(*program_, desktop_, besideDock);
            dock.releaseStrut();
            waitUntilItOpensAt(*program_, desktop_, withoutDock);
            dock.reserve(frame);
            waitUntilItOpensAt(*program_, desktop_, besideDock);
        }
        waitUntilItOpensAt(*program_, desktop_, withoutDock);
    }
}

INSTANTIATE_TEST_SUITE_P(At, DockTest, everyEdge, nameOf);
INSTANTIATE_TEST_SUITE_P(At, UnmanagedDockTest, everyEdge, nameOf);

struct ScaleCase {
    const char* name;
    double scale;
    ScaleSource source;
};

void PrintTo(const ScaleCase& scale, std::ostream* stream)
{
    *stream << scale.name;
}

std::string nameOfScale(const testing::TestParamInfo<ScaleCase>& scale)
{
    return scale.param.name;
}

/// Do the frames agree but for half a point at each edge, which is what rounding to whole points may cost?
testing::AssertionResult nearlyEqual(const Frame& frame, const Frame& expected, double scale)
{
    const int tolerance = static_cast<int>(std::ceil(scale / 2));
    const auto isNear = [tolerance](int one, int other) { return std::abs(one - other) <= tolerance; };
    if (isNear(frame.x, expected.x) && isNear(frame.y, expected.y) && isNear(frame.width, expected.width) &&
        isNear(frame.height, expected.height))
        return testing::AssertionSuccess();
    return testing::AssertionFailure() << frame.description() << " and not " << expected.description();
}

class ScaleTest : public ProgramTest, public testing::WithParamInterface<ScaleCase> {
protected:
    ScaleTest()
        : ProgramTest({.screen = {2400, 1200}, .scale = GetParam().scale, .scaleSource = GetParam().source})
    {}

    testing::AssertionResult opensBeside(Place place, const Frame& visible)
    {
        desktop_.pointer().moveTo(place);
        const auto frame = program_->openPanel().frame;
        program_->closePanel();
        const double scale = GetParam().scale;
        return nearlyEqual(frame, Panel::frameBeside(place, 0, visible, scale), scale);
    }
};

TEST_P(ScaleTest, ItsSizeItsPlaceAndTheEdgesAreScaled)
{
    const Frame whole{0, 0, desktop_.screen().width, desktop_.screen().height};
    for (const Place place :
         {Place{100, 100}, Place{333, 217}, Place{2399, 500}, Place{300, 1199}, Place{0, 0}})
        EXPECT_TRUE(opensBeside(place, whole)) << place.x << "," << place.y;
}

TEST_P(ScaleTest, TheStrutsOfDocksAreScaled)
{
    const Dock bottom(desktop_.displayName(), ScreenEdge::bottom, {0, 1150, 2400, 50});
    const Dock right(desktop_.displayName(), ScreenEdge::right, {2320, 0, 80, 1150});
    const Frame visible{0, 0, 2320, 1150};
    desktop_.connection().waitUntil("the panel to stay clear of the docks", [&] {
        return bool(opensBeside({2390, 1170}, visible));
    });
    EXPECT_TRUE(opensBeside({100, 1170}, visible));
    EXPECT_TRUE(opensBeside({2390, 100}, visible));
}

TEST_P(ScaleTest, OnTwoMonitorsItOpensOnTheOneThatThePointerIsOn)
{
    const Frame left{0, 0, 1200, 1200};
    const Frame right{1200, 0, 1200, 900};
    Monitors(desktop_).set({{"left", left}, {"right", right}});
    // The right one ends earlier, which the whole screen does not.
    desktop_.connection().waitUntil("the panel to stay on the right monitor", [&] {
        return bool(opensBeside({2399, 899}, right));
    });
    for (const auto& monitor : {left, right}) {
        const int lastX = monitor.x + monitor.width - 1;
        const int lastY = monitor.y + monitor.height - 1;
        for (const Place place : {Place{monitor.x, monitor.y}, Place{lastX, monitor.y},
                                  Place{monitor.x, lastY}, Place{lastX, lastY}})
            EXPECT_TRUE(opensBeside(place, monitor)) << place.x << "," << place.y;
    }
}

class ChangingScaleTest : public ProgramTest {
protected:
    void SetUp() override
    {
        settings_.setResolution(96);
        ProgramTest::SetUp();
    }

    SettingsManager settings_{desktop_.displayName()};
};

TEST_F(ChangingScaleTest, AScaleThatChangesWhileTheProgramRunsIsFollowed)
{
    constexpr Place place{100, 100};
    desktop_.pointer().moveTo(place);
    waitUntilItOpensAt(*program_, desktop_, Panel::frameBeside(place, 0, desktop_.screen()));
    settings_.setResolution(192);
    const auto condition = isViewableWindowOf(program_->process().pid());
    const Frame expected{place.x + 24, place.y + 24, 2 * Panel::width, 2 * Panel::heightFor(0)};
    desktop_.connection().waitUntil("the panel to open at twice its size", [&] {
        program_->pressHotKey();
        const auto panel = desktop_.windows().waitFor("the panel", condition);
        desktop_.connection().waitUntil("the focus",
                                        [&] { return desktop_.windows().hasFocus(panel.window); });
        desktop_.keyboard().tap(XKB_KEY_Escape);
        desktop_.windows().waitUntilNone("the panel to be gone", condition);
        return panel.frame == expected;
    });
}

INSTANTIATE_TEST_SUITE_P(By, ScaleTest,
                         testing::Values(ScaleCase{"OneAndAQuarter", 1.25, ScaleSource::toolkitVariable},
                                         ScaleCase{"Two", 2, ScaleSource::toolkitVariable},
                                         ScaleCase{"Resolution120", 1.25, ScaleSource::fontResolution},
                                         ScaleCase{"Resolution144", 1.5, ScaleSource::fontResolution},
                                         ScaleCase{"Resolution192", 2, ScaleSource::fontResolution}),
                         nameOfScale);

} // namespace

} // namespace tessel::desktop
