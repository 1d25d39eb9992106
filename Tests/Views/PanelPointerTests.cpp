#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <QtGui/QWheelEvent>
#include <QtTest/QTest>
#include <QtWidgets/QApplication>

#include "Panel/RowContextMenu.h"
#include "Support/PanelDesktop.h"

namespace tessel::test {

namespace {

using testing::ElementsAre;

class PanelPointer : public testing::Test {
protected:
    PanelPointer() { desktop.copyAll({"A", "B", "C"}); }

    void movePointerTo(const QPoint& point) { desktop.movePointer(point); }
    std::optional<UUID> hovered() const { return desktop.view().hoveredItemID(); }

    RowContextMenu& openMenuOn(std::string_view text)
    {
        const QPoint place = desktop.rowCenter(text);
        QContextMenuEvent event(QContextMenuEvent::Mouse, place, desktop.list().mapToGlobal(place));
        QApplication::sendEvent(&desktop.list(), &event);
        return *desktop.view().contextMenu();
    }
    std::vector<std::string> titles(const RowContextMenu& menu) const
    {
        std::vector<std::string> titles;
        for (const QAction* action : menu.actions())
            titles.push_back(action->text().toStdString());
        return titles;
    }
    void choose(RowContextMenu& menu, const char* title)
    {
        for (QAction* action : menu.actions()) {
            if (action->text() == QLatin1String(title))
                QTest::mouseClick(&menu, Qt::LeftButton, {}, menu.actionGeometry(action).center());
        }
        runMainLoop();
    }

