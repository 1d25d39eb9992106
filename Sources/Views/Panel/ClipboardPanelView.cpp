#include "Panel/ClipboardPanelView.h"

#include <QtGui/QContextMenuEvent>
#include <QtGui/QKeyEvent>

#include <utility>

#include "Accessibility/AccessibleHistoryList.h"
#include "AppState.h"
#include "Panel/ColorView.h"
#include "Panel/EmptyStateView.h"
#include "Panel/KeyCaptureView.h"
#include "Panel/PanelArtwork.h"
#include "Panel/PanelHeader.h"
#include "Panel/PanelSelection.h"
#include "Panel/PanelStyle.h"
#include "Panel/RowContextMenu.h"
#include "Panel/VisualEffectBlurView.h"

namespace tessel {

namespace {

constexpr VisualEffectBlurView backdrop = {VisualEffectMaterial::hudWindow,
                                           VisualEffectBlendingMode::behindWindow};

std::vector<UUID> identifiers(const History& items)
{
    std::vector<UUID> identifiers;
    identifiers.reserve(items.size());
    for (const ClipboardItem& item : items)
        identifiers.push_back(item.id);
    return identifiers;
}

} // namespace

ClipboardPanelView::ClipboardPanelView(AppState& appState, std::shared_ptr<PanelArtwork> artwork,
                                       QWidget* parent)
    : QWidget(parent)
    , appState_(appState.weak_from_this())
    , artwork_(std::move(artwork))
    , material_(backdrop.makeView(this))
    , tint_(new ColorView(this))
    , header_(new PanelHeader(artwork_->fonts(), {[this] { closePanel(); }, [this] { clearAll(); }}, this))
    , keyCapture_(keyboardEventBridge().makeView(this))
    , list_(new ClipboardListView(artwork_, listActions(), keyCapture_))
    , edge_(new CardEdgeView(artwork_, this))
    , observation_(appState.observe([this] { updateLater(); }))
{
    keyCapture_->setAccessibleName(tr("Clipboard history"));
    // On the next turn: the toolkit announces that the list as a whole has the focus, and the row comes
    // after.
    connect(
        keyCapture_, &KeyCaptureView::focusDidArrive, this,
        [this] {
            if (auto* accessible = AccessibleHistoryList::ofInterest(*this))
                accessible->announceFocus();
        },
        Qt::QueuedConnection);
}

ClipboardPanelView::~ClipboardPanelView() = default;

// What is shown

void ClipboardPanelView::updateLater()
{
    // A hidden panel costs nothing: it is brought up to date when it appears.
    if (updateIsPending_ || !isVisible())
        return;
    updateIsPending_ = true;
    QMetaObject::invokeMethod(this, &ClipboardPanelView::bringUpToDate, Qt::QueuedConnection);
}

void ClipboardPanelView::bringUpToDate()
{
    if (std::exchange(updateIsPending_, false))
        updateNow();
}

void ClipboardPanelView::updateNow()
{
    updateIsPending_ = false;
    const auto state = appState_.lock();
    if (!state)
        return;
    const History ordered = state->orderedHistory();
    backdrop.updateView(*material_);
    material_->setWindowBlending(blending_);
    tint_->setColor(panelStyle::black(*state->panelTintOpacity));
    header_->setItemCount(ordered.size());
    updateContentList(ordered);
    if (auto* accessible = AccessibleHistoryList::ofInterest(*this))
        accessible->itemsDidChange();
    keyboardEventBridge().updateView(*keyCapture_);

    if (auto ids = identifiers(ordered); ids != shownItemIDs_) {
        shownItemIDs_ = std::move(ids);
        ensureSelection(ordered);
    }
    if (std::exchange(revealsSelectionNext_, false) && selectedItemID_)
        list_->reveal(*selectedItemID_);
}

void ClipboardPanelView::updateContentList(const History& ordered)
{
    const auto state = appState_.lock();
    History pinnedItems;
    History recentItems;
    for (const ClipboardItem& item : ordered)
        (state->pinnedItemIDs->contains(item.id) ? pinnedItems : recentItems).push_back(item);
    list_->setItems(pinnedItems, recentItems);

    const bool isEmpty = ordered.empty();
    if (isEmpty && emptyState_ == nullptr) {
        emptyState_ = new EmptyStateView(artwork_->fonts(), keyCapture_);
        emptyState_->setGeometry(keyCapture_->rect());
    }
    if (emptyState_ != nullptr)
        emptyState_->setVisible(isEmpty);
    list_->setVisible(!isEmpty);
}

void ClipboardPanelView::setWindowBlending(WindowBlending blending)
{
    blending_ = blending;
    material_->setWindowBlending(blending);
}

void ClipboardPanelView::leaveMaterialTo(std::unique_ptr<VisualEffect> effect)
{
    effect->setCornerRadius(panelStyle::card::cornerRadius);
    material_->leaveDrawingTo(std::move(effect));
    backdrop.updateView(*material_);
}

void ClipboardPanelView::setBackdrop(std::shared_ptr<const Backdrop> picture)
{
    material_->setBackdrop(std::move(picture));
}

void ClipboardPanelView::setDesktopCorners(const CardCorners& corners)
{
    edge_->setDesktop(corners);
}

void ClipboardPanelView::showEvent(QShowEvent*)
{
    updateNow();
    if (const auto state = appState_.lock())
        ensureSelection(state->orderedHistory());
}

void ClipboardPanelView::hideEvent(QHideEvent*)
{
    setHoveredItemID(std::nullopt);
    if (contextMenu_)
        contextMenu_->close();
}

void ClipboardPanelView::resizeEvent(QResizeEvent*)
{
    const int headerHeight = header_->sizeHint().height();
    material_->setGeometry(rect());
    tint_->setGeometry(rect());
    edge_->setGeometry(rect());
    header_->setGeometry(0, 0, width(), headerHeight);
    keyCapture_->setGeometry(0, headerHeight, width(), height() - headerHeight);
    list_->setGeometry(keyCapture_->rect());
    if (emptyState_ != nullptr)
        emptyState_->setGeometry(keyCapture_->rect());
}

// Selection and hover

void ClipboardPanelView::ensureSelection(const History& ordered)
{
    const auto id = ensuredSelection(ordered, selectedItemID_);
    if (id != selectedItemID_)
        setSelectedItemID(id, Reveal::yes);
}

void ClipboardPanelView::moveSelection(int step)
{
    bringUpToDate();
    if (const auto state = appState_.lock())
        setSelectedItemID(movedSelection(state->orderedHistory(), selectedItemID_, step), Reveal::yes);
}

void ClipboardPanelView::selectItem(UUID id)
{
    setSelectedItemID(id, Reveal::no);
}

void ClipboardPanelView::setSelectedItemID(std::optional<UUID> id, Reveal reveal)
{
    const auto before = std::exchange(selectedItemID_, id);
    list_->setSelectedItemID(id);
    keyCapture_->ensureFocus();
    if (id && reveal == Reveal::yes)
        list_->reveal(*id);
    if (auto* accessible = AccessibleHistoryList::ofInterest(*this))
        accessible->selectionDidChange(before);
}

void ClipboardPanelView::pointerEntered(UUID id)
{
    setHoveredItemID(id);
}

void ClipboardPanelView::pointerLeft(UUID)
{
    setHoveredItemID(std::nullopt);
}

void ClipboardPanelView::setHoveredItemID(std::optional<UUID> id)
{
    hoveredItemID_ = id;
    list_->setHoveredItemID(id);
    keyCapture_->ensureFocus();
}

// Actions

template <class Operation>
void ClipboardPanelView::withSelectedItem(Operation operation)
{
    bringUpToDate();
    withItem(selectedItemID_, operation);
}

template <class Operation>
void ClipboardPanelView::withItem(std::optional<UUID> id, Operation operation)
{
    const auto state = appState_.lock();
    if (!state)
        return;
    const History ordered = state->orderedHistory();
    if (const ClipboardItem* item = tessel::selectedItem(ordered, id))
        operation(*state, *item);
}

KeyboardEventBridge ClipboardPanelView::keyboardEventBridge()
{
    return {
        .onUp = [this] { moveSelection(-1); },
        .onDown = [this] { moveSelection(1); },
        .onEnter =
            [this] {
                withSelectedItem(
                    [](AppState& state, const ClipboardItem& item) { state.copyAndPaste(item); });
            },
        .onEscape = [this] { closePanel(); },
        .onDelete =
            [this] {
                withSelectedItem([](AppState& state, const ClipboardItem& item) { state.removeItem(item); });
            },
        .onPinToggle =
            [this] {
                withSelectedItem(
                    [](AppState& state, const ClipboardItem& item) { state.togglePinned(item); });
                revealsSelectionNext_ = true;
            },
    };
}

ClipboardListView::Actions ClipboardPanelView::listActions()
{
    return {
        .onClick = [this](UUID id) { selectItem(id); },
        .onDoubleClick = [this](UUID id) { pasteItem(id); },
        .onPointerEntered = [this](UUID id) { pointerEntered(id); },
        .onPointerLeft = [this](UUID id) { pointerLeft(id); },
        .onContextMenu = [this](UUID id, QPoint place) { showContextMenu(id, place); },
    };
}

void ClipboardPanelView::pasteItem(UUID id)
{
    withItem(id, [](AppState& state, const ClipboardItem& item) { state.copyAndPaste(item); });
}

void ClipboardPanelView::closePanel()
{
    if (const auto state = appState_.lock())
        closeAndDrop(state->panelController);
}

void ClipboardPanelView::clearAll()
{
    if (const auto state = appState_.lock())
        state->clearHistory();
}

RowContextMenu* ClipboardPanelView::contextMenu() const
{
    return contextMenu_;
}

void ClipboardPanelView::showContextMenu(UUID id, QPoint place)
{
    withItem(id, [this, place](AppState& state, const ClipboardItem& item) {
        // The entry may be gone by the time that one of them is chosen. What can still be copied is copied.
        const auto copy = [weak = appState_, item] {
            if (const auto appState = weak.lock())
                appState->copyToClipboard(item);
        };
        const auto calling = [this, id = item.id](void (AppState::*operation)(const ClipboardItem&)) {
            return [this, id, operation] {
                withItem(id, [operation](AppState& appState, const ClipboardItem& present) {
                    (appState.*operation)(present);
                });
            };
        };
        const auto pin = state.pinnedItemIDs->contains(item.id) ? RowContextMenu::Pin::pinned
                                                                : RowContextMenu::Pin::unpinned;
        contextMenu_ = new RowContextMenu(pin, blending_,
                                          {.onCopy = copy,
                                           .onPinToggle = calling(&AppState::togglePinned),
                                           .onDelete = calling(&AppState::removeItem)},
                                          this);
        contextMenu_->popup(place);
    });
}

void ClipboardPanelView::showContextMenuOfSelectedRow()
{
    bringUpToDate();
    if (!selectedItemID_)
        return;
    list_->reveal(*selectedItemID_);
    const auto row = list_->rowRectangle(*selectedItemID_);
    if (!row)
        return;
    showContextMenu(*selectedItemID_, list_->mapToGlobal(row->center()));
    if (contextMenu_)
        contextMenu_->setActiveAction(contextMenu_->actions().constFirst());
}

void ClipboardPanelView::contextMenuEvent(QContextMenuEvent* event)
{
    if (event->reason() != QContextMenuEvent::Keyboard)
        return event->ignore();
    showContextMenuOfSelectedRow();
}

void ClipboardPanelView::keyPressEvent(QKeyEvent* event)
{
    // The system's exit command, whatever key that is.
    if (event->matches(QKeySequence::Cancel) || event->key() == Qt::Key_Cancel)
        return closePanel();
    // The toolkit makes a request for the context menu of the Menu key only.
    if (event->key() == Qt::Key_F10 && event->modifiers() == Qt::ShiftModifier)
        return showContextMenuOfSelectedRow();
    QWidget::keyPressEvent(event);
}

} // namespace tessel
