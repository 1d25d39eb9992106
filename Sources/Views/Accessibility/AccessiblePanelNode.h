#pragma once

#include <QtWidgets/QAccessibleWidget>

namespace tessel {

/// A widget of the panel as assistive programs see it. The panel's tree has only what means something to its
/// reader: widgets that group others, or only decorate, are left out of it, and what they hold belongs to the
/// next node above them.
class AccessiblePanelNode : public QAccessibleWidget {
public:
    using QAccessibleWidget::QAccessibleWidget;

    QAccessibleInterface* parent() const override;
    QAccessibleInterface* child(int index) const override;
    int childCount() const override;
    int indexOfChild(const QAccessibleInterface* child) const override;
    /// The name of a label or a button is its text.
    QString text(QAccessible::Text kind) const override;
};

} // namespace tessel
