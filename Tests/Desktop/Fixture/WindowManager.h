#pragma once

#include "ChildProcess.h"
#include "TemporaryDirectory.h"
#include "XConnection.h"

namespace tessel::desktop {

/// The window manager openbox with a small configuration of its own and no key bindings.
class WindowManager {
public:
    /// Returns when it manages the screen (`_NET_SUPPORTING_WM_CHECK`, EWMH).
    WindowManager(XConnection& connection, const TemporaryDirectory& directory,
                  const Environment& environment);

private:
    ChildProcess process_;
};

} // namespace tessel::desktop
