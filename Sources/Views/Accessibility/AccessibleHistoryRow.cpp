#include "Accessibility/AccessibleHistoryRow.h"

#include <QtGui/QWindow>

#include "Accessibility/AccessibleHistoryList.h"
#include "Panel/ClipboardPanelView.h"
#include "Panel/KeyCaptureView.h"
#include "Panel/RowText.h"
#include "Panel/RowTitle.h"
#include "Panel/TimeText.h"
#include "Support/CoreText.h"

namespace tessel {

namespace {

/// Kind, pinned state and time, for example "Text, pinned, 14:05".
QString details(const ClipboardItem& item, bool isPinned)
{
    const QString kind = coreText(kindLabel(item));
    const QString time = timeText(item.date);
    //: An entry's kind and the time at which it was copied.
    return isPinned ? AccessibleHistoryRow::tr("%1, pinned, %2").arg(kind, time)
                    : AccessibleHistoryRow::tr("%1, %2").arg(kind, time);
}

/// The same words as in the row, of which more may be read out than fits in.
QString title(const ClipboardItem& item)
{
    if (item.isImage())
        return coreText(rowTitle(item));
    return drawableTitle(QString::fromStdString(rowTitle(item)));
}

} // namespace

AccessibleHistoryRow::AccessibleHistoryRow(ClipboardPanelView& panel, UUID id)
    : panel_(&panel)
    , id_(id)
{}

bool AccessibleHistoryRow::isValid() const
{
    return panel_ != nullptr;
}

const ClipboardItem* AccessibleHistoryRow::item() const
{
    return panel_ && panel_->isVisible() ? panel_->list().item(id_) : nullptr;
}

QWindow* AccessibleHistoryRow::window() const
{
    return panel_ ? panel_->window()->windowHandle() : nullptr;
}

QAccessibleInterface* AccessibleHistoryRow::parent() const
{
    return panel_ ? QAccessible::queryAccessibleInterface(&panel_->keyCapture()) : nullptr;
}

QRect AccessibleHistoryRow::rect() const
{
    const auto rectangle = panel_ ? panel_->list().rowRectangle(id_) : std::nullopt;
    return rectangle ? rectangle->translated(panel_->list().mapToGlobal(QPoint(0, 0))) : QRect();
}

QAccessible::State AccessibleHistoryRow::state() const
{
    QAccessible::State state;
    const auto* list = static_cast<const AccessibleHistoryList*>(parent());
    const auto rectangle = panel_ ? panel_->list().rowRectangle(id_) : std::nullopt;
    if (list == nullptr || !rectangle) {
        state.invalid = true;
        state.invisible = true;
        return state;
    }
    state.selectable = true;
    state.focusable = true;
    state.selected = panel_->selectedItemID() == id_;
    state.focused = state.selected && list->hasKeyboard();
    state.offscreen = !rectangle->intersects(panel_->list().rect());
    state.invisible = !panel_->list().isVisible();
    return state;
}

QString AccessibleHistoryRow::text(QAccessible::Text kind) const
{
    const ClipboardItem* shown = item();
    if (shown == nullptr)
        return {};
    switch (kind) {
    case QAccessible::Name:
        return title(*shown);
    case QAccessible::Description:
        return details(*shown, panel_->list().isPinned(id_));
    default:
        return {};
    }
}

void* AccessibleHistoryRow::interface_cast(QAccessible::InterfaceType type)
{
    return type == QAccessible::ActionInterface ? static_cast<QAccessibleActionInterface*>(this) : nullptr;
}

QStringList AccessibleHistoryRow::actionNames() const
{
    return {pressAction(), setFocusAction(), showMenuAction()};
}

void AccessibleHistoryRow::doAction(const QString& name)
{
    if (item() == nullptr)
        return;
    if (name == pressAction())
        return panel_->pasteItem(id_);
    if (name != setFocusAction() && name != showMenuAction())
        return;
    // Who asks a row that has the focus to take it wants to hear of it.
    if (auto* list = AccessibleHistoryList::ofInterest(*panel_); list != nullptr && state().selected)
        list->announceFocus();
    panel_->selectItem(id_);
    panel_->list().reveal(id_);
    if (name == showMenuAction())
        panel_->showContextMenuOfSelectedRow();
}

QStringList AccessibleHistoryRow::keyBindingsForAction(const QString& name) const
{
    const auto binding = [](const QKeySequence& keys) {
        return QStringList{keys.toString(QKeySequence::NativeText)};
    };
    if (name == pressAction())
        return binding(Qt::Key_Return);
    if (name == showMenuAction())
        return binding(Qt::SHIFT | Qt::Key_F10);
    return {};
}

} // namespace tessel
