#pragma once

#include <functional>

#include "Token.h"

namespace tessel {

/// Whether other applications are ignored when this one is activated.
enum class IgnoringOtherApps { no, yes };

/// This application, as the system sees it (`NSApplication`).
class Application {
public:
    virtual ~Application() = default;

    /// `activateIgnoringOtherApps:`. Asks for this application to become the active one.
    virtual void activate(IgnoringOtherApps ignoring) = 0;
    /// `terminate:`. Ends the application on a later turn of the main loop.
    virtual void terminate() = 0;
    /// True while the user's focus is in a window of this application.
    virtual bool isActive() const = 0;
    /// Runs after `isActive` has changed, on the main thread.
    virtual Token observeActivity(std::function<void()> didChange) = 0;
};

} // namespace tessel
