#pragma once

#include "Accessibility/AccessiblePanelNode.h"

namespace tessel {

class HeaderAction;

/// A button of the panel's header. It can be pressed, although it never takes the keyboard focus.
class AccessibleHeaderAction final : public AccessiblePanelNode {
public:
    explicit AccessibleHeaderAction(HeaderAction& action);

    QStringList actionNames() const override;
    void doAction(const QString& name) override;
};

} // namespace tessel
