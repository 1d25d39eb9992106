// The panel where the interface runs from right to left.

#include <gtest/gtest.h>

#include <QtGui/QImage>
#include <QtTest/QTest>
#include <QtWidgets/QAbstractButton>
#include <QtWidgets/QApplication>

#include "Panel/RowContextMenu.h"
#include "Support/InkExtent.h"
#include "Support/PanelDesktop.h"

namespace tessel::test {

namespace {

constexpr int panelWidth = 460;

/// Letters stand a little apart from the edges of their boxes.
constexpr int letterBearing = 3;

SharedImage redImage()
{
    Thumbnail thumbnail;
    thumbnail.pixels.assign(static_cast<std::size_t>(Thumbnail::side) * Thumbnail::side, 0xFFFF0000U);
    auto image = FakeImage::withPNG("picture");
    image->setThumbnail(std::move(thumbnail));
    return image;
}

/// A panel with a pinned text, an image and enough other entries to scroll, on black.
class DirectedPanel : public testing::TestWithParam<Qt::LayoutDirection> {
protected:
    DirectedPanel()
    {
        QApplication::setLayoutDirection(GetParam());
        desktop.defaults->setDouble(AppState::panelOpacityKey, 1);
        desktop.relaunch();
        desktop.copyAll({"one", "two", "three", "four", "five", "six", "seven", "eight", "nine"});
        desktop.copy(redImage());
        desktop.copy("pinned");
        desktop.pin("pinned");
        desktop.openPanel();
        image = QImage(desktop.window().size(), QImage::Format_RGB32);
        image.fill(Qt::black);
        desktop.window().render(&image, {}, {}, QWidget::DrawChildren);
    }
    ~DirectedPanel() override { QApplication::setLayoutDirection(Qt::LeftToRight); }

    /// A place that is so far from the edge at which lines begin.
    static int column(int fromStart)
    {
        return GetParam() == Qt::RightToLeft ? panelWidth - 1 - fromStart : fromStart;
    }
    /// The part between two distances from the edge at which lines begin.
    static QRect part(int fromStart, int toStart, int top, int height)
    {
        return {QPoint(std::min(column(fromStart), column(toStart)), top),
                QPoint(std::max(column(fromStart), column(toStart)), top + height - 1)};
    }
    /// How far from the edge at which lines begin something is drawn in that part first.
    int start(const QRect& part) const
    {
        const Extent ink = inkExtent(image, part);
        return GetParam() == Qt::RightToLeft ? panelWidth - 1 - ink.right : ink.left;
    }
    QRect rowRectangle(UUID id) const
    {
        return desktop.list().rowRectangle(id)->translated(
            desktop.list().mapTo(&desktop.window(), QPoint(0, 0)));
    }
    UUID idOfImage() const { return desktop.state->orderedHistory()[1].id; }

