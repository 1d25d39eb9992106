#include "HotKey/HotKeyManager.h"

#include <utility>

#include "KeyEvent.h"

namespace tessel {

HotKeyManager::HotKeyManager(std::shared_ptr<HotKeyCenter> center, HotKeyPreset preset,
                             std::function<void()> onHotKey)
    : onHotKey_(std::move(onHotKey))
    , preset_(preset)
    , center_(std::move(center))
{
    installEventHandlerIfNeeded();
    registerHotKey();
}

HotKeyManager::~HotKeyManager()
{
    unregisterHotKey();
    if (eventHandler_)
        center_->removeEventHandler(*eventHandler_);
}

void HotKeyManager::updatePreset(HotKeyPreset preset)
{
    if (preset == preset_)
        return;
    preset_ = preset;
    unregisterHotKey();
    registerHotKey();
}

void HotKeyManager::installEventHandlerIfNeeded()
{
    if (eventHandler_)
        return;
    // The status is always 0, handled: the combination never reaches another application. The signature is
    // not compared.
    eventHandler_ =
        center_->installEventHandler([this](std::optional<EventHotKeyID> pressed) -> std::int32_t {
            if (pressed && pressed->id == identifier.id)
                onHotKey_();
            return 0;
        });
}

void HotKeyManager::registerHotKey()
{
    hotKeyRef_ = center_->registerEventHotKey(VirtualKey::v, carbonModifiers(preset_), identifier);
}

void HotKeyManager::unregisterHotKey()
{
    if (!hotKeyRef_)
        return;
    center_->unregisterEventHotKey(*hotKeyRef_);
    hotKeyRef_.reset();
}

} // namespace tessel
