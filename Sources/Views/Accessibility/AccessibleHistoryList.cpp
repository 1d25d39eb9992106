#include "Accessibility/AccessibleHistoryList.h"

#include <QtWidgets/QApplication>

#include <algorithm>

#include "Accessibility/AccessibleHistoryRow.h"
#include "Panel/ClipboardPanelView.h"
#include "Panel/KeyCaptureView.h"

namespace tessel {

AccessibleHistoryList::AccessibleHistoryList(KeyCaptureView& view, ClipboardPanelView& panel)
    : AccessiblePanelNode(&view, QAccessible::List)
    , panel_(&panel)
{}

AccessibleHistoryList::~AccessibleHistoryList()
{
    for (const auto& [id, row] : rows_)
        QAccessible::deleteAccessibleInterface(row);
}

AccessibleHistoryList* AccessibleHistoryList::ofInterest(const ClipboardPanelView& panel)
{
    if (!QAccessible::isActive())
        return nullptr;
    return dynamic_cast<AccessibleHistoryList*>(QAccessible::queryAccessibleInterface(&panel.keyCapture()));
}

// What there is

std::vector<AccessibleHistoryList::Shown> AccessibleHistoryList::currentItems() const
{
    std::vector<Shown> items;
    const History& history = shownHistory();
    for (std::size_t position = 0; position < history.size(); ++position)
        items.push_back({history[position].id, position < panel_->list().pinnedCount()});
    return items;
}

const History& AccessibleHistoryList::shownHistory() const
{
    static const History nothing;
    // A hidden panel is not kept up to date, and nobody is to read in it what has been deleted since.
    return panel_ && panel_->isVisible() ? panel_->list().items() : nothing;
}

void AccessibleHistoryList::noteReading() const
{
    if (!announced_)
        announced_ = currentItems();
}

QAccessibleInterface* AccessibleHistoryList::row(UUID id) const
{
    const auto [known, isNew] = rows_.try_emplace(id);
    if (isNew)
        known->second = QAccessible::registerAccessibleInterface(new AccessibleHistoryRow(*panel_, id));
    return QAccessible::accessibleInterface(known->second);
}

QAccessibleInterface* AccessibleHistoryList::child(int index) const
{
    noteReading();
    const History& items = shownHistory();
    if (items.empty())
        return AccessiblePanelNode::child(index);
    const auto position = static_cast<std::size_t>(index);
    return index >= 0 && position < items.size() ? row(items[position].id) : nullptr;
}

int AccessibleHistoryList::childCount() const
{
    noteReading();
    const History& items = shownHistory();
    return items.empty() ? AccessiblePanelNode::childCount() : static_cast<int>(items.size());
}

int AccessibleHistoryList::indexOfChild(const QAccessibleInterface* child) const
{
    const auto* asked = dynamic_cast<const AccessibleHistoryRow*>(child);
    if (asked == nullptr)
        return AccessiblePanelNode::indexOfChild(child);
    const History& items = shownHistory();
    const auto found = std::find_if(items.begin(), items.end(),
                                    [asked](const ClipboardItem& item) { return item.id == asked->id(); });
    return found == items.end() ? -1 : static_cast<int>(found - items.begin());
}

QAccessibleInterface* AccessibleHistoryList::childAt(int x, int y) const
{
    for (int index = 0; index < childCount(); ++index) {
        if (QAccessibleInterface* candidate = child(index);
            candidate->rect().contains(x, y) && rect().contains(x, y))
            return candidate;
    }
    return nullptr;
}

bool AccessibleHistoryList::hasKeyboard() const
{
    return widget()->hasFocus() && QApplication::activePopupWidget() == nullptr;
}

QAccessibleInterface* AccessibleHistoryList::focusChild() const
{
    if (!hasKeyboard())
        return nullptr;
    const auto selected = panel_ ? panel_->selectedItemID() : std::nullopt;
    return selected ? row(*selected) : QAccessible::queryAccessibleInterface(widget());
}

QAccessible::State AccessibleHistoryList::state() const
{
    QAccessible::State state = AccessiblePanelNode::state();
    state.focused = hasKeyboard();
    return state;
}

QString AccessibleHistoryList::text(QAccessible::Text kind) const
{
    if (kind != QAccessible::Description || !shownHistory().empty())
        return AccessiblePanelNode::text(kind);
    // An empty list is read out with the messages that are to be seen in it.
    QStringList messages;
    for (int index = 0; index < childCount(); ++index)
        messages.append(child(index)->text(QAccessible::Name));
    return messages.join(QStringLiteral(". "));
}

// What changes

void AccessibleHistoryList::announce(UUID id, QAccessible::Event event) const
{
    QAccessibleEvent announcement(row(id), event);
    QAccessible::updateAccessibility(&announcement);
}

void AccessibleHistoryList::announceFocus() const
{
    if (QAccessibleInterface* focused = focusChild()) {
        QAccessibleEvent announcement(focused, QAccessible::Focus);
        QAccessible::updateAccessibility(&announcement);
    }
}

void AccessibleHistoryList::selectionDidChange(std::optional<UUID> before)
{
    const auto now = panel_->selectedItemID();
    if (now == before)
        return;
    if (before && panel_->list().item(*before) != nullptr)
        announce(*before, QAccessible::SelectionRemove);
    if (now)
        announce(*now, QAccessible::SelectionAdd);
    announceFocus();
}

void AccessibleHistoryList::announceRemoval(std::size_t position)
{
    announce((*announced_)[position].id, QAccessible::ObjectDestroyed);
    announced_->erase(announced_->begin() + static_cast<std::ptrdiff_t>(position));
}

void AccessibleHistoryList::announceInsertion(std::size_t position, const Shown& item)
{
    announced_->insert(announced_->begin() + static_cast<std::ptrdiff_t>(position), item);
    announce(item.id, QAccessible::ObjectCreated);
}

std::optional<std::size_t> AccessibleHistoryList::announcedPosition(UUID id) const
{
    const auto found = std::find_if(announced_->begin(), announced_->end(),
                                    [id](const Shown& item) { return item.id == id; });
    if (found == announced_->end())
        return std::nullopt;
    return static_cast<std::size_t>(found - announced_->begin());
}

void AccessibleHistoryList::itemsDidChange()
{
    const std::vector<Shown> items = currentItems();
    if (!announced_) {
        announced_ = items;
        return;
    }
    announceGoneItems();
    announcePins();
    announcePlaces(items);
}

void AccessibleHistoryList::announceGoneItems()
{
    for (std::size_t position = announced_->size(); position-- > 0;) {
        const UUID id = (*announced_)[position].id;
        if (panel_->list().item(id) != nullptr)
            continue;
        announceRemoval(position);
        QAccessible::deleteAccessibleInterface(rows_.extract(id).mapped());
    }
}

void AccessibleHistoryList::announcePins()
{
    for (std::size_t position = announced_->size(); position-- > 0;) {
        const auto [id, wasPinned] = (*announced_)[position];
        if (panel_->list().isPinned(id) == wasPinned)
            continue;
        announce(id, QAccessible::DescriptionChanged);
        announceRemoval(position); // It has another place now, and is missed there.
    }
}

void AccessibleHistoryList::announcePlaces(const std::vector<Shown>& items)
{
    bool isSelectedRowMoved = false;
    for (std::size_t position = 0; position < items.size(); ++position) {
        const UUID id = items[position].id;
        const auto before = announcedPosition(id);
        if (before == position)
            continue;
        if (before)
            announceRemoval(*before);
        announceInsertion(position, items[position]);
        isSelectedRowMoved = isSelectedRowMoved || id == panel_->selectedItemID();
    }
    // Who has been told that the row with the focus was removed is told where the focus is.
    if (isSelectedRowMoved)
        announceFocus();
}

} // namespace tessel