    PanelDesktop desktop;
    QImage image;
};

} // namespace

TEST_P(DirectedPanel, BeginsItsHeaderWithTheTextsAndEndsItWithTheButtons)
{
    EXPECT_NEAR(start(part(0, 200, 12, 20)), 12, letterBearing);
    EXPECT_NEAR(start(part(0, 200, 34, 12)), 12, letterBearing);
    const auto buttons = desktop.window().findChildren<QAbstractButton*>();
    ASSERT_EQ(buttons.size(), 2);
    const QRect close = buttons[0]->geometry();
    const QRect clearAll = buttons[1]->geometry();
    const bool isMirrored = GetParam() == Qt::RightToLeft;
    EXPECT_EQ(isMirrored ? clearAll.left() : panelWidth - 1 - clearAll.right(), 12);
    EXPECT_EQ(isMirrored ? close.left() - clearAll.right() - 1 : clearAll.left() - close.right() - 1, 10);
}

TEST_P(DirectedPanel, BeginsItsRowsAndCaptionsOnThatSide)
{
    const QRect pinned = rowRectangle(desktop.item("pinned").id);
    const int captionHeight = 15;
    EXPECT_NEAR(start(part(10, 200, pinned.top() - 10 - captionHeight, captionHeight)), 8 + 6, letterBearing);
    EXPECT_NEAR(start(part(12, 300, pinned.top() + 9, 16)), 8 + 10, letterBearing);
    EXPECT_NEAR(start(part(12, 300, pinned.bottom() - 9 - 12, 12)), 8 + 10, letterBearing);
}

TEST_P(DirectedPanel, BeginsImagesWithTheirThumbnail)
{
    const int y = rowRectangle(idOfImage()).top() + 9 + 16;
    const QColor red(255, 0, 0);
    EXPECT_EQ(image.pixelColor(column(8 + 10), y), red);
    EXPECT_EQ(image.pixelColor(column(8 + 10 + 31), y), red);
    EXPECT_NE(image.pixelColor(column(8 + 10 - 1), y), red);
    EXPECT_NE(image.pixelColor(column(8 + 10 + 32), y), red);
    EXPECT_NEAR(start(part(8 + 10 + 32 + 2, 300, y - 16, 16)), 8 + 10 + 32 + 10, letterBearing);
}

TEST_P(DirectedPanel, PutsThePinAfterTheKindAndTheTimeAfterThePin)
{
    const QRect pinned = rowRectangle(desktop.item("pinned").id);
    const QRect plain = rowRectangle(desktop.item("nine").id);
    const QRect metadata = part(12, 300, pinned.bottom() - 9 - 12, 12);
    // The pin moves the time away from the kind by its width and a space; the kind stays where it is.
    const QRect metadataOfPlain = metadata.translated(0, plain.bottom() - pinned.bottom());
    EXPECT_EQ(start(metadata), start(metadataOfPlain));
    const auto end = [this](const QRect& part) {
        const Extent ink = inkExtent(image, part);
        return GetParam() == Qt::RightToLeft ? panelWidth - 1 - ink.left : ink.right;
    };
    EXPECT_EQ(end(metadata) - end(metadataOfPlain), 8 + 8);
}

TEST_P(DirectedPanel, ScrollsOnTheSideWhereLinesEnd)
{
    const int top = desktop.list().mapTo(&desktop.window(), QPoint(0, 0)).y();
    const int y = top + 20;
    EXPECT_NEAR(image.pixelColor(column(panelWidth - 1 - 3), y).red(), 255 * 0.30, 3);
    EXPECT_EQ(image.pixelColor(column(3), y), QColor(Qt::black));

    const QPoint end(column(panelWidth - 1 - 3), desktop.list().height() - 30);
    QTest::mouseClick(&desktop.list(), Qt::LeftButton, {}, end);
    EXPECT_GT(desktop.list().scrollPosition().offset(), 0);
}

TEST_P(DirectedPanel, BeginsTheItemsOfItsMenuOnThatSide)
{
    desktop.view().showContextMenu(idOfImage(), QPoint(100, 100));
    runMainLoop();
    RowContextMenu& menu = *desktop.view().contextMenu();
    const QImage picture = menu.grab().toImage();
    constexpr int margin = 5;
    constexpr int itemPadding = 10;
    for (QAction* action : menu.actions()) {
        const Extent ink = inkExtent(picture, menu.actionGeometry(action));
        const int begin = GetParam() == Qt::RightToLeft ? menu.width() - 1 - ink.right : ink.left;
        EXPECT_NEAR(begin, margin + itemPadding, letterBearing) << action->text().toStdString();
    }
}

TEST_P(DirectedPanel, KeepsItsKeys)
{
    desktop.press(Qt::Key_Down);
    EXPECT_EQ(desktop.view().selectedItemID(), idOfImage());
    desktop.press(Qt::Key_Left);
    desktop.press(Qt::Key_Right);
    EXPECT_EQ(desktop.view().selectedItemID(), idOfImage());
}

INSTANTIATE_TEST_SUITE_P(Direction, DirectedPanel, testing::Values(Qt::LeftToRight, Qt::RightToLeft),
                         [](const auto& direction) {
                             return direction.param == Qt::RightToLeft ? "RightToLeft" : "LeftToRight";
                         });

} // namespace tessel::test
