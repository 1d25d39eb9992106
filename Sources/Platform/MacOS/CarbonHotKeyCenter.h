#pragma once

#include <map>
#include <memory>

#include "HotKeyCenter.h"

namespace tessel {

/// The Carbon event manager, with the application's event target.
class CarbonHotKeyCenter final : public HotKeyCenter {
public:
    CarbonHotKeyCenter();
    ~CarbonHotKeyCenter() override;

    std::optional<HotKeyHandlerRef> installEventHandler(Handler handler) override;
    void removeEventHandler(HotKeyHandlerRef handler) override;
    std::optional<HotKeyRef> registerEventHotKey(std::uint32_t keyCode, std::uint32_t modifiers,
                                                 EventHotKeyID identifier) override;
    void unregisterEventHotKey(HotKeyRef hotKey) override;

private:
    struct Installation;
    /// The event manager keeps the address of each, and does not own it.
    std::map<HotKeyHandlerRef, std::unique_ptr<Installation>> installations_;
};

} // namespace tessel
