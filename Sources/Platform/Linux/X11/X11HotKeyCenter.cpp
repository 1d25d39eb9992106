#include "X11/X11HotKeyCenter.h"

#include <algorithm>
#include <utility>

#include <QtWidgets/QApplication>
#include <xcb/xinput.h>

#include "KeyEvent.h"
#include "X11/KeyboardDevices.h"
#include "X11/XkbProtocol.h"

namespace tessel {

namespace {

std::uint8_t inputOpcode(const X11Connection& connection)
{
    return xcb_get_extension_data(connection.raw(), &xcb_input_id)->major_opcode;
}

} // namespace

X11HotKeyCenter::X11HotKeyCenter(std::shared_ptr<X11Connection> connection,
                                 std::shared_ptr<X11Keyboard> keyboard,
                                 std::shared_ptr<ToolkitWindows> toolkitWindows,
                                 std::shared_ptr<UserTime> userTime)
    : connection_(std::move(connection))
    , keyboard_(std::move(keyboard))
    , toolkitWindows_(std::move(toolkitWindows))
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
    if (qGuiApp != nullptr)
        qGuiApp->installNativeEventFilter(this);
    events_ = connection_->observeEvents([this](const xcb_generic_event_t& event) { follow(event); });
}

X11HotKeyCenter::~X11HotKeyCenter()
{
    if (qGuiApp != nullptr)
        qGuiApp->removeNativeEventFilter(this);
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
    const bool isPossible = keyCode == VirtualKey::v && (modifiers & ~CarbonModifier::all) == 0;
    const bool isKnown = std::any_of(registrations_.begin(), registrations_.end(), [&](const auto& entry) {
        return entry.second.keyCode == keyCode && entry.second.carbonModifiers == modifiers;
    });
    if (!connection_->isAlive() || !isPossible || isKnown)
        return std::nullopt;
    const auto reference = HotKeyRef{++lastReference_};
    registrations_[reference] = {keyCode, modifiers, identifier, std::nullopt};
    if (const auto attempt = requestGrab(reference))
        conclude(*attempt);
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

// Grabs

std::optional<X11HotKeyCenter::Grab> X11HotKeyCenter::grabFor(const Registration& registration) const
{
    const auto key = keyForVirtualKeyCode(keyboard_->keymap(), registration.keyCode);
    const auto modifiers = modifiersForCarbonMask(registration.carbonModifiers, bits_);
    if (!key || !modifiers)
        return std::nullopt;
    return Grab{*key, *modifiers};
}

std::optional<X11HotKeyCenter::Attempt> X11HotKeyCenter::requestGrab(HotKeyRef hotKey)
{
    constexpr std::uint8_t eventsGoToOwner = 0;
    Registration& registration = registrations_.at(hotKey);
    ++registration.attempt;
    registration.grab = grabFor(registration);
    registration.isAwaitingAnswer = registration.grab.has_value();
    registration.asksAgainIfRefused = false;
    if (!registration.grab)
        return std::nullopt;
    Attempt attempt = {hotKey, registration.attempt, *registration.grab, {}};
    for (const std::uint16_t modifiers : withEveryLockCombination(attempt.grab.modifiers, bits_))
        attempt.requests.push_back(xcb_grab_key_checked(connection_->raw(), eventsGoToOwner,
                                                        connection_->root(), modifiers, attempt.grab.key,
                                                        XCB_GRAB_MODE_ASYNC, XCB_GRAB_MODE_ASYNC));
    return attempt;
}

void X11HotKeyCenter::conclude(const Attempt& attempt)
{
    bool isRefused = false;
    for (const auto request : attempt.requests) {
        const X11Reply<xcb_generic_error_t> error(xcb_request_check(connection_->raw(), request));
        isRefused = isRefused || error;
    }
    const auto found = registrations_.find(attempt.hotKey);
    // Whoever has unregistered it, or asked for it anew, has released this grab.
    if (found == registrations_.end() || found->second.attempt != attempt.number)
        return;
    found->second.isAwaitingAnswer = false;
    if (!isRefused)
        return;
    found->second.grab.reset();
    requestRelease(attempt.grab); // Part of a hot key is worse than none: it would depend on Caps Lock.
    if (found->second.asksAgainIfRefused)
        requestGrabWithoutWaiting(attempt.hotKey);
    connection_->flush();
}

void X11HotKeyCenter::requestGrabWithoutWaiting(HotKeyRef hotKey)
{
    const auto attempt = requestGrab(hotKey);
    if (!attempt)
        return;
    // Any request with a reply will do: when that is here, the refusals are.
    connection_->whenReplied<xcb_get_input_focus_reply_t>(
        xcb_get_input_focus(connection_->raw()), lifetime_,
        [this, attempt = *attempt](const auto*) { conclude(attempt); });
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
}

void X11HotKeyCenter::restoreGrabs()
{
    for (const auto& [reference, registration] : registrations_)
        requestGrabWithoutWaiting(reference);
}

void X11HotKeyCenter::requestRefusedGrabs()
{
    for (auto& [reference, registration] : registrations_) {
        if (registration.isAwaitingAnswer)
            registration.asksAgainIfRefused = true;
        else if (!registration.grab)
            requestGrabWithoutWaiting(reference);
    }
    connection_->flush();
}

void X11HotKeyCenter::keymapDidChange()
{
    const ModifierBits bits = modifierBits(keyboard_->keymap());
    const bool areAllGood =
        std::all_of(registrations_.begin(), registrations_.end(), [this](const auto& entry) {
            return entry.second.grab && entry.second.grab == grabFor(entry.second);
        });
    if (areAllGood && bits == bits_)
        return;
    for (const auto& [reference, registration] : registrations_)
        if (registration.grab)
            requestRelease(*registration.grab);
    bits_ = bits;
    restoreGrabs();
    connection_->flush();
}

// Keys

bool X11HotKeyCenter::nativeEventFilter(const QByteArray& eventType, void* message, qintptr*)
{
    if (eventType != "xcb_generic_event_t")
        return false;
    // While a menu of ours is open the toolkit has grabbed the keyboard, and no other grab takes effect.
    const auto& event = *static_cast<const xcb_generic_event_t*>(message);
    if (eventKind(event) == XCB_KEY_RELEASE)
        keyReleased(eventAs<xcb_key_release_event_t>(event).detail);
    return eventKind(event) == XCB_KEY_PRESS && QApplication::activePopupWidget() != nullptr &&
           keyPressed(eventAs<xcb_key_press_event_t>(event));
}

void X11HotKeyCenter::follow(const xcb_generic_event_t& event)
{
    switch (eventKind(event)) {
    case XCB_KEY_PRESS:
        if (!keyPressed(eventAs<xcb_key_press_event_t>(event)))
            passOn(eventAs<xcb_key_press_event_t>(event));
        return;
    case XCB_KEY_RELEASE:
        passOn(eventAs<xcb_key_release_event_t>(event));
        return keyReleased(eventAs<xcb_key_release_event_t>(event).detail);
    case XCB_GE_GENERIC: {
        const auto& raw = eventAs<xcb_input_raw_key_release_event_t>(event);
        if (raw.extension == inputOpcode(*connection_) && raw.event_type == XCB_INPUT_RAW_KEY_RELEASE)
            keyReleased(static_cast<Keycode>(raw.detail));
        return;
    }
    case XCB_PROPERTY_NOTIFY: {
        const auto& changed = eventAs<xcb_property_notify_event_t>(event);
        const X11Atoms& atoms = connection_->atoms();
        if (changed.window == connection_->root() &&
            (changed.atom == atoms.netActiveWindow || changed.atom == atoms.netClientList))
            requestRefusedGrabs();
        return;
    }
    default:
        return;
    }
}

bool X11HotKeyCenter::keyPressed(const xcb_key_press_event_t& event)
{
    const Grab pressed{event.detail, withoutLocks(event.state, bits_)};
    const auto found = std::find_if(registrations_.begin(), registrations_.end(),
                                    [&](const auto& entry) { return entry.second.grab == pressed; });
    if (found == registrations_.end())
        return false;
    if (heldKey_ == event.detail)
        return true;
    setHeldKey(event.detail);
    userTime_->note(event.time);
    const EventHotKeyID identifier = found->second.identifier;
    const auto handlers = handlers_; // A handler may register, unregister, or remove itself.
    for (const auto& [reference, handler] : handlers)
        handler(identifier);
    return true;
}

void X11HotKeyCenter::passOn(const xcb_key_press_event_t& event)
{
    // As long as the hot key is held it keeps every key from the focused window, and quick fingers press the
    // next one before they let go of it.
    const auto window = toolkitWindows_->focusedWindow();
    if (!heldKey_ || heldKey_ == event.detail || !window)
        return;
    xcb_key_press_event_t passedOn = event;
    passedOn.event = *window;
    passedOn.child = XCB_WINDOW_NONE;
    const auto* bytes = reinterpret_cast<const char*>(&passedOn);
    xcb_send_event(connection_->raw(), 0, *window, XCB_EVENT_MASK_NO_EVENT, bytes);
    connection_->flush();
}

void X11HotKeyCenter::keyReleased(Keycode key)
{
    if (heldKey_ == key)
        setHeldKey(std::nullopt);
}

void X11HotKeyCenter::setHeldKey(std::optional<Keycode> key)
{
    heldKey_ = key;
    if (!connection_->extensions().input)
        return;
    // Whoever ends our grab before the key is up gets its release. Raw events come all the same (XInput 2.1);
    // they are asked for only while they are needed, for there is one for every key of the user.
    struct {
        xcb_input_event_mask_t head = {XCB_INPUT_DEVICE_ALL_MASTER, 1};
        std::uint32_t events = 0;
    } mask;
    if (key)
        mask.events = XCB_INPUT_XI_EVENT_MASK_RAW_KEY_RELEASE;
    xcb_input_xi_select_events(connection_->raw(), connection_->root(), 1, &mask.head);
    if (key)
        checkWhetherIsHeld(*key);
    connection_->flush();
}

void X11HotKeyCenter::checkWhetherIsHeld(Keycode key)
{
    connection_->whenReplied<xcb_query_keymap_reply_t>(xcb_query_keymap(connection_->raw()), lifetime_,
                                                       [this, key](const auto* reply) {
                                                           if (reply != nullptr && !keysOf(reply)[key])
                                                               keyReleased(key);
                                                       });
}

} // namespace tessel
