#pragma once

#include <string>

#include "ChildProcess.h"
#include "Desktop.h"

namespace tessel::desktop {

/// Waits for a client program's window with this title, and fails at once if the program ends meanwhile.
xcb_window_t awaitClientWindow(Desktop& desktop, ChildProcess& process, const std::string& title);

} // namespace tessel::desktop
