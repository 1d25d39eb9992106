#pragma once

#include <cstdint>
#include <functional>
#include <memory>
#include <optional>
#include <unordered_map>
#include <vector>

#include <QtCore/QBasicTimer>
#include <QtCore/QElapsedTimer>
#include <QtWidgets/QWidget>

#include "History/HistoryRules.h"
#include "Panel/ListLayout.h"
#include "Panel/RowPainter.h"
#include "Panel/ScrollAnimation.h"
#include "Support/ScrollIndicator.h"
#include "Support/ScrollPosition.h"
#include "Support/UUID.h"

namespace tessel {

/// The panel's scrolling list: every row is drawn, none is a widget. Rows out of view cost a height each, and
/// nothing more. What happens to a row is told to the actions; the list decides nothing.
class ClipboardListView : public QWidget {
    Q_OBJECT

public:
    struct Actions {
        std::function<void(UUID)> onClick;
        std::function<void(UUID)> onDoubleClick;
        std::function<void(UUID)> onPointerEntered;
        std::function<void(UUID)> onPointerLeft;
        /// With the place of the click on the screen.
        std::function<void(UUID, QPoint)> onContextMenu;
    };

    ClipboardListView(std::shared_ptr<PanelArtwork> artwork, Actions actions, QWidget* parent);

    /// Shows the pinned entries, then the recent ones. The part in view stays.
    void setItems(const History& pinned, const History& recent);
    void setSelectedItemID(std::optional<UUID> id);
    void setHoveredItemID(std::optional<UUID> id);
    /// Scrolls a row into view at once, no further than needed. Does nothing where there is no such row.
    void reveal(UUID id);

    /// The pinned entries, then the recent ones.
    const History& items() const { return items_; }
    std::size_t pinnedCount() const { return pinnedCount_; }
    /// Null: there is no such row.
    const ClipboardItem* item(UUID id) const;
    bool isPinned(UUID id) const;
    /// A row's rectangle in this widget, in view or not. None: there is no such row.
    std::optional<QRect> rowRectangle(UUID id) const;
    const ListLayout& layout() const { return layout_; }
    const ScrollPosition& scrollPosition() const { return position_; }

protected:
    void paintEvent(QPaintEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void hideEvent(QHideEvent* event) override;
    void timerEvent(QTimerEvent* event) override;
    void wheelEvent(QWheelEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseDoubleClickEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void contextMenuEvent(QContextMenuEvent* event) override;
    void enterEvent(QEnterEvent* event) override;
    void leaveEvent(QEvent* event) override;

private:
    /// How many lines a row's title has, and whether that has been laid out or only supposed.
    struct TitleLines {
        int count;
        bool isCertain;
    };
    enum class Click { none, single, twice };

    TitleLines expectedLines(const ClipboardItem& item) const;
    /// The row's texts, laid out now if they were not.
    const RowText& text(std::size_t row);
    /// Lays out the rows in view, until the heights that this corrects bring no others into view.
    void settleRowsInView();
    /// Makes sure of a row's height. True: it was another one than supposed.
    bool correctHeight(std::size_t row);
    void correctSomeHeights();
    void layOut();
    /// The same, with the first row in view staying where it is.
    void layOutKeepingPlace();
    void dropTextsOutOfView();

    const PanelFonts& fonts() const;
    QRectF viewRectangle(const ListLayout::Extent& extent) const;
    ListLayout::Range rowsInView() const;
    std::optional<std::size_t> rowOf(UUID id) const;
    std::optional<UUID> itemAt(const QPointF& point) const;
    RowAppearance appearance(std::size_t row) const;
    void updateRow(std::optional<UUID> id);
    ScrollIndicator::View indicatorView() const;
    void paintRows(RowPainter& painter, const QRect& exposed);

    void scrollTo(double offset);
    void advanceScrolling();
    void pointerMovedTo(std::optional<QPointF> point);

    std::shared_ptr<PanelArtwork> artwork_;
    Actions actions_;

    History items_;
    std::size_t pinnedCount_ = 0;
    std::vector<TitleLines> titleLines_;
    ListLayout layout_;
    std::unordered_map<UUID, RowText> texts_;
    std::optional<UUID> selectedItemID_;
    std::optional<UUID> hoveredItemID_;

    ScrollPosition position_;
    ScrollAnimation animation_;
    ScrollIndicator indicator_;
    QBasicTimer scrollTimer_;
    QElapsedTimer sinceScrolled_;
    QBasicTimer heightTimer_;

    std::optional<QPointF> pointer_;
    std::optional<UUID> pointedItemID_;
    std::optional<UUID> pressedItemID_;
    Click click_ = Click::none;
};

} // namespace tessel
