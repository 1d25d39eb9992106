#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <QtCore/QPointer>

#include "ScreenSpace.h"
#include "Support/PanelDesktop.h"
#include "Support/WindowOf.h"

namespace tessel::test {

namespace {

using testing::SizeIs;

/// A window beside the panel: how it is opened, and who holds it.
struct Secondary {
    const char* name;
    void (*show)(AppState&);
    std::unique_ptr<WindowController> AppState::*controller;
};
const std::array chromelessWindows = {
    Secondary{"Settings", [](AppState& state) { state.showSettingsWindow(); }, &AppState::settingsController},
    Secondary{"About", [](AppState& state) { state.showAboutWindow(); }, &AppState::aboutController},
};

class SecondaryWindowTest : public testing::TestWithParam<Secondary> {
protected:
    void show() { GetParam().show(*desktop.state); }
    std::unique_ptr<WindowController>& controller() { return (*desktop.state).*GetParam().controller; }
    QWidget& window() { return windowOf(controller()); }
    std::size_t timesOrderedFront() const { return desktop.nativeWindows.orderedFront.size(); }

    PanelDesktop desktop;
};

INSTANTIATE_TEST_SUITE_P(Of, SecondaryWindowTest, testing::ValuesIn(chromelessWindows),
                         [](const auto& kind) { return kind.param.name; });

} // namespace

TEST_P(SecondaryWindowTest, OpenedTwiceIsOneWindowThatComesToTheFront)
{
    show();
    const QPointer<QWidget> first = &window();
    EXPECT_TRUE(first->isVisible());
    EXPECT_EQ(timesOrderedFront(), 1U);
    show();
    EXPECT_EQ(&window(), first);
    EXPECT_THAT(desktop.nativeWindows.orderedFront,
                testing::Each(NativeWindowHandle{static_cast<std::uintptr_t>(first->winId())}));
    EXPECT_EQ(timesOrderedFront(), 2U);
}

TEST_P(SecondaryWindowTest, IsCentredOnTheScreenInUse)
{
    show();
    // 1440 x 900 points, less a menu bar of 25 at the top and a dock of 70 at the bottom.
    const Rect frame = screenSpace::toSeam(window().geometry());
    EXPECT_NEAR(frame.origin.x + frame.size.width / 2, 720, 1);
    EXPECT_NEAR(frame.origin.y + frame.size.height / 2, 70 + (900 - 25 - 70) / 2.0, 1);
}

TEST_P(SecondaryWindowTest, StaysWhereItsUserHasPutIt)
{
    show();
    window().move(10, 20);
    window().close();
    show();
    EXPECT_EQ(window().pos(), QPoint(10, 20));
}

TEST_P(SecondaryWindowTest, IsANewOneAfterClose)
{
    show();
    const QPointer<QWidget> first = &window();
    button(window(), "Close").click();
    EXPECT_EQ(controller(), nullptr);
    EXPECT_FALSE(first->isVisible());
    show();
    EXPECT_NE(&window(), first);
    runMainLoop();
    EXPECT_TRUE(first.isNull());
}

TEST_P(SecondaryWindowTest, IsTheSameOneAfterItHasBeenClosedOtherwise)
{
    show();
    QWidget* first = &window();
    first->close(); // The window manager asks for it.
    EXPECT_FALSE(first->isVisible());
    ASSERT_NE(controller(), nullptr);
    EXPECT_FALSE(controller()->isWindowVisible());
    show();
    EXPECT_EQ(&window(), first);
    EXPECT_TRUE(first->isVisible());
}

TEST_P(SecondaryWindowTest, IsRestoredWhenItWasMinimised)
{
    show();
    window().showMinimized();
    EXPECT_FALSE(controller()->isWindowVisible());
    show();
    EXPECT_TRUE(controller()->isWindowVisible());
    EXPECT_FALSE(window().isMinimized());
}

TEST_P(SecondaryWindowTest, OutlivesItsApplicationWithoutHarm)
{
    show();
    const QPointer<QWidget> first = &window();
    const QPointer<QAbstractButton> close = &button(window(), "Close");
    desktop.quit();
    ASSERT_FALSE(close.isNull());
    close->click();
    runMainLoop();
    EXPECT_TRUE(first.isNull());
}

} // namespace tessel::test
