#include "X11/X11HotKeyCenter.h"

#include <algorithm>
#include <utility>

#include "X11/XkbProtocol.h"

namespace tessel {

X11HotKeyCenter::X11HotKeyCenter(std::shared_ptr<X11Connection> connection,
                                 std::shared_ptr<X11Keyboard> keyboard, std::shared_ptr<UserTime> userTime)
    : connection_(std::move(connection))
    , keyboard_(std::move(keyboard))
    , userTime_(std::move(userTime))
    , bits_(modifierBits(keyboard_->keymap()))
{
    if (!connection_->isAlive())
        return;
    // With this the server repeats presses of a held key without releases in between (XKB, per-client flags).
    if (connection_->extensions().xkb) {
        constexpr std::uint32_t flag = XCB_XKB_PER_CLIENT_FLAG_DETECTABLE_AUTO_REPEAT;
        const auto cookie =
            xcb_xkb_per_client_flags(connection_->raw(), XCB_XKB_ID_USE_CORE_KBD, flag, flag, 0, 0, 0);
        xcb_discard_reply(connection_->raw(), cookie.sequence);
    }
    keymapChanges_ = keyboard_->observeChanges([this] { keymapDidChange(); });
    events_ = connection_->observeEvents([this](const xcb_generic_event_t& event) { follow(event); });
}

X11HotKeyCenter::~X11HotKeyCenter()
{
    if (!connection_->isAlive())
        return;
    releaseGrabs();
    connection_->flush();
}

std::optional<HotKeyHandlerRef> X11HotKeyCenter::installEventHandler(Handler handler)
{
    if (!connection_->isAlive())
        return std::nullopt;
    const auto reference = HotKeyHandlerRef{++lastReference_};
    handlers_[reference] = std::move(handler);
    return reference;
}

void X11HotKeyCenter::removeEventHandler(HotKeyHandlerRef handler)
{
    handlers_.erase(handler);
}

std::optional<HotKeyRef> X11HotKeyCenter::registerEventHotKey(std::uint32_t keyCode, std::uint32_t modifiers,
                                                              EventHotKeyID identifier)
{
    if (!connection_->isAlive())
        return std::nullopt;
    const auto grab = grabFor(keyCode, modifiers);
    if (!grab || isTaken(*grab) || !takeGrab(*grab))
        return std::nullopt;
    const auto reference = HotKeyRef{++lastReference_};
    registrations_[reference] = {keyCode, modifiers, identifier, grab};
    return reference;
}

void X11HotKeyCenter::unregisterEventHotKey(HotKeyRef hotKey)
{
    const auto found = registrations_.find(hotKey);
    if (found == registrations_.end())
        return;
    if (found->second.grab && connection_->isAlive())
        requestRelease(*found->second.grab);
    registrations_.erase(found);
    connection_->flush();
}

std::optional<X11HotKeyCenter::Grab> X11HotKeyCenter::grabFor(std::uint32_t keyCode,
                                                              std::uint32_t carbonModifiers) const
{
    const auto key = keyForVirtualKeyCode(keyboard_->keymap(), keyCode);
    const auto modifiers = modifiersForCarbonMask(carbonModifiers, bits_);
    if (!key || !modifiers)
        return std::nullopt;
    return Grab{*key, *modifiers};
}

bool X11HotKeyCenter::isTaken(const Grab& grab) const
{
    return std::any_of(registrations_.begin(), registrations_.end(),
                       [&](const auto& entry) { return entry.second.grab == grab; });
}

bool X11HotKeyCenter::takeGrab(const Grab& grab)
{
    constexpr std::uint8_t eventsGoToOwner = 0;
    std::vector<xcb_void_cookie_t> cookies;
    for (const std::uint16_t modifiers : withEveryLockCombination(grab.modifiers, bits_))
        cookies.push_back(xcb_grab_key_checked(connection_->raw(), eventsGoToOwner, connection_->root(),
                                               modifiers, grab.key, XCB_GRAB_MODE_ASYNC,
                                               XCB_GRAB_MODE_ASYNC));
    bool isRefused = false;
    for (const auto cookie : cookies) {
        const X11Reply<xcb_generic_error_t> error(xcb_request_check(connection_->raw(), cookie));
        isRefused = isRefused || error;
    }
    if (isRefused)
        requestRelease(grab); // Part of a hot key is worse than none: it would depend on Caps Lock.
    connection_->flush();
    return !isRefused;
}

void X11HotKeyCenter::requestGrab(const Grab& grab)
{
    constexpr std::uint8_t eventsGoToOwner = 0;
    for (const std::uint16_t modifiers : withEveryLockCombination(grab.modifiers, bits_))
        xcb_grab_key(connection_->raw(), eventsGoToOwner, connection_->root(), modifiers, grab.key,
                     XCB_GRAB_MODE_ASYNC, XCB_GRAB_MODE_ASYNC);
}

void X11HotKeyCenter::requestRelease(const Grab& grab)
{
    for (const std::uint16_t modifiers : withEveryLockCombination(grab.modifiers, bits_))
        xcb_ungrab_key(connection_->raw(), grab.key, connection_->root(), modifiers);
}

void X11HotKeyCenter::releaseGrabs()
{
    for (const auto& [reference, registration] : registrations_)
        if (registration.grab)
            requestRelease(*registration.grab);
    // A press that is being held keeps the whole keyboard grabbed.
    xcb_ungrab_keyboard(connection_->raw(), XCB_CURRENT_TIME);
    heldKey_.reset();
}

void X11HotKeyCenter::restoreGrabs()
{
    for (const auto& [reference, registration] : registrations_)
        if (registration.grab)
            requestGrab(*registration.grab);
}

void X11HotKeyCenter::keymapDidChange()
{
    const ModifierBits bits = modifierBits(keyboard_->keymap());
    bool areAllGood = bits == bits_;
    for (const auto& [reference, registration] : registrations_)
        areAllGood = areAllGood && registration.grab &&
                     registration.grab == grabFor(registration.keyCode, registration.carbonModifiers);
    if (areAllGood)
        return;
    for (auto& [reference, registration] : registrations_)
        if (const auto old = std::exchange(registration.grab, std::nullopt))
            requestRelease(*old);
    bits_ = bits;
    for (auto& [reference, registration] : registrations_) {
        const auto grab = grabFor(registration.keyCode, registration.carbonModifiers);
        if (grab && !isTaken(*grab) && takeGrab(*grab))
            registration.grab = grab;
    }
    connection_->flush();
}

void X11HotKeyCenter::follow(const xcb_generic_event_t& event)
{
    switch (eventKind(event)) {
    case XCB_KEY_PRESS:
        return keyPressed(eventAs<xcb_key_press_event_t>(event));
    case XCB_KEY_RELEASE:
        if (heldKey_ == eventAs<xcb_key_release_event_t>(event).detail)
            heldKey_.reset();
        return;
    default:
        return;
    }
}

void X11HotKeyCenter::keyPressed(const xcb_key_press_event_t& event)
{
    const Grab pressed{event.detail, withoutLocks(event.state, bits_)};
    const auto found = std::find_if(registrations_.begin(), registrations_.end(),
                                    [&](const auto& entry) { return entry.second.grab == pressed; });
    if (found == registrations_.end() || heldKey_ == event.detail)
        return;
    heldKey_ = event.detail;
    userTime_->note(event.time);
    const EventHotKeyID identifier = found->second.identifier;
    const auto handlers = handlers_; // A handler may register, unregister, or remove itself.
    for (const auto& [reference, handler] : handlers)
        handler(identifier);
}

} // namespace tessel
