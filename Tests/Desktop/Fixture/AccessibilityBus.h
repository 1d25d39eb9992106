#pragma once

#include "ChildProcess.h"
#include "Desktop.h"

namespace tessel::desktop {

/// The accessibility bus of a desktop (at-spi2-core), over which assistive programs read others. It ends with
/// this object.
class AccessibilityBus {
public:
    /// What the desktop says to programs (`org.a11y.Status`): are there assistive programs?
    enum class Status { disabled, enabled };

    /// Returns when programs can find it. The desktop must have a session bus.
    AccessibilityBus(Desktop& desktop, Status status);

    /// What the desktop says from now on.
    void setStatus(Status status);

private:
    Desktop& desktop_;
    ChildProcess launcher_;
};

} // namespace tessel::desktop
