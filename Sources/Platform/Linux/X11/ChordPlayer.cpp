#include "X11/ChordPlayer.h"

#include <utility>

#include "X11/SyntheticKeys.h"
#include "X11/XkbProtocol.h"

namespace tessel {

/// What the server says while it serves nobody else.
struct ChordPlayer::Moment {
    xcb_window_t focus = noWindow;
    KeySet coreDown;
    std::vector<DeviceKeys> devices;
    std::uint8_t group = 0;
    std::uint8_t lockedModifiers = 0;
    std::uint8_t latchedModifiers = 0;
};

namespace {

constexpr xcb_xkb_device_spec_t coreKeyboard = XCB_XKB_ID_USE_CORE_KBD;

} // namespace

ChordPlayer::ChordPlayer(std::shared_ptr<X11Connection> connection, std::shared_ptr<X11Keyboard> keyboard,
                         std::shared_ptr<X11HotKeyCenter> hotKeys)
    : connection_(std::move(connection))
    , keyboard_(std::move(keyboard))
    , hotKeys_(std::move(hotKeys))
    , putBackKeys_(connection_)
{}

ChordPlayer::Outcome ChordPlayer::play(PasteChord chord, xcb_window_t focus,
                                       const std::vector<KeyboardDevice>& devices)
{
    if (!connection_->isAlive() || !connection_->extensions().test || !connection_->extensions().xkb)
        return Outcome::impossible;
    xcb_grab_server(connection_->raw());
    const Moment moment = takeMoment(devices);
    const Outcome outcome = moment.focus == focus ? playAt(moment, chord, devices) : Outcome::focusMoved;
    xcb_ungrab_server(connection_->raw());
    connection_->flush();
    return outcome;
}

ChordPlayer::Moment ChordPlayer::takeMoment(const std::vector<KeyboardDevice>& devices)
{
    auto* raw = connection_->raw();
    const auto focusCookie = xcb_get_input_focus(raw);
    const auto keysCookie = xcb_query_keymap(raw);
    const auto stateCookie = xcb_xkb_get_state(raw, coreKeyboard);
    const auto deviceRequest = requestDeviceKeys(*connection_, devices);

    Moment moment;
    if (const auto focus = connection_->wait(xcb_get_input_focus_reply, focusCookie))
        moment.focus = focus->focus;
    moment.coreDown = keysOf(connection_->wait(xcb_query_keymap_reply, keysCookie).get());
    if (const auto state = connection_->wait(xcb_xkb_get_state_reply, stateCookie)) {
        moment.group =
            state->lockedGroup; // A group that only a held key chooses goes when that key is lifted.
        moment.lockedModifiers = state->lockedMods;
        moment.latchedModifiers = state->latchedMods;
    }
    moment.devices = receiveDeviceKeys(*connection_, deviceRequest);
    return moment;
}

ChordPlayer::Outcome ChordPlayer::playAt(const Moment& moment, PasteChord chord,
                                         const std::vector<KeyboardDevice>& devices)
{
    const Keymap& keymap = keyboard_->keymap();
    const auto keys = keysOfChord(chord, keymap, moment.group);
    if (!keys)
        return Outcome::impossible;
    const HeldKeysPlan plan =
        planHeldKeys(moment.coreDown, moment.devices, heldModifierKeys(keymap), setOf(*keys));

    hotKeys_->releaseGrabs(); // Our own hot key may be this very chord.
    lift(plan.lift);
    const bool isPlayed = keysReachTheFocus();
    if (isPlayed) {
        clearStickyModifiers(moment);
        type(*keys);
    }
    hotKeys_->restoreGrabs();
    putBack(plan.putBack);
    restoreStickyModifiers(moment);
    putBackKeys_.watch(plan.putBack, devices);
    return isPlayed ? Outcome::played : Outcome::impossible;
}

void ChordPlayer::type(const ChordKeys& keys)
{
    for (const Keycode modifier : keys.modifiers)
        pressKey(*connection_, modifier);
    pressKey(*connection_, keys.key);
    releaseKey(*connection_, keys.key);
    for (auto modifier = keys.modifiers.rbegin(); modifier != keys.modifiers.rend(); ++modifier)
        releaseKey(*connection_, *modifier);
}

namespace {

/// While this exists, the keyboard is ours: no launcher that has grabbed a key by itself is woken by it, and
/// nothing reaches the focused window. Where somebody else has the keyboard it stays his.
class KeyboardGrab {
public:
    explicit KeyboardGrab(X11Connection& connection)
        : connection_(connection)
    {
        constexpr std::uint8_t eventsGoToOwner = 0;
        const auto cookie = xcb_grab_keyboard(connection_.raw(), eventsGoToOwner, connection_.root(),
                                              XCB_CURRENT_TIME, XCB_GRAB_MODE_ASYNC, XCB_GRAB_MODE_ASYNC);
        const auto reply = connection_.wait(xcb_grab_keyboard_reply, cookie);
        isGranted_ = reply && reply->status == XCB_GRAB_STATUS_SUCCESS;
    }
    ~KeyboardGrab() { xcb_ungrab_keyboard(connection_.raw(), XCB_CURRENT_TIME); }
    KeyboardGrab(const KeyboardGrab&) = delete;
    KeyboardGrab& operator=(const KeyboardGrab&) = delete;

