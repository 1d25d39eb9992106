#include "Accessibility/AccessiblePanelNode.h"

#include <QtWidgets/QAbstractButton>

#include "Panel/HeaderAction.h"
#include "Panel/KeyCaptureView.h"
#include "Panel/PanelLabel.h"

namespace tessel {

namespace {

bool isNode(const QWidget* widget)
{
    return widget->isWindow() || qobject_cast<const PanelLabel*>(widget) != nullptr ||
           qobject_cast<const HeaderAction*>(widget) != nullptr ||
           qobject_cast<const KeyCaptureView*>(widget) != nullptr;
}

/// Adds the topmost nodes below a widget, in the order in which they were made.
void collectNodes(const QWidget& widget, QList<QWidget*>& nodes)
{
    for (QObject* child : widget.children()) {
        auto* childWidget = qobject_cast<QWidget*>(child);
        if (childWidget == nullptr || childWidget->isWindow())
            continue;
        if (isNode(childWidget))
            nodes.append(childWidget);
        else
            collectNodes(*childWidget, nodes);
    }
}

QList<QWidget*> nodesBelow(const QWidget& widget)
{
    QList<QWidget*> nodes;
    collectNodes(widget, nodes);
    return nodes;
}

} // namespace

QAccessibleInterface* AccessiblePanelNode::parent() const
{
    if (widget()->isWindow())
        return QAccessibleWidget::parent();
    QWidget* above = widget()->parentWidget();
    while (above != nullptr && !isNode(above))
        above = above->parentWidget();
    return QAccessible::queryAccessibleInterface(above);
}

QAccessibleInterface* AccessiblePanelNode::child(int index) const
{
    return QAccessible::queryAccessibleInterface(nodesBelow(*widget()).value(index));
}

int AccessiblePanelNode::childCount() const
{
    return static_cast<int>(nodesBelow(*widget()).size());
}

int AccessiblePanelNode::indexOfChild(const QAccessibleInterface* child) const
{
    const auto* childWidget = child != nullptr ? qobject_cast<QWidget*>(child->object()) : nullptr;
    return static_cast<int>(nodesBelow(*widget()).indexOf(childWidget));
}

QString AccessiblePanelNode::text(QAccessible::Text kind) const
{
    if (kind == QAccessible::Name) {
        if (const auto* label = qobject_cast<const QLabel*>(widget()))
            return label->text();
        if (const auto* button = qobject_cast<const QAbstractButton*>(widget()))
            return button->text();
    }
    return QAccessibleWidget::text(kind);
}

} // namespace tessel
