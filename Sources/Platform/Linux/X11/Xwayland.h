#pragma once

#include "X11/X11Connection.h"

namespace tessel {

/// Does this server show its windows on a Wayland compositor? It says so by an extension; before version 23
/// only by the names of its outputs.
bool isXwayland(const X11Connection& connection);

} // namespace tessel