    PanelDesktop desktop;
};

void turnWheel(QWidget& widget, int angle)
{
    const QPointF place = widget.rect().center();
    QWheelEvent event(place, widget.mapToGlobal(place), QPoint(), QPoint(0, angle), Qt::NoButton,
                      Qt::NoModifier, Qt::NoScrollPhase, false);
    QApplication::sendEvent(&widget, &event);
}

} // namespace

TEST_F(PanelPointer, ClickSelectsARow)
{
    desktop.openPanel();
    desktop.click("A");
    EXPECT_EQ(desktop.selectedText(), "A");
    EXPECT_TRUE(desktop.controller().isWindowVisible());
    EXPECT_FALSE(desktop.pasteboard->textOnBoard() && *desktop.pasteboard->textOnBoard() == "A");
}

TEST_F(PanelPointer, ClickThatEndsOnAnotherRowSelectsNothing)
{
    desktop.openPanel();
    QTest::mousePress(&desktop.list(), Qt::LeftButton, {}, desktop.rowCenter("A"));
    QTest::mouseRelease(&desktop.list(), Qt::LeftButton, {}, desktop.rowCenter("B"));
    EXPECT_EQ(desktop.selectedText(), "C");
}

TEST_F(PanelPointer, DoubleClickPastesARow)
{
    desktop.openPanel();
    desktop.doubleClick("A");
    EXPECT_EQ(*desktop.pasteboard->textOnBoard(), "A");
    EXPECT_FALSE(desktop.state->panelController);
}

TEST_F(PanelPointer, DoubleClickIsCompleteWithItsLastRelease)
{
    desktop.openPanel();
    ClipboardListView& list = desktop.list();
    const QPoint place = desktop.rowCenter("A");
    QTest::mousePress(&list, Qt::LeftButton, {}, place);
    QTest::mouseRelease(&list, Qt::LeftButton, {}, place);
    EXPECT_EQ(desktop.selectedText(), "A");
    QMouseEvent press(QEvent::MouseButtonDblClick, place, list.mapToGlobal(place), Qt::LeftButton,
                      Qt::LeftButton, {});
    QApplication::sendEvent(&list, &press);
    EXPECT_TRUE(desktop.state->panelController);
    QTest::mouseRelease(&list, Qt::LeftButton, {}, place);
    EXPECT_FALSE(desktop.state->panelController);
}

TEST_F(PanelPointer, HoverFollowsThePointerFromRowToRow)
{
    desktop.openPanel();
    movePointerTo(desktop.rowCenter("C"));
    EXPECT_EQ(hovered(), desktop.item("C").id);
    movePointerTo(desktop.rowCenter("B"));
    EXPECT_EQ(hovered(), desktop.item("B").id);
    const QRect row = desktop.list().rowRectangle(desktop.item("B").id).value();
    movePointerTo({row.center().x(), row.bottom() + 5});
    EXPECT_FALSE(hovered());
}

TEST_F(PanelPointer, WholePaddedRowIsHit)
{
    desktop.openPanel();
    const QRect row = desktop.list().rowRectangle(desktop.item("B").id).value();
    for (const QPoint& corner : {row.topLeft(), row.topRight(), row.bottomLeft(), row.bottomRight()}) {
        movePointerTo(corner);
        EXPECT_EQ(hovered(), desktop.item("B").id) << corner.x() << ' ' << corner.y();
    }
    movePointerTo(row.topLeft() - QPoint(1, 0));
    EXPECT_FALSE(hovered());
    movePointerTo(row.topLeft() - QPoint(0, 1));
    EXPECT_FALSE(hovered());
}

TEST_F(PanelPointer, LeavingBeforeEnteringKeepsTheNewHover)
{
    desktop.openPanel();
    ClipboardPanelView& view = desktop.view();
    view.pointerEntered(desktop.item("A").id);
    view.pointerLeft(desktop.item("A").id);
    view.pointerEntered(desktop.item("B").id);
    EXPECT_EQ(hovered(), desktop.item("B").id);
}

TEST_F(PanelPointer, LeavingAfterEnteringEndsAllHover)
{
    desktop.openPanel();
    ClipboardPanelView& view = desktop.view();
    view.pointerEntered(desktop.item("A").id);
    view.pointerEntered(desktop.item("B").id);
    view.pointerLeft(desktop.item("A").id);
    EXPECT_FALSE(hovered());
}

TEST_F(PanelPointer, HoverEndsWithThePointersLeave)
{
    desktop.openPanel();
    movePointerTo(desktop.rowCenter("C"));
    QEvent leave(QEvent::Leave);
    QApplication::sendEvent(&desktop.list(), &leave);
    EXPECT_FALSE(hovered());
}

TEST_F(PanelPointer, HoverDoesNotChangeTheSelection)
{
    desktop.openPanel();
    movePointerTo(desktop.rowCenter("A"));
    EXPECT_EQ(desktop.selectedText(), "C");
}

TEST_F(PanelPointer, MenuOffersCopyPinAndDelete)
{
    desktop.pin("B");
    desktop.openPanel();
    EXPECT_THAT(titles(openMenuOn("A")), ElementsAre("Copy", "Pin", "Delete"));
    EXPECT_THAT(titles(openMenuOn("B")), ElementsAre("Copy", "Unpin", "Delete"));
}

TEST_F(PanelPointer, MenuCopiesWithoutClosingThePanel)
{
    desktop.openPanel();
    choose(openMenuOn("A"), "Copy");
    EXPECT_EQ(*desktop.pasteboard->textOnBoard(), "A");
    EXPECT_TRUE(desktop.controller().isWindowVisible());
    EXPECT_EQ(desktop.selectedText(), "C");
    EXPECT_FALSE(desktop.view().contextMenu());
}

TEST_F(PanelPointer, MenuPinsAndUnpins)
{
    desktop.openPanel();
    choose(openMenuOn("A"), "Pin");
    EXPECT_TRUE(desktop.state->pinnedItemIDs->contains(desktop.item("A").id));
    choose(openMenuOn("A"), "Unpin");
    EXPECT_TRUE(desktop.state->pinnedItemIDs->empty());
}

TEST_F(PanelPointer, MenuDeletes)
{
    desktop.openPanel();
    choose(openMenuOn("B"), "Delete");
    EXPECT_THAT(desktop.texts(), ElementsAre("C", "A"));
}

TEST_F(PanelPointer, MenuOfAnEntryThatIsGoneDoesNothing)
{
    desktop.openPanel();
    RowContextMenu& menu = openMenuOn("B");
    desktop.state->removeItem(desktop.item("B"));
    choose(menu, "Pin");
    EXPECT_TRUE(desktop.state->pinnedItemIDs->empty());
    EXPECT_THAT(desktop.texts(), ElementsAre("C", "A"));
}

TEST_F(PanelPointer, MenuCopiesAnEntryThatHasExpiredMeanwhile)
{
    desktop.openPanel();
    RowContextMenu& menu = openMenuOn("B");
    desktop.state->clearHistory();
    choose(menu, "Copy");
    EXPECT_EQ(*desktop.pasteboard->textOnBoard(), "B");
    EXPECT_TRUE(desktop.texts().empty());
}

TEST_F(PanelPointer, MenuGoesWithThePanel)
{
    desktop.openPanel();
    const QPointer<RowContextMenu> menu = &openMenuOn("B");
    desktop.application->setActive(false);
    EXPECT_TRUE(!menu || !menu->isVisible());
    runMainLoop();
    EXPECT_FALSE(menu);
}

TEST_F(PanelPointer, MenuOpensOnNoRowBesideRows)
{
    desktop.openPanel();
    QContextMenuEvent event(QContextMenuEvent::Mouse, QPoint(2, 2), QPoint(2, 2));
    QApplication::sendEvent(&desktop.list(), &event);
    EXPECT_FALSE(desktop.view().contextMenu());
}

TEST_F(PanelPointer, MenuOpensByKeyboardForTheSelectedRow)
{
    desktop.openPanel();
    desktop.press(Qt::Key_Down);
    QContextMenuEvent event(QContextMenuEvent::Keyboard, QPoint(), QPoint());
    QApplication::sendEvent(&desktop.view().keyCapture(), &event);
    ASSERT_TRUE(desktop.view().contextMenu());
    choose(*desktop.view().contextMenu(), "Delete");
    EXPECT_THAT(desktop.texts(), ElementsAre("C", "A"));
}

TEST_F(PanelPointer, BackgroundDragsTheWindow)
{
    desktop.openPanel();
    const QPoint before = desktop.window().pos();
    const QPoint start(150, 20); // Beside title and buttons.
    QTest::mousePress(&desktop.window(), Qt::LeftButton, {}, start);
    QMouseEvent move(QEvent::MouseMove, start + QPoint(40, 30), before + start + QPoint(40, 30), Qt::NoButton,
                     Qt::LeftButton, {});
    QApplication::sendEvent(&desktop.window(), &move);
    EXPECT_EQ(desktop.window().pos(), before + QPoint(40, 30));
}

TEST_F(PanelPointer, RowsAndButtonsDoNotDragTheWindow)
{
    desktop.openPanel();
    const QPoint before = desktop.window().pos();
    ClipboardListView& list = desktop.list();
    const QPoint start = desktop.rowCenter("B");
    QTest::mousePress(&list, Qt::LeftButton, {}, start);
    QMouseEvent move(QEvent::MouseMove, start + QPoint(60, 0), list.mapToGlobal(start + QPoint(60, 0)),
                     Qt::NoButton, Qt::LeftButton, {});
    QApplication::sendEvent(&list, &move);
    EXPECT_EQ(desktop.window().pos(), before);
}

TEST_F(PanelPointer, WheelScrollsSmoothlyAndStopsAtTheEnd)
{
    for (int number = 0; number < 30; ++number)
        desktop.copy("entry " + std::to_string(number));
    desktop.openPanel();
    const ScrollPosition& position = desktop.list().scrollPosition();
    turnWheel(desktop.list(), -120);
    EXPECT_GT(position.offset(), 0); // The first step is at once.
    const double notch = 20.0 * QApplication::wheelScrollLines();
    EXPECT_LT(position.offset(), notch);
    EXPECT_TRUE(waitUntil([&] { return position.offset() == notch; }));
    for (int turn = 0; turn < 60; ++turn)
        turnWheel(desktop.list(), -120);
    EXPECT_TRUE(waitUntil([&] { return position.offset() == position.maximum(); }));
}

TEST_F(PanelPointer, TouchpadScrollsAtOnce)
{
    for (int number = 0; number < 30; ++number)
        desktop.copy("entry " + std::to_string(number));
    desktop.openPanel();
    turnWheel(desktop.list(), -10);
    EXPECT_DOUBLE_EQ(desktop.list().scrollPosition().offset(), 20.0 * QApplication::wheelScrollLines() / 12);
}

TEST_F(PanelPointer, TouchpadThatReportsItsGesturesScrollsByTheirPixels)
{
    for (int number = 0; number < 30; ++number)
        desktop.copy("entry " + std::to_string(number));
    desktop.openPanel();
    ClipboardListView& list = desktop.list();
    const auto move = [&list](int pixels, Qt::ScrollPhase phase) {
        const QPointF place = list.rect().center();
        QWheelEvent event(place, list.mapToGlobal(place), QPoint(0, pixels), QPoint(0, 8 * pixels),
                          Qt::NoButton, Qt::NoModifier, phase, false);
        QApplication::sendEvent(&list, &event);
    };
    move(0, Qt::ScrollBegin);
    move(-37, Qt::ScrollUpdate);
    EXPECT_EQ(list.scrollPosition().offset(), 37);
    move(-15, Qt::ScrollUpdate); // 120 units of an angle, and yet no notch of a wheel.
    EXPECT_EQ(list.scrollPosition().offset(), 37 + 15);
    move(-10, Qt::ScrollMomentum);
    EXPECT_EQ(list.scrollPosition().offset(), 37 + 15 + 10);
    move(0, Qt::ScrollEnd);
    EXPECT_EQ(list.scrollPosition().offset(), 37 + 15 + 10);
}

TEST_F(PanelPointer, HoverFollowsTheRowsThatScrollUnderThePointer)
{
    for (int number = 0; number < 30; ++number)
        desktop.copy("entry " + std::to_string(number));
    desktop.openPanel();
    movePointerTo(desktop.rowCenter("entry 29"));
    ASSERT_EQ(hovered(), desktop.item("entry 29").id);
    const QRect first = desktop.list().rowRectangle(desktop.item("entry 29").id).value();
    const QRect second = desktop.list().rowRectangle(desktop.item("entry 28").id).value();
    const double rowDistance = second.top() - first.top();
    const double anglePerPoint = 120 / (20.0 * QApplication::wheelScrollLines());
    turnWheel(desktop.list(), -static_cast<int>(rowDistance * anglePerPoint) - 1);
    EXPECT_TRUE(waitUntil([&] { return hovered() == desktop.item("entry 28").id; }));
}

TEST_F(PanelPointer, IndicatorIsDraggedFromEndToEnd)
{
    for (int number = 0; number < 30; ++number)
        desktop.copy("entry " + std::to_string(number));
    desktop.openPanel();
    ClipboardListView& list = desktop.list();
    const QPoint top(list.width() - 4, 12);
    const QPoint bottom(list.width() - 4, list.height());
    const QPoint before = desktop.window().pos();
    QTest::mousePress(&list, Qt::LeftButton, {}, top);
    QMouseEvent move(QEvent::MouseMove, bottom, list.mapToGlobal(bottom), Qt::NoButton, Qt::LeftButton, {});
    QApplication::sendEvent(&list, &move);
    EXPECT_EQ(list.scrollPosition().offset(), list.scrollPosition().maximum());
    QTest::mouseRelease(&list, Qt::LeftButton, {}, bottom);
    EXPECT_EQ(desktop.window().pos(), before);
    EXPECT_EQ(desktop.selectedText(), "entry 29");
}

} // namespace tessel::test
