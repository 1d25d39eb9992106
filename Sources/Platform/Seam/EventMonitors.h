#pragma once

#include <cstdint>
#include <functional>
#include <optional>

#include "KeyEvent.h"

namespace tessel {

/// What becomes of an event that a monitor has seen.
enum class EventOutcome {
    passOn,   ///< The event goes on unchanged.
    consumed, ///< The event goes no further.
};

/// An opaque monitor installation.
enum class EventMonitorToken : std::uint64_t {};

/// Monitors of the events that are delivered to this application (`NSEvent
/// addLocalMonitorForEventsMatchingMask:`).
class EventMonitors {
public:
    using Handler = std::function<EventOutcome(const KeyEvent&)>;

    /// Event mask of key-down events: 1 << 10.
    static constexpr std::uint64_t keyDownMask = 1024;

    virtual ~EventMonitors() = default;

    /// The handler runs on the main thread before the event reaches the focused view. None: refused.
    virtual std::optional<EventMonitorToken> addLocalMonitor(std::uint64_t mask, Handler handler) = 0;
    virtual void removeMonitor(EventMonitorToken token) = 0;
};

} // namespace tessel
