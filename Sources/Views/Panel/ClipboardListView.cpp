#include "Panel/ClipboardListView.h"

#include <QtGui/QContextMenuEvent>
#include <QtGui/QPainter>
#include <QtGui/QScreen>
#include <QtGui/QWheelEvent>
#include <QtWidgets/QApplication>

#include <algorithm>
#include <cmath>
#include <utility>

#include "Panel/PanelArtwork.h"
#include "Panel/PanelStyle.h"
#include "Panel/RowText.h"
#include "Panel/TimeText.h"
#include "Support/CoreText.h"

namespace tessel {

using namespace panelStyle;

namespace {

/// So many laid-out texts are kept beside those in view: enough to scroll a little without laying out again.
constexpr std::size_t mostTextsOutOfView = 24;

/// How far beyond a row its outline and shadow may be seen, in points.
constexpr int rowOverhang = 9;

QString toQString(std::string_view text)
{
    return QString::fromUtf8(text.data(), static_cast<qsizetype>(text.size()));
}

/// Between the outer edges of two rectangles that a row may be drawn in.
QRect withOverhang(const QRectF& rectangle)
{
    return rectangle.toAlignedRect().adjusted(-rowOverhang, -rowOverhang, rowOverhang, rowOverhang);
}

/// Milliseconds between two steps of a scrolling movement: the screen shows no more of them.
int frameInterval(const QScreen& screen)
{
    constexpr double millisecondsPerSecond = 1000;
    // Virtual and remote screens may tell anything.
    constexpr int shortest = 4;
    constexpr int longest = 16;
    return std::clamp(static_cast<int>(millisecondsPerSecond / screen.refreshRate()), shortest, longest);
}

constexpr int unitsPerWheelNotch = 120;

/// A wheel with notches, and not a touchpad, whose movement is smooth as it comes?
bool isNotched(const QWheelEvent& event)
{
    return event.phase() == Qt::NoScrollPhase && event.angleDelta().y() % unitsPerWheelNotch == 0;
}

/// In points, positive towards the end of the content.
double wheelDistance(const QWheelEvent& event)
{
    constexpr double pointsPerLine = 20;
    // Only a device that reports the phases of a gesture can be trusted with pixels.
    if (event.phase() != Qt::NoScrollPhase && !event.pixelDelta().isNull())
        return -event.pixelDelta().y();
    const double notches = static_cast<double>(event.angleDelta().y()) / unitsPerWheelNotch;
    return -notches * QApplication::wheelScrollLines() * pointsPerLine;
}

bool areEqual(const History& left, const History& right)
{
    return std::equal(
        left.begin(), left.end(), right.begin(), right.end(),
        [](const ClipboardItem& one, const ClipboardItem& other) { return one.id == other.id; });
}

} // namespace

ClipboardListView::ClipboardListView(std::shared_ptr<PanelArtwork> artwork, Actions actions, QWidget* parent)
    : QWidget(parent)
    , artwork_(std::move(artwork))
    , actions_(std::move(actions))
{
    setMouseTracking(true);
}

const PanelFonts& ClipboardListView::fonts() const
{
    return artwork_->fonts();
}

// Content

void ClipboardListView::setItems(const History& pinned, const History& recent)
{
    History items = pinned;
    items.insert(items.end(), recent.begin(), recent.end());
    if (pinned.size() == pinnedCount_ && areEqual(items, items_))
        return;
    items_ = std::move(items);
    pinnedCount_ = pinned.size();
    titleLines_.clear();
    titleLines_.reserve(items_.size());
    for (const ClipboardItem& item : items_)
        titleLines_.push_back(expectedLines(item));
    layOut();
    dropTextsOutOfView();
    pointerMovedTo(pointer_);
    update();
}

void ClipboardListView::setSelectedItemID(std::optional<UUID> id)
{
    if (id == selectedItemID_)
        return;
    updateRow(std::exchange(selectedItemID_, id));
    updateRow(id);
}

void ClipboardListView::setHoveredItemID(std::optional<UUID> id)
{
    if (id == hoveredItemID_)
        return;
    updateRow(std::exchange(hoveredItemID_, id));
    updateRow(id);
}

std::optional<std::size_t> ClipboardListView::rowOf(UUID id) const
{
    const auto found =
        std::find_if(items_.begin(), items_.end(), [id](const ClipboardItem& item) { return item.id == id; });
    if (found == items_.end())
        return std::nullopt;
    return static_cast<std::size_t>(found - items_.begin());
}

const ClipboardItem* ClipboardListView::item(UUID id) const
{
    const auto row = rowOf(id);
    return row ? &items_[*row] : nullptr;
}

bool ClipboardListView::isPinned(UUID id) const
{
    const auto row = rowOf(id);
    return row && *row < pinnedCount_;
}

RowAppearance ClipboardListView::appearance(std::size_t row) const
{
    const UUID id = items_[row].id;
    return {.isPinned = row < pinnedCount_,
            .isSelected = id == selectedItemID_,
            .isHovered = id == hoveredItemID_};
}

// Layout

ClipboardListView::TitleLines ClipboardListView::expectedLines(const ClipboardItem& item) const
{
    if (item.isImage())
        return {1, true};
    if (const auto known = texts_.find(item.id); known != texts_.end())
        return {known->second.title.lineCount(), true};
    const double width = rowTitleWidth(item.isImage());
    const std::string title = rowTitle(item);
    if (const auto count = quickLineCount(title, fonts(), width))
        return {*count, true};
    // Half the font's size is a usual letter's width; most scripts take about two bytes to a letter of it.
    const double supposedWidth = static_cast<double>(title.size()) * row::title.size / 2;
    return {supposedWidth > width ? 2 : 1, false};
}

const RowText& ClipboardListView::text(std::size_t row)
{
    const ClipboardItem& item = items_[row];
    if (const auto known = texts_.find(item.id); known != texts_.end())
        return known->second;
    const QString title = item.isImage() ? coreText(rowTitle(item)) : toQString(rowTitle(item));
    RowText text = {RowTitle(title, fonts(), rowTitleWidth(item.isImage()), layoutDirection()),
                    coreText(kindLabel(item)), timeText(item.date)};
    return texts_.emplace(item.id, std::move(text)).first->second;
}

bool ClipboardListView::correctHeight(std::size_t row)
{
    const int lines = text(row).title.lineCount();
    const TitleLines supposed = std::exchange(titleLines_[row], TitleLines{lines, true});
    return supposed.count != lines;
}

void ClipboardListView::settleRowsInView()
{
    for (bool isSettled = false; !isSettled;) {
        const ListLayout::Range rows = rowsInView();
        bool isCorrected = false;
        for (std::size_t row = rows.first; row < rows.end; ++row)
            isCorrected = correctHeight(row) || isCorrected;
        isSettled = !isCorrected;
        if (isCorrected)
            layOutKeepingPlace();
    }
}

void ClipboardListView::correctSomeHeights()
{
    constexpr qint64 timeToSpend = 2; // Milliseconds: a turn of the loop stays unnoticed.
    QElapsedTimer sinceStart;
    sinceStart.start();
    bool isCorrected = false;
    std::size_t row = 0;
    for (; row < items_.size() && sinceStart.elapsed() < timeToSpend; ++row) {
        if (!titleLines_[row].isCertain)
            isCorrected = correctHeight(row) || isCorrected;
    }
    if (row == items_.size())
        heightTimer_.stop();
    if (isCorrected) {
        layOutKeepingPlace();
        update();
    }
    dropTextsOutOfView();
}

void ClipboardListView::layOut()
{
    std::vector<int> heights;
    heights.reserve(items_.size());
    for (std::size_t row = 0; row < items_.size(); ++row)
        heights.push_back(rowHeight(fonts(), items_[row].isImage(), titleLines_[row].count));
    layout_ = ListLayout(heights, pinnedCount_, sectionHeaderHeight(fonts()));
    position_.setContentHeight(layout_.contentHeight());
}

void ClipboardListView::layOutKeepingPlace()
{
    const std::size_t anchor = rowsInView().first;
    const bool hasAnchor = anchor < layout_.rows().size();
    const int before = hasAnchor ? layout_.rows()[anchor].top : 0;
    layOut();
    if (!hasAnchor)
        return;
    const int moved = layout_.rows()[anchor].top - before;
    position_.scrollTo(position_.offset() + moved);
    if (const auto target = animation_.target())
        animation_.moveTo(*target + moved);
}

void ClipboardListView::dropTextsOutOfView()
{
    const ListLayout::Range inView = rowsInView();
    if (texts_.size() <= inView.end - inView.first + mostTextsOutOfView)
        return;
    std::erase_if(texts_, [&](const auto& entry) {
        const auto row = rowOf(entry.first);
        return !row || *row < inView.first || *row >= inView.end;
    });
}

ListLayout::Range ClipboardListView::rowsInView() const
{
    return layout_.rowsBetween(position_.offset() - rowOverhang,
                               position_.offset() + position_.viewHeight() + rowOverhang);
}

QRectF ClipboardListView::viewRectangle(const ListLayout::Extent& extent) const
{
    // Whole device pixels, so that the texts do not tremble in their frames while the list moves.
    const double pixelsPerPoint = devicePixelRatioF();
    const double offset = std::round(position_.offset() * pixelsPerPoint) / pixelsPerPoint;
    return {static_cast<double>(list::horizontalPadding), extent.top - offset,
            static_cast<double>(width() - 2 * list::horizontalPadding), static_cast<double>(extent.height)};
}

std::optional<QRect> ClipboardListView::rowRectangle(UUID id) const
{
    const auto row = rowOf(id);
    if (!row)
        return std::nullopt;
    return viewRectangle(layout_.rows()[*row]).toRect();
}

// Drawing

void ClipboardListView::updateRow(std::optional<UUID> id)
{
    const auto row = id ? rowOf(*id) : std::nullopt;
    if (row)
        update(withOverhang(viewRectangle(layout_.rows()[*row])));
}

void ClipboardListView::paintEvent(QPaintEvent* event)
{
    const int heightBefore = layout_.contentHeight();
    settleRowsInView();
    if (layout_.contentHeight() != heightBefore)
        update(); // What lies outside the exposed part may have moved.

    QPainter painter(this);
    painter.setLayoutDirection(layoutDirection());
    RowPainter rowPainter(painter, *artwork_);
    paintRows(rowPainter, event->rect());
    indicator_.paint(painter, position_, indicatorView(), Qt::white);

    const bool isUncertain = std::any_of(titleLines_.begin(), titleLines_.end(),
                                         [](const TitleLines& lines) { return !lines.isCertain; });
    if (isUncertain)
        heightTimer_.start(0, this);
    dropTextsOutOfView();
}

ScrollIndicator::View ClipboardListView::indicatorView() const
{
    return {static_cast<double>(width()), layoutDirection()};
}

void ClipboardListView::paintRows(RowPainter& painter, const QRect& exposed)
{
    for (const ListLayout::Caption& caption : layout_.captions()) {
        const QRectF rectangle = viewRectangle(caption.extent);
        if (rectangle.intersects(exposed))
            painter.sectionHeader(rectangle, caption.section == ListLayout::Section::pinned ? tr("Pinned")
                                                                                            : tr("Recent"));
    }
    const ListLayout::Range rows = rowsInView();
    for (std::size_t row = rows.first; row < rows.end; ++row) {
        const QRectF rectangle = viewRectangle(layout_.rows()[row]);
        if (withOverhang(rectangle).intersects(exposed))
            painter.row(rectangle, items_[row], text(row), appearance(row));
    }
}

// Scrolling

void ClipboardListView::resizeEvent(QResizeEvent*)
{
    position_.setViewHeight(height());
}

void ClipboardListView::hideEvent(QHideEvent*)
{
    animation_.stop();
    scrollTimer_.stop();
    heightTimer_.stop();
    indicator_.release();
    pressedItemID_.reset();
    pointerMovedTo(std::nullopt);
}

void ClipboardListView::reveal(UUID id)
{
    auto row = rowOf(id);
    if (!row)
        return;
    animation_.stop();
    const double before = position_.offset();
    position_.reveal(layout_.surroundings(*row));
    if (position_.offset() == before)
        return;
    settleRowsInView(); // The way there may have been supposed.
    position_.reveal(layout_.surroundings(*row));
    pointerMovedTo(pointer_);
    update();
}

void ClipboardListView::scrollTo(double offset)
{
    const double before = position_.offset();
    position_.scrollTo(offset);
    if (position_.offset() == before)
        return;
    pointerMovedTo(pointer_);
    update();
}

void ClipboardListView::wheelEvent(QWheelEvent* event)
{
    if (!position_.overflows())
        return event->ignore();
    if (!isNotched(*event)) {
        animation_.stop();
        return scrollTo(position_.offset() + wheelDistance(*event));
    }
    const double from = animation_.target().value_or(position_.offset());
    animation_.moveTo(std::clamp(from + wheelDistance(*event), 0.0, position_.maximum()));
    if (scrollTimer_.isActive())
        return;
    sinceScrolled_.start();
    scrollTimer_.start(frameInterval(*screen()), Qt::PreciseTimer, this);
    advanceScrolling();
}

void ClipboardListView::advanceScrolling()
{
    constexpr double nanosecondsPerSecond = 1e9;
    // The first step is a frame's, so that the answer to the wheel is seen at once. After a pause of the
    // machine's the movement is still seen.
    constexpr double longestStep = 0.1;
    const double seconds =
        std::clamp(static_cast<double>(sinceScrolled_.nsecsElapsed()) / nanosecondsPerSecond,
                   frameInterval(*screen()) / 1000.0, longestStep);
    sinceScrolled_.start();
    scrollTo(animation_.advanced(position_.offset(), seconds));
    if (!animation_.target())
        scrollTimer_.stop();
}

void ClipboardListView::timerEvent(QTimerEvent* event)
{
    if (event->timerId() == scrollTimer_.timerId())
        advanceScrolling();
    else if (event->timerId() == heightTimer_.timerId())
        correctSomeHeights();
    else
        QWidget::timerEvent(event);
}

// Pointer

std::optional<UUID> ClipboardListView::itemAt(const QPointF& point) const
{
    const bool isBesideRows =
        point.x() < list::horizontalPadding || point.x() >= width() - list::horizontalPadding;
    if (isBesideRows || point.y() < 0 || point.y() >= height())
        return std::nullopt;
    const auto row = layout_.rowAt(point.y() + position_.offset());
    return row ? std::optional(items_[*row].id) : std::nullopt;
}

void ClipboardListView::pointerMovedTo(std::optional<QPointF> point)
{
    pointer_ = point;
    const auto pointed = point ? itemAt(*point) : std::nullopt;
    if (pointed == pointedItemID_)
        return;
    const auto left = std::exchange(pointedItemID_, pointed);
    if (left)
        actions_.onPointerLeft(*left);
    if (pointed)
        actions_.onPointerEntered(*pointed);
}

void ClipboardListView::enterEvent(QEnterEvent* event)
{
    pointerMovedTo(event->position());
}

void ClipboardListView::leaveEvent(QEvent*)
{
    pointerMovedTo(std::nullopt);
}

void ClipboardListView::mouseMoveEvent(QMouseEvent* event)
{
    if (indicator_.isHeld()) {
        animation_.stop();
        return scrollTo(indicator_.offsetAt(event->position().y(), position_));
    }
    pointerMovedTo(event->position());
    // A drag that began beside the rows is the window's.
    if (!pressedItemID_)
        event->ignore();
}

void ClipboardListView::mousePressEvent(QMouseEvent* event)
{
    pressedItemID_ = itemAt(event->position());
    click_ = Click::single;
    if (pressedItemID_)
        return;
    const auto track = ScrollIndicator::track(position_, indicatorView());
    if (event->button() != Qt::LeftButton || !track || !track->contains(event->position()))
        return event->ignore();
    indicator_.press(event->position().y(), position_);
    animation_.stop();
    scrollTo(indicator_.offsetAt(event->position().y(), position_));
    update();
}

void ClipboardListView::mouseDoubleClickEvent(QMouseEvent* event)
{
    const auto clickedBefore = pressedItemID_;
    mousePressEvent(event);
    if (pressedItemID_ && pressedItemID_ == clickedBefore)
        click_ = Click::twice;
}

void ClipboardListView::mouseReleaseEvent(QMouseEvent* event)
{
    if (indicator_.isHeld()) {
        indicator_.release();
        return update();
    }
    if (!pressedItemID_)
        return event->ignore();
    if (event->button() != Qt::LeftButton || itemAt(event->position()) != pressedItemID_)
        return;
    // A double click is complete with its second release: the button must not go up in another program's
    // window. The action may close the panel.
    const auto& action = click_ == Click::twice ? actions_.onDoubleClick : actions_.onClick;
    click_ = Click::none;
    action(*pressedItemID_);
}

void ClipboardListView::contextMenuEvent(QContextMenuEvent* event)
{
    const auto item = event->reason() == QContextMenuEvent::Mouse ? itemAt(event->pos()) : std::nullopt;
    if (!item)
        return event->ignore();
    actions_.onContextMenu(*item, event->globalPos());
}

} // namespace tessel
