#pragma once

#include <optional>
#include <ostream>

#include "ChildProcess.h"
#include "TemporaryDirectory.h"
#include "XConnection.h"

namespace tessel::desktop {

/// `blurringKwin` is kwin with its blur, which it would not use without a graphics card.
enum class WindowManagerChoice { none, openbox, xfwm4, i3, kwin, blurringKwin };

/// For the names of tests.
std::ostream& operator<<(std::ostream& stream, WindowManagerChoice choice);

/// A window manager with a small configuration of its own and hardly a key binding.
class WindowManager {
public:
    /// Starts one, which must not be `none`, and returns when it manages the screen
    /// (`_NET_SUPPORTING_WM_CHECK`, EWMH) and, where it is one that composites, composites it.
    WindowManager(WindowManagerChoice choice, XConnection& connection, const TemporaryDirectory& directory,
                  const Environment& environment);

    /// Ends it as a crash does, and returns when it is gone.
    void kill();

    /// Does Alt+Tab activate the other application? It is the only key that window managers have here.
    static bool switchesByKeys(WindowManagerChoice choice);
    /// Does any window manager manage the screen?
    static bool isRunning(XConnection& connection);

private:
    std::optional<ChildProcess> process_;
};

} // namespace tessel::desktop
