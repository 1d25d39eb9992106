#pragma once

#include <cstdint>
#include <functional>
#include <optional>

namespace tessel {

/// Identifies a hot key to its handler (`EventHotKeyID`).
struct EventHotKeyID {
    std::uint32_t signature = 0; ///< A four-character code.
    std::uint32_t id = 0;

    friend bool operator==(const EventHotKeyID&, const EventHotKeyID&) = default;
};

/// An opaque registration of one combination (`EventHotKeyRef`).
enum class HotKeyRef : std::uint64_t {};
/// An opaque handler installation (`EventHandlerRef`).
enum class HotKeyHandlerRef : std::uint64_t {};

/// System-wide key combinations (Carbon event manager; passive key grabs on X11).
class HotKeyCenter {
public:
    /// Runs on the main thread for each hot-key-pressed event. Its argument is the event's direct object, or
    /// none when the event or that parameter could not be read. Returns a status; 0 means handled.
    using Handler = std::function<std::int32_t(std::optional<EventHotKeyID>)>;

    virtual ~HotKeyCenter() = default;

    /// Installs an application-level handler for (keyboard class, hot-key-pressed kind). None: refused.
    virtual std::optional<HotKeyHandlerRef> installEventHandler(Handler handler) = 0;
    virtual void removeEventHandler(HotKeyHandlerRef handler) = 0;

    /// Registers a combination: `keyCode` is a virtual key code of the ANSI layout, `modifiers` a Carbon
    /// modifier mask
    /// (`cmdKey` 0x0100, `shiftKey` 0x0200, `optionKey` 0x0800, `controlKey` 0x1000). None: refused.
    virtual std::optional<HotKeyRef> registerEventHotKey(std::uint32_t keyCode, std::uint32_t modifiers,
                                                         EventHotKeyID identifier) = 0;
    virtual void unregisterEventHotKey(HotKeyRef hotKey) = 0;
};

} // namespace tessel
