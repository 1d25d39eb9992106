#pragma once

#include <optional>
#include <string_view>

#include "RemoteControl.h"

namespace tessel {

/// The name of a command's action, as `org.freedesktop.Application` and the desktop entry use it.
std::string_view actionName(RemoteCommand command);
/// None: there is no such action.
std::optional<RemoteCommand> commandForAction(std::string_view name);

} // namespace tessel
