#include "Accessibility/PanelAccessibility.h"

#include "Accessibility/AccessibleHeaderAction.h"
#include "Accessibility/AccessibleHistoryList.h"
#include "Accessibility/AccessiblePanelNode.h"
#include "Panel/ClipboardPanelView.h"
#include "Panel/ClipboardPanelWindow.h"
#include "Panel/HeaderAction.h"
#include "Panel/KeyCaptureView.h"
#include "Panel/PanelLabel.h"

namespace tessel {

namespace {

QAccessible::Role role(const PanelLabel& label)
{
    return label.purpose() == PanelLabel::Purpose::heading ? QAccessible::Heading : QAccessible::StaticText;
}

/// Null: the toolkit's own description will do.
QAccessibleInterface* describe(const QString& /*className*/, QObject* object)
{
    if (auto* window = qobject_cast<ClipboardPanelWindow*>(object))
        return new AccessiblePanelNode(window, QAccessible::Window);
    if (auto* label = qobject_cast<PanelLabel*>(object))
        return new AccessiblePanelNode(label, role(*label));
    if (auto* action = qobject_cast<HeaderAction*>(object))
        return new AccessibleHeaderAction(*action);
    auto* keyCapture = qobject_cast<KeyCaptureView*>(object);
    auto* panel =
        keyCapture != nullptr ? qobject_cast<ClipboardPanelView*>(keyCapture->parentWidget()) : nullptr;
    return panel != nullptr ? new AccessibleHistoryList(*keyCapture, *panel) : nullptr;
}

} // namespace

void installPanelAccessibility()
{
    QAccessible::installFactory(describe);
}

} // namespace tessel
