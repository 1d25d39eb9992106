#pragma once

#include <functional>
#include <memory>
#include <optional>

#include "HotKey/HotKeyPreset.h"
#include "HotKeyCenter.h"

namespace tessel {

/// Owns the registration of the global hot key, from construction to destruction. A refused registration is
/// not reported.
class HotKeyManager {
public:
    /// The identifier of every registration: signature "CLIP", id 1.
    static constexpr EventHotKeyID identifier = {0x434C4950, 1};

    /// Installs the event handler, then registers the preset. `onHotKey` runs on the main thread, inside the
    /// event's dispatch, for each press.
    HotKeyManager(std::shared_ptr<HotKeyCenter> center, HotKeyPreset preset, std::function<void()> onHotKey);
    ~HotKeyManager();
    HotKeyManager(const HotKeyManager&) = delete;
    HotKeyManager& operator=(const HotKeyManager&) = delete;

    /// Registers another preset in place of the current one. Does nothing when it is the current one.
    void updatePreset(HotKeyPreset preset);

    HotKeyPreset preset() const { return preset_; }

private:
    void installEventHandlerIfNeeded();
    void registerHotKey();
    void unregisterHotKey();

    std::optional<HotKeyRef> hotKeyRef_;
    std::optional<HotKeyHandlerRef> eventHandler_;
    std::function<void()> onHotKey_;
    HotKeyPreset preset_;
    std::shared_ptr<HotKeyCenter> center_;
};

} // namespace tessel
