#include "ClientWindow.h"

namespace tessel::desktop {

xcb_window_t awaitClientWindow(Desktop& desktop, ChildProcess& process, const std::string& title)
{
    std::optional<WindowFacts> found;
    desktop.connection().waitUntil("the window of " + title, [&] {
        if (!process.isRunning())
            throw DesktopFailure(process.name() + " ended; it said: " + process.errorOutput());
        found = desktop.windows().find([&](const WindowFacts& window) {
            return isViewableWindowOf(process.pid())(window) && window.title == title;
        });
        return found.has_value();
    });
    return found->window;
}

} // namespace tessel::desktop
