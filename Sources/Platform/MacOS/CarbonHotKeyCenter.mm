#import "CarbonHotKeyCenter.h"

#include <bit>
#include <utility>

#include <Carbon/Carbon.h>

namespace tessel {

namespace {

/// The identifier that an event carries. None: it cannot be read.
std::optional<EventHotKeyID> directObject(EventRef event)
{
    ::EventHotKeyID identifier = {};
    const OSStatus status = GetEventParameter(event, kEventParamDirectObject, typeEventHotKeyID, nullptr,
                                              sizeof identifier, nullptr, &identifier);
    if (status != noErr)
        return std::nullopt;
    return EventHotKeyID{identifier.signature, identifier.id};
}

} // namespace

struct CarbonHotKeyCenter::Installation {
    Handler handler;
    EventHandlerRef reference = nullptr;

    static OSStatus handle(EventHandlerCallRef, EventRef event, void* userData)
    {
        if (event == nullptr || userData == nullptr)
            return noErr;
        return static_cast<Installation*>(userData)->handler(directObject(event));
    }
};

CarbonHotKeyCenter::CarbonHotKeyCenter() = default;
CarbonHotKeyCenter::~CarbonHotKeyCenter() = default;

std::optional<HotKeyHandlerRef> CarbonHotKeyCenter::installEventHandler(Handler handler)
{
    auto installation = std::make_unique<Installation>();
    installation->handler = std::move(handler);
    const EventTypeSpec pressed = {kEventClassKeyboard, kEventHotKeyPressed};
    const OSStatus status = InstallEventHandler(GetApplicationEventTarget(), &Installation::handle, 1,
                                                &pressed, installation.get(), &installation->reference);
    if (status != noErr)
        return std::nullopt;
    const auto reference = std::bit_cast<HotKeyHandlerRef>(installation->reference);
    installations_[reference] = std::move(installation);
    return reference;
}

void CarbonHotKeyCenter::removeEventHandler(HotKeyHandlerRef handler)
{
    RemoveEventHandler(std::bit_cast<EventHandlerRef>(handler));
    installations_.erase(handler);
}

std::optional<HotKeyRef> CarbonHotKeyCenter::registerEventHotKey(std::uint32_t keyCode,
                                                                 std::uint32_t modifiers,
                                                                 EventHotKeyID identifier)
{
    // Whether the system has refused shows in the reference.
    EventHotKeyRef reference = nullptr;
    RegisterEventHotKey(keyCode, modifiers, {identifier.signature, identifier.id},
                        GetApplicationEventTarget(), 0, &reference);
    return reference != nullptr ? std::optional(std::bit_cast<HotKeyRef>(reference)) : std::nullopt;
}

void CarbonHotKeyCenter::unregisterEventHotKey(HotKeyRef hotKey)
{
    UnregisterEventHotKey(std::bit_cast<EventHotKeyRef>(hotKey));
}

} // namespace tessel
