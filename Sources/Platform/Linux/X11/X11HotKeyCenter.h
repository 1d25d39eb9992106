#pragma once

#include <map>
#include <memory>
#include <vector>

#include <QtCore/QAbstractNativeEventFilter>

#include "HotKeyCenter.h"
#include "Token.h"
#include "X11/GrabCombinations.h"
#include "X11/ToolkitWindows.h"
#include "X11/UserTime.h"
#include "X11/X11Connection.h"
#include "X11/X11Keyboard.h"

namespace tessel {

/// Hot keys as passive grabs of keys on the root window. A grab takes one combination of modifiers to the
/// letter, so each hot key is grabbed under every combination of Caps Lock, Num Lock and Scroll Lock. One
/// press of the user is one event, however long the key is held.
///
/// A combination that another application has is asked for again whenever something has happened that may
/// have freed it: another window has become active, a program has opened or closed one, or the keymap has
/// changed. Made after `QApplication`, and destroyed before it.
class X11HotKeyCenter : public HotKeyCenter, private QAbstractNativeEventFilter {
public:
    X11HotKeyCenter(std::shared_ptr<X11Connection> connection, std::shared_ptr<X11Keyboard> keyboard,
                    std::shared_ptr<ToolkitWindows> toolkitWindows, std::shared_ptr<UserTime> userTime);
    ~X11HotKeyCenter() override;

    std::optional<HotKeyHandlerRef> installEventHandler(Handler handler) override;
    void removeEventHandler(HotKeyHandlerRef handler) override;
    /// Waits for the server's answer: one round trip. Only virtual key code 9 has a position here. None: no
    /// connection, another key, unknown modifiers, or a combination that is registered here already. One that
    /// another application has, or this keyboard lacks, is registered all the same and waits until it can be
    /// had.
    std::optional<HotKeyRef> registerEventHotKey(std::uint32_t keyCode, std::uint32_t modifiers,
                                                 EventHotKeyID identifier) override;
    void unregisterEventHotKey(HotKeyRef hotKey) override;

    /// Lets go of every grab, so that keys that follow on the same connection reach the focused window, even
    /// while a hot key is being held. Both requests are only queued: whoever makes them flushes the
    /// connection.
    void releaseGrabs();
    /// Takes the grabs again.
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
        std::optional<Grab> grab; ///< None: it is refused, or this keyboard lacks it.
        int attempt = 0;          ///< Counts how often it was asked for.
        bool isAwaitingAnswer = false;
        /// Something has happened while the answer was on its way that may have freed the combination.
        bool asksAgainIfRefused = false;
    };
    /// A grab on its way: one request for each combination of the locks.
    struct Attempt {
        HotKeyRef hotKey;
        int number;
        Grab grab;
        std::vector<xcb_void_cookie_t> requests;
    };

    std::optional<Grab> grabFor(const Registration& registration) const;
    /// None: this keyboard lacks the combination.
    std::optional<Attempt> requestGrab(HotKeyRef hotKey);
    /// To be called once the server has answered a later request, or else it waits for that.
    void conclude(const Attempt& attempt);
    void requestGrabWithoutWaiting(HotKeyRef hotKey);
    void requestRelease(const Grab& grab);
    void requestRefusedGrabs();
    void keymapDidChange();

    bool nativeEventFilter(const QByteArray& eventType, void* message, qintptr* result) override;
    void follow(const xcb_generic_event_t& event);
    /// False: that is no hot key.
    bool keyPressed(const xcb_key_press_event_t& event);
    void keyReleased(Keycode key);
    void setHeldKey(std::optional<Keycode> key);
    /// The key may have come up before its release was asked for.
    void checkWhetherIsHeld(Keycode key);
    void passOn(const xcb_key_press_event_t& event);

    std::shared_ptr<X11Connection> connection_;
    std::shared_ptr<X11Keyboard> keyboard_;
    std::shared_ptr<ToolkitWindows> toolkitWindows_;
    std::shared_ptr<UserTime> userTime_;
    ModifierBits bits_;
    std::uint64_t lastReference_ = 0;
    std::map<HotKeyHandlerRef, Handler> handlers_;
    std::map<HotKeyRef, Registration> registrations_;
    /// The key of a hot key that is being held: its repetitions are not presses.
    std::optional<Keycode> heldKey_;
    Token keymapChanges_;
    Token events_;
    /// Replies that come after the center has gone are not for it.
    std::shared_ptr<void> lifetime_ = std::make_shared<char>();
};

} // namespace tessel
