#pragma once

#include <QtCore/QCoreApplication>
#include <QtCore/QPointer>
#include <QtGui/QAccessible>

#include "History/ClipboardItem.h"
#include "Support/UUID.h"

namespace tessel {

class ClipboardPanelView;

/// An entry of the history as assistive programs see it; no widget belongs to it. Its name is the title of
/// its row, its description the kind, whether it is pinned, and the time. Its default action pastes it.
class AccessibleHistoryRow final : public QAccessibleInterface, public QAccessibleActionInterface {
    Q_DECLARE_TR_FUNCTIONS(AccessibleHistoryRow)

public:
    AccessibleHistoryRow(ClipboardPanelView& panel, UUID id);

    UUID id() const { return id_; }

    /// As long as the panel is there: the end of an entry is told in its name.
    bool isValid() const override;
    QObject* object() const override { return nullptr; }
    QWindow* window() const override;
    QAccessibleInterface* parent() const override;
    QAccessibleInterface* child(int) const override { return nullptr; }
    int childCount() const override { return 0; }
    int indexOfChild(const QAccessibleInterface*) const override { return -1; }
    QAccessibleInterface* childAt(int, int) const override { return nullptr; }
    QAccessible::Role role() const override { return QAccessible::ListItem; }
    /// Where the row is on the screen, or would be if it were not scrolled out of view.
    QRect rect() const override;
    QAccessible::State state() const override;
    QString text(QAccessible::Text kind) const override;
    void setText(QAccessible::Text, const QString&) override {}
    void* interface_cast(QAccessible::InterfaceType type) override;

    QStringList actionNames() const override;
    void doAction(const QString& name) override;
    QStringList keyBindingsForAction(const QString& name) const override;

private:
    /// Null: the entry is gone.
    const ClipboardItem* item() const;

    QPointer<ClipboardPanelView> panel_;
    UUID id_;
};

} // namespace tessel
