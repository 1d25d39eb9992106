#pragma once

#include <optional>

#include "KeyEvent.h"

namespace tessel {

/// What a key does in the panel.
enum class PanelAction { up, down, enter, escape, deleteItem, pinToggle };

/// The action of a key press. None: the key is not the panel's and goes on along the responder chain. Of the
/// modifiers only Command is ever looked at.
std::optional<PanelAction> panelAction(const KeyEvent& event);

} // namespace tessel