    bool isGranted() const { return isGranted_; }

private:
    X11Connection& connection_;
    bool isGranted_ = false;
};

} // namespace

/// A screen locker, a launcher or an open menu may have the keyboard, whoever has the focus. One that got it
/// with a held modifier has lost it when that was lifted.
bool ChordPlayer::keysReachTheFocus()
{
    const KeyboardGrab grab(*connection_);
    return grab.isGranted();
}

void ChordPlayer::lift(const KeySet& keys)
{
    if (keys.none())
        return;
    {
        const KeyboardGrab grab(*connection_);
        tapKeyWithoutMeaning();
    }
    releaseKeys(*connection_, keys); // The focused window may count presses and releases: it sees these.
}

void ChordPlayer::putBack(const KeySet& keys)
{
    if (keys.none())
        return;
    const KeyboardGrab grab(*connection_);
    pressKeys(*connection_, keys);
    tapKeyWithoutMeaning();
}

/// Some programs act on a modifier that is pressed and released with nothing in between: launchers on Super,
/// menu bars on Alt. This is something in between.
void ChordPlayer::tapKeyWithoutMeaning()
{
    const auto key = keyWithoutMeaning(keyboard_->keymap());
    if (!key)
        return;
    pressKey(*connection_, *key);
    releaseKey(*connection_, *key);
}

namespace {

/// The modifiers that sticky keys hold down without a finger; the locks of the keyboard stay as they are.
std::uint8_t stickyModifiers(std::uint8_t lockedModifiers, const Keymap& keymap)
{
    return static_cast<std::uint8_t>(withoutLocks(lockedModifiers, modifierBits(keymap)));
}

} // namespace

void ChordPlayer::clearStickyModifiers(const Moment& moment)
{
    const std::uint8_t sticky = stickyModifiers(moment.lockedModifiers, keyboard_->keymap());
    if (sticky == 0 && moment.latchedModifiers == 0)
        return;
    xcb_xkb_latch_lock_state(connection_->raw(), coreKeyboard, sticky, 0, 0, 0, moment.latchedModifiers, 0,
                             0);
}

void ChordPlayer::restoreStickyModifiers(const Moment& moment)
{
    const std::uint8_t sticky = stickyModifiers(moment.lockedModifiers, keyboard_->keymap());
    // Pressing Alt and Shift again may be what switches the layout.
    constexpr std::uint8_t setGroup = 1;
    xcb_xkb_latch_lock_state(connection_->raw(), coreKeyboard, sticky, sticky, setGroup, moment.group, 0, 0,
                             0);
}

} // namespace tessel
