#include "Panel/PanelKeyMap.h"

namespace tessel {

std::optional<PanelAction> panelAction(const KeyEvent& event)
{
    const bool command = contains(event.modifierFlags, ModifierFlags::command);
    switch (event.keyCode) {
    case VirtualKey::upArrow:
        return PanelAction::up;
    case VirtualKey::downArrow:
        return PanelAction::down;
    case VirtualKey::returnKey:
    case VirtualKey::keypadEnter:
        return PanelAction::enter;
    case VirtualKey::escape:
        return PanelAction::escape;
    case VirtualKey::deleteKey:
    case VirtualKey::forwardDelete:
        return command ? std::optional(PanelAction::deleteItem) : std::nullopt;
    case VirtualKey::p:
        return command ? std::optional(PanelAction::pinToggle) : std::nullopt;
    default:
        return std::nullopt;
    }
}

} // namespace tessel
