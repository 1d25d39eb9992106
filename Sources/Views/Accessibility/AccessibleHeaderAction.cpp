#include "Accessibility/AccessibleHeaderAction.h"

#include "Panel/HeaderAction.h"

namespace tessel {

AccessibleHeaderAction::AccessibleHeaderAction(HeaderAction& action)
    : AccessiblePanelNode(&action, QAccessible::Button)
{}

QStringList AccessibleHeaderAction::actionNames() const
{
    return {pressAction()};
}

void AccessibleHeaderAction::doAction(const QString& name)
{
    if (name == pressAction())
        static_cast<HeaderAction*>(widget())->click();
}

} // namespace tessel
