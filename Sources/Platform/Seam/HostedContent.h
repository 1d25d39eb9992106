#pragma once

#include <optional>

#include "NativeWindows.h"

namespace tessel {

/// What the view toolkit shows in a window of the system's own. The window owns it, and lets it go on a later
/// turn of the main loop than the one in which it is closed.
class HostedContent {
public:
    virtual ~HostedContent() = default;

    /// The content's native view, which fills the window. Lives as long as this object.
    virtual NativeWindowHandle view() const = 0;
    /// A view of the system's own behind it, which fills the window, too. None: there is nothing behind it.
    virtual std::optional<NativeWindowHandle> background() const = 0;

    /// The window is about to be shown. It may be on the screen already.
    virtual void windowWillShow() = 0;
    virtual void windowDidClose() = 0;
};

} // namespace tessel
