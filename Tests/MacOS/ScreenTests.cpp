#include "AppKitScreens.h"
#include "Support/MacOSTest.h"

namespace tessel::test {
namespace {

class ScreenTests : public MacOSTest {
protected:
    AppKitScreens screens;
};

TEST_F(ScreenTests, ListsTheScreensInTheSystemsOrderWithFrameAndVisibleFrame)
{
    expectCall("[NSScreen screens]", Objects{{"first", "second"}});
    expectCall("[first frame]", Numbers{{0, 0, 1440, 900}});
    expectCall("[first visibleFrame]", Numbers{{0, 70, 1440, 805}});
    expectCall("[second frame]", Numbers{{1440, -200, 1000, 800}});
    expectCall("[second visibleFrame]", Numbers{{1440, -200, 1000, 775}});
    const auto listed = screens.screens();
    ASSERT_EQ(listed.size(), 2U);
    EXPECT_EQ(listed[0].frame, (Rect{{0, 0}, {1440, 900}}));
    EXPECT_EQ(listed[0].visibleFrame, (Rect{{0, 70}, {1440, 805}}));
    EXPECT_EQ(listed[1].frame, (Rect{{1440, -200}, {1000, 800}}));
    EXPECT_EQ(listed[1].visibleFrame, (Rect{{1440, -200}, {1000, 775}}));
}

TEST_F(ScreenTests, WithoutScreensTheListIsEmpty)
{
    expectCall("[NSScreen screens]", Objects{});
    EXPECT_TRUE(screens.screens().empty());
}

TEST_F(ScreenTests, KnowsTheMainScreen)
{
    expectCall("[NSScreen mainScreen]", Object{"main"});
    expectCall("[main frame]", Numbers{{0, 0, 1440, 900}});
    expectCall("[main visibleFrame]", Numbers{{0, 70, 1440, 805}});
    const auto main = screens.mainScreen();
    ASSERT_TRUE(main);
    EXPECT_EQ(main->visibleFrame, (Rect{{0, 70}, {1440, 805}}));
}

TEST_F(ScreenTests, ThereMayBeNoMainScreen)
{
    expectCall("[NSScreen mainScreen]", Nil{});
    EXPECT_FALSE(screens.mainScreen());
}

TEST_F(ScreenTests, ThePointerIsWhereTheSystemSaysInTheSameSpace)
{
    expectCall("[NSEvent mouseLocation]", Numbers{{400.5, 600.25}});
    EXPECT_EQ(screens.mouseLocation(), (Point{400.5, 600.25}));
}

} // namespace
} // namespace tessel::test
