#pragma once

#include <optional>
#include <unordered_map>
#include <vector>

#include <QtCore/QPointer>

#include "Accessibility/AccessiblePanelNode.h"
#include "History/HistoryRules.h"
#include "Support/UUID.h"

namespace tessel {

class ClipboardPanelView;
class KeyCaptureView;

/// The panel's list as assistive programs see it: the view that has the keyboard focus, with a child for each
/// entry of the history, or with the messages that an empty history has instead. The sections' captions are
/// no children: whether an entry is pinned is told with the entry.
///
/// Whoever shows the list tells of its changes, which are announced to those programs.
class AccessibleHistoryList final : public AccessiblePanelNode {
public:
    /// `view` holds the keyboard focus of `panel`.
    AccessibleHistoryList(KeyCaptureView& view, ClipboardPanelView& panel);
    ~AccessibleHistoryList() override;

    /// The list of a panel to tell of changes. Null while no assistive program is there, and then nothing of
    /// all this costs anything.
    static AccessibleHistoryList* ofInterest(const ClipboardPanelView& panel);

    /// Entries have come, gone, moved, been pinned or unpinned.
    void itemsDidChange();
    /// Another entry is selected, or none.
    void selectionDidChange(std::optional<UUID> before);
    /// Tells who has the focus here: the list has got it, or got it back from a menu. Nothing while it has
    /// not.
    void announceFocus() const;

    /// True while the user's keys arrive here, and not in a menu.
    bool hasKeyboard() const;

    QAccessibleInterface* child(int index) const override;
    int childCount() const override;
    int indexOfChild(const QAccessibleInterface* child) const override;
    QAccessibleInterface* childAt(int x, int y) const override;
    /// The selected row, while it is this list that has the focus.
    QAccessibleInterface* focusChild() const override;
    QAccessible::State state() const override;
    QString text(QAccessible::Text kind) const override;

private:
    struct Shown {
        UUID id;
        bool isPinned;
    };

    std::vector<Shown> currentItems() const;
    /// The entries in their order; none while the panel is hidden.
    const History& shownHistory() const;
    /// Who has read what there is hears of every change from then on.
    void noteReading() const;
    /// The row of an entry, made when it is first asked for. It stays the same while the entry is there.
    QAccessibleInterface* row(UUID id) const;
    void announce(UUID id, QAccessible::Event event) const;
    void announceGoneItems();
    void announcePins();
    void announcePlaces(const std::vector<Shown>& items);
    void announceRemoval(std::size_t position);
    void announceInsertion(std::size_t position, const Shown& item);
    std::optional<std::size_t> announcedPosition(UUID id) const;

    QPointer<ClipboardPanelView> panel_;
    mutable std::unordered_map<UUID, QAccessible::Id> rows_;
    /// What assistive programs have read or been told. None: nothing yet.
    mutable std::optional<std::vector<Shown>> announced_;
};

} // namespace tessel
