#pragma once

#include <map>
#include <memory>
#include <vector>

#include "HotKeyCenter.h"
#include "Token.h"
#include "X11/GrabCombinations.h"
#include "X11/UserTime.h"
#include "X11/X11Connection.h"
#include "X11/X11Keyboard.h"

namespace tessel {

/// Hot keys as passive grabs of keys on the root window. A grab takes one combination of modifiers to the
/// letter, so each hot key is grabbed under every combination of Caps Lock, Num Lock and Scroll Lock. One
/// press of the user is one event, however long the key is held.
class X11HotKeyCenter : public HotKeyCenter {
public:
    X11HotKeyCenter(std::shared_ptr<X11Connection> connection, std::shared_ptr<X11Keyboard> keyboard,
                    std::shared_ptr<UserTime> userTime);
    ~X11HotKeyCenter() override;

    std::optional<HotKeyHandlerRef> installEventHandler(Handler handler) override;
    void removeEventHandler(HotKeyHandlerRef handler) override;
    /// Waits for the server's answer: one round trip. Only virtual key code 9 has a position here.
    std::optional<HotKeyRef> registerEventHotKey(std::uint32_t keyCode, std::uint32_t modifiers,
                                                 EventHotKeyID identifier) override;
    void unregisterEventHotKey(HotKeyRef hotKey) override;

    /// Lets go of every grab, so that keys that follow on the same connection reach the focused window. Ends
    /// a press that is being held, too. Both requests are only queued: whoever makes them flushes the
    /// connection.
    void releaseGrabs();
    /// Takes the grabs again. One that somebody else has taken meanwhile stays refused until the keymap
    /// changes.
    void restoreGrabs();

private:
    struct Grab {
        Keycode key = 0;
        std::uint16_t modifiers = 0; ///< Without locks.
        friend bool operator==(const Grab&, const Grab&) = default;
    };
    struct Registration {
        std::uint32_t keyCode = 0;
        std::uint32_t carbonModifiers = 0;
        EventHotKeyID identifier;
        std::optional<Grab> grab; ///< None: refused.
    };

    std::optional<Grab> grabFor(std::uint32_t keyCode, std::uint32_t carbonModifiers) const;
    bool isTaken(const Grab& grab) const;
    bool takeGrab(const Grab& grab);
    void requestGrab(const Grab& grab);
    void requestRelease(const Grab& grab);
    void keymapDidChange();
    void follow(const xcb_generic_event_t& event);
    void keyPressed(const xcb_key_press_event_t& event);

    std::shared_ptr<X11Connection> connection_;
    std::shared_ptr<X11Keyboard> keyboard_;
    std::shared_ptr<UserTime> userTime_;
    ModifierBits bits_;
    std::uint64_t lastReference_ = 0;
    std::map<HotKeyHandlerRef, Handler> handlers_;
    std::map<HotKeyRef, Registration> registrations_;
    /// The key of a hot key that is being held: its repetitions are not presses.
    std::optional<Keycode> heldKey_;
    Token keymapChanges_;
    Token events_;
};

} // namespace tessel
