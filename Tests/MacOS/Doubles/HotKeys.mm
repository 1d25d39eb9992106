#include <Carbon/Carbon.h>

#include <algorithm>
#include <cstring>
#include <list>
#include <vector>

#include <gtest/gtest.h>

#import "Doubles/Message.h"
#import "Doubles/Reply.h"
#include "Support/CallScript.h"
#include "Support/System.h"

using namespace tessel::test;

struct OpaqueEventTargetRef {};

struct OpaqueEventHandlerRef {
    EventHandlerUPP handler;
    std::vector<EventTypeSpec> types;
    void* userData;
};

struct OpaqueEventHotKeyRef {};

struct OpaqueEventRef {
    EventHotKeyID identifier;
};

namespace {

constexpr OSStatus notHandled = -9874;

OpaqueEventTargetRef applicationTarget;

std::list<OpaqueEventHandlerRef>& handlers()
{
    static auto* installed = new std::list<OpaqueEventHandlerRef>;
    return *installed;
}

std::list<OpaqueEventHotKeyRef>& hotKeys()
{
    static auto* registered = new std::list<OpaqueEventHotKeyRef>;
    return *registered;
}

Word describeAddress(const void* address, const char* name)
{
    return {address != nullptr ? name : "NULL"};
}

Word describeTarget(EventTargetRef target)
{
    return {target == &applicationTarget ? "application target" : "another target"};
}

Word describeIdentifier(EventHotKeyID identifier)
{
    return {"{" + describe(FourCharacterCode{identifier.signature}) + ", " + describe(identifier.id) + "}"};
}

Word describeTypes(ItemCount count, const EventTypeSpec* types)
{
    std::string text;
    for (ItemCount index = 0; index < count; ++index)
        text += "{" + describe(FourCharacterCode{types[index].eventClass}) + ", " +
                describe(types[index].eventKind) + "}";
    return {text};
}

/// Removes what the reference stands for. Fails the test when that is nothing.
template <class Registration>
void remove(std::list<Registration>& registrations, const Registration* reference, const char* kind)
{
    CallScript::current().givenBack(kind);
    const auto removed =
        registrations.remove_if([reference](const Registration& other) { return &other == reference; });
    if (removed != 1)
        ADD_FAILURE() << "Given back was another " << kind;
}

bool hearsOfPressedHotKeys(const OpaqueEventHandlerRef& installed)
{
    return std::any_of(installed.types.begin(), installed.types.end(), [](EventTypeSpec type) {
        return type.eventClass == kEventClassKeyboard && type.eventKind == kEventHotKeyPressed;
    });
}

OSStatus callHandler(EventRef event, bool withUserData)
{
    const auto installed = std::find_if(handlers().begin(), handlers().end(), hearsOfPressedHotKeys);
    if (installed == handlers().end())
        return notHandled;
    return installed->handler(nullptr, event, withUserData ? installed->userData : nullptr);
}

} // namespace

extern "C" {

EventTargetRef GetApplicationEventTarget(void)
{
    Reply(call("GetApplicationEventTarget")).nothing();
    return &applicationTarget;
}

OSStatus InstallEventHandler(EventTargetRef target, EventHandlerUPP handler, ItemCount typeCount,
                             const EventTypeSpec* types, void* userData, EventHandlerRef* handlerRef)
{
    const auto status = static_cast<OSStatus>(
        Reply(call("InstallEventHandler", describeTarget(target),
                   Word{handler != nullptr ? "handler" : "NULL"}, typeCount, describeTypes(typeCount, types),
                   describeAddress(userData, "user data"), describeAddress(handlerRef, "&handlerRef")))
            .integer());
    if (status != noErr)
        return status;
    handlers().push_back({handler, {types, types + typeCount}, userData});
    *handlerRef = &handlers().back();
    CallScript::current().taken("event handler");
    return status;
}

OSStatus RemoveEventHandler(EventHandlerRef handler)
{
    remove(handlers(), handler, "event handler");
    return static_cast<OSStatus>(Reply(call("RemoveEventHandler", Word{"handlerRef"})).integer());
}

OSStatus RegisterEventHotKey(UInt32 keyCode, UInt32 modifiers, EventHotKeyID identifier,
                             EventTargetRef target, OptionBits options, EventHotKeyRef* hotKeyRef)
{
    const auto status = static_cast<OSStatus>(
        Reply(call("RegisterEventHotKey", keyCode, Mask{modifiers}, describeIdentifier(identifier),
                   describeTarget(target), options, describeAddress(hotKeyRef, "&hotKeyRef")))
            .integer());
    if (status != noErr)
        return status;
    *hotKeyRef = &hotKeys().emplace_back();
    CallScript::current().taken("hot key");
    return status;
}

OSStatus UnregisterEventHotKey(EventHotKeyRef hotKey)
{
    remove(hotKeys(), hotKey, "hot key");
    return static_cast<OSStatus>(Reply(call("UnregisterEventHotKey", Word{"hotKeyRef"})).integer());
}

OSStatus GetEventParameter(EventRef event, EventParamName name, EventParamType type,
                           EventParamType* actualType, ByteCount bufferSize, ByteCount* actualSize,
                           void* data)
{
    const auto status = static_cast<OSStatus>(
        Reply(call("GetEventParameter", describeAddress(event, "event"), FourCharacterCode{name},
                   FourCharacterCode{type}, describeAddress(actualType, "&actualType"), bufferSize,
                   describeAddress(actualSize, "&actualSize"), describeAddress(data, "&data")))
            .integer());
    if (status == noErr)
        std::memcpy(data, &event->identifier, std::min(bufferSize, sizeof event->identifier));
    return status;
}
}

namespace tessel::test {

std::int32_t pressHotKey(std::uint32_t signature, std::uint32_t id)
{
    OpaqueEventRef event = {{signature, id}};
    return callHandler(&event, true);
}

std::int32_t callHotKeyHandlerWithoutEvent()
{
    return callHandler(nullptr, true);
}

std::int32_t callHotKeyHandlerWithoutUserData()
{
    OpaqueEventRef event = {{0x434C4950, 1}};
    return callHandler(&event, false);
}

} // namespace tessel::test
