#pragma once

#include <string>
#include <string_view>

#include "X11/X11Connection.h"

namespace tessel {

/// Tells the desktop that what it started, or asked of this program, with `identifier` is there: it ends the
/// busy pointer (Startup Notification Protocol, "remove"). An empty identifier, and one that is longer than
/// any launcher makes them, is left alone.
void completeStartup(X11Connection& connection, std::string_view identifier);

/// The text of that message.
std::string completionMessage(std::string_view identifier);

} // namespace tessel
