#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <QtCore/QPointer>
#include <QtGui/QGuiApplication>
#include <QtGui/QScreen>
#include <QtGui/QWindow>

#include "Panel/HistoryPanelDescription.h"
#include "Panel/PanelFactory.h"
#include "Panel/VisualEffectBlurView.h"
#include "ScreenSpace.h"
#include "Support/PanelDesktop.h"

namespace tessel::test {

namespace {

using testing::ElementsAre;

QRegion regionOf(const PixelRegion& rectangles)
{
    QRegion region;
    for (const PixelRectangle& rectangle : rectangles)
        region += QRect(rectangle.x, rectangle.y, rectangle.width, rectangle.height);
    return region;
}

} // namespace

TEST(PanelWindow, CanHaveTheFocusAndIsNeverTheMainWindow)
{
    const ClipboardPanelWindow window;
    EXPECT_TRUE(window.canBecomeKey());
    EXPECT_FALSE(window.canBecomeMain());
}

TEST(PanelWindow, IsPreparedOnceWithTheTraitsOfItsDescription)
{
    PanelDesktop desktop;
    desktop.openPanel();
    desktop.application->setActive(false);
    desktop.openPanel();
    ASSERT_EQ(desktop.nativeWindows.prepared.size(), 1U);
    const auto& [window, traits] = desktop.nativeWindows.prepared.front();
    EXPECT_EQ(window, NativeWindowHandle{static_cast<std::uintptr_t>(desktop.window().winId())});
    EXPECT_TRUE(traits.floatsAboveOthers);
    EXPECT_TRUE(traits.joinsAllSpaces);
    EXPECT_TRUE(traits.overFullScreen);
    EXPECT_FALSE(traits.hasShadow);
    EXPECT_FALSE(traits.becomesMain);
    EXPECT_THAT(desktop.nativeWindows.madeKey, ElementsAre(window, window));
}

TEST(PanelWindow, AppliesTheStepsInOrder)
{
    PanelDesktop desktop;
    PanelDescription description = panelDescription();
    description.configuration.push_back(PanelStep::HasShadow{true});
    description.configuration.push_back(PanelStep::Level{0});
    const auto make = panelFactory(desktop.nativeWindows, *desktop.application);
    const auto controller = make(*desktop.state, description);
    EXPECT_TRUE(desktop.nativeWindows.prepared.back().traits.hasShadow);
    EXPECT_FALSE(desktop.nativeWindows.prepared.back().traits.floatsAboveOthers);
}

TEST(PanelWindow, IsSizedAndPlacedBeforeItIsShown)
{
    PanelDesktop desktop;
    desktop.openPanel();
    const Rect frame = desktop.controller().frame();
    EXPECT_EQ(frame.size, (Size{460, 220}));
    EXPECT_EQ(frame.origin, (Point{412, 600 - 220 - 12}));
    EXPECT_EQ(screenSpace::toSeam(desktop.window().geometry()), frame);
}

TEST(PanelWindow, GrowsWithTheHistoryWhileItIsOpen)
{
    PanelDesktop desktop;
    desktop.copyAll({"A", "B"});
    desktop.openPanel();
    const QRect before = desktop.window().geometry();
    ASSERT_EQ(before.height(), 262);
    desktop.copy("C");
    EXPECT_EQ(desktop.controller().frame().size.height, 334); // It is what has been asked for,
    EXPECT_EQ(desktop.window().geometry(), before);           // and happens in one step.
    runMainLoop();
    EXPECT_EQ(screenSpace::toSeam(desktop.window().geometry()), desktop.controller().frame());
    EXPECT_EQ(desktop.controller().frame().maxY(), 588);
    EXPECT_EQ(desktop.view().size(), desktop.window().size());
}

TEST(PanelWindow, TakesANewGeometryOnlyOnceItIsOnScreen)
{
    PanelDesktop desktop;
    desktop.copy("A");
    desktop.state->showPanel();
    const QRect before = desktop.window().geometry();
    ASSERT_FALSE(desktop.window().windowHandle()->isExposed());
    desktop.copyAll({"B", "C"});
    QCoreApplication::sendPostedEvents(&desktop.controller());
    EXPECT_EQ(desktop.window().geometry(), before);
    ASSERT_TRUE(waitUntil([&] { return desktop.window().windowHandle()->isExposed(); }));
    runMainLoop();
    EXPECT_EQ(desktop.window().height(), 334);
}

TEST(PanelWindow, IsHiddenWhileTheApplicationIsInactive)
{
    PanelDesktop desktop;
    desktop.openPanel();
    desktop.application->setActive(false);
    ASSERT_TRUE(desktop.state->panelController);
    EXPECT_TRUE(desktop.controller().hasWindow());
    EXPECT_FALSE(desktop.controller().isWindowVisible());
    desktop.application->setActive(true);
    EXPECT_FALSE(desktop.controller().isWindowVisible());
}

TEST(PanelWindow, IsShownAgainWithoutBeingRebuilt)
{
    PanelDesktop desktop;
    desktop.copyAll({"A", "B"});
    desktop.openPanel();
    desktop.press(Qt::Key_Down);
    const QPointer<ClipboardPanelWindow> window = &desktop.window();
    desktop.application->setActive(false);
    desktop.copy("C");
    desktop.openPanel();
    EXPECT_EQ(window, &desktop.window());
    EXPECT_EQ(desktop.window().height(), 334);
    EXPECT_EQ(desktop.selectedText(), "A");
    EXPECT_EQ(desktop.list().items().size(), 3U);
}

TEST(PanelWindow, LosesItsHoverWhenItIsHidden)
{
    PanelDesktop desktop;
    desktop.copy("A");
    desktop.openPanel();
    desktop.movePointer(desktop.rowCenter("A"));
    ASSERT_TRUE(desktop.view().hoveredItemID());
    desktop.application->setActive(false);
    EXPECT_FALSE(desktop.view().hoveredItemID());
}

TEST(PanelWindow, IsDeletedATurnAfterItsControllerIsDestroyedInAHandler)
{
    PanelDesktop desktop;
    desktop.openPanel();
    const QPointer<ClipboardPanelWindow> window = &desktop.window();
    desktop.clickButton("Close");
    EXPECT_FALSE(desktop.state->panelController);
    ASSERT_TRUE(window);
    EXPECT_FALSE(window->isVisible());
    runMainLoop();
    EXPECT_FALSE(window);
}

TEST(PanelWindow, DropsAGeometryThatWaitsWhenItIsDestroyed)
{
    PanelDesktop desktop;
    desktop.openPanel();
    desktop.copyAll({"A", "B", "C"});
    closeAndDrop(desktop.state->panelController);
    runMainLoop();
    EXPECT_FALSE(desktop.state->panelController);
}

TEST(PanelWindow, ClosesLikeAnyOtherWayWhenTheWindowManagerAsks)
{
    PanelDesktop desktop;
    desktop.openPanel();
    desktop.window().QWidget::close();
    EXPECT_FALSE(desktop.state->panelController);
}

TEST(PanelWindow, HasItsCornersCutWhereNothingShinesThrough)
{
    PanelDesktop desktop;
    desktop.openPanel();
    EXPECT_TRUE(desktop.nativeWindows.shape.empty());
    desktop.application->setActive(false);

    desktop.nativeWindows.blends = false;
    desktop.openPanel();
    const QRegion shape = regionOf(desktop.nativeWindows.shape);
    EXPECT_EQ(shape.boundingRect(), desktop.window().rect());
    EXPECT_FALSE(shape.contains(QPoint(1, 1)));
    EXPECT_FALSE(shape.contains(QPoint(458, 218)));
    EXPECT_TRUE(shape.contains(QPoint(5, 5)));
    EXPECT_TRUE(shape.contains(QPoint(0, 110)));
    desktop.copyAll({"A", "B"});
    runMainLoop();
    desktop.application->setActive(true);
    EXPECT_EQ(regionOf(desktop.nativeWindows.shape).boundingRect(), desktop.window().rect());
    desktop.application->setActive(false);

    desktop.nativeWindows.blends = true;
    desktop.openPanel();
    EXPECT_TRUE(desktop.nativeWindows.shape.empty());
}

TEST(ScreenSpace, TurnsTheVerticalAxisRound)
{
    const QRect screen = QGuiApplication::primaryScreen()->geometry();
    const Rect rectangle = {{10, 20}, {300, 40}};
    const QRect converted = screenSpace::toToolkit(rectangle);
    EXPECT_EQ(converted, QRect(screen.left() + 10, screen.top() + screen.height() - 60, 300, 40));
    EXPECT_EQ(screenSpace::toSeam(converted), rectangle);
}

TEST(VisualEffectBlurView, SetsAllPropertiesAgainOnUpdate)
{
    QWidget parent;
    using enum VisualEffectBlendingMode;
    VisualEffectView& view =
        *VisualEffectBlurView{VisualEffectMaterial::hudWindow, behindWindow}.makeView(&parent);
    EXPECT_EQ(view.material(), VisualEffectMaterial::hudWindow);
    EXPECT_EQ(view.blendingMode(), behindWindow);
    EXPECT_EQ(view.state(), VisualEffectState::active);
    view.setState(VisualEffectState::inactive);
    VisualEffectBlurView{VisualEffectMaterial::windowBackground, withinWindow}.updateView(view);
    EXPECT_EQ(view.material(), VisualEffectMaterial::windowBackground);
    EXPECT_EQ(view.blendingMode(), withinWindow);
    EXPECT_EQ(view.state(), VisualEffectState::active);
}

} // namespace tessel::test
