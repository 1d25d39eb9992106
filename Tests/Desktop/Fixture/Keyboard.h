#pragma once

#include <xkbcommon/xkbcommon-keysyms.h>

#include <chrono>
#include <cstdint>
#include <initializer_list>
#include <optional>
#include <string_view>
#include <vector>

#include "XConnection.h"

namespace tessel::desktop {

/// A key symbol of the X Window System, such as `XKB_KEY_Return`.
using KeySymbol = std::uint32_t;

/// Real key presses: they move on the X server's own keyboard, as those of fingers do. Programs that press
/// keys by themselves do that on another keyboard, which the server keeps for its XTEST extension.
class Keyboard {
public:
    explicit Keyboard(XConnection& connection);

    void press(KeySymbol symbol);
    void release(KeySymbol symbol);
    /// The same by the key's code, without a look at the layout.
    void pressKey(xcb_keycode_t code) { fake(XCB_KEY_PRESS, code); }
    void releaseKey(xcb_keycode_t code) { fake(XCB_KEY_RELEASE, code); }
    /// Presses a key, holds it for a while and releases it.
    void tap(KeySymbol symbol, std::chrono::milliseconds hold = {});
    /// Presses the modifiers in order, taps the key, and releases the modifiers in the opposite order.
    void chord(std::initializer_list<KeySymbol> modifiers, KeySymbol symbol,
               std::chrono::milliseconds hold = {});
    /// Sends a window the events of a tap, as programs can where no key can be moved.
    void sendTap(KeySymbol symbol, xcb_window_t window);
    /// Types characters of ASCII that the layout has, with Shift where they need it.
    void type(std::string_view text);

    /// True while the server believes that any key is held down, on any keyboard.
    bool isAnyKeyDown() const;
    /// The modifiers in force, locks among them (a mask of the core protocol).
    std::uint16_t modifiers() const;
    /// True while no client has grabbed the keyboard as a whole.
    bool isFree() const;
    /// The keys that the server believes to be down.
    std::vector<xcb_keycode_t> keysDown() const;
    /// The key that yields a symbol without or with Shift; throws `DesktopFailure` if there is none.
    xcb_keycode_t keyCode(KeySymbol symbol) const;
    /// True if some client has grabbed this key with these modifiers (a mask of the core protocol).
    bool isGrabbed(KeySymbol symbol, std::uint16_t modifiers) const;
    /// True if some client has grabbed the whole keyboard.
    bool isGrabbed() const;

private:
    /// A key, and whether Shift is needed for the symbol.
    struct Place {
        xcb_keycode_t code;
        bool shifted;
    };
    Place place(KeySymbol symbol) const;
    void findDevices();
    std::vector<xcb_keycode_t> keysDownOn(std::uint8_t device) const;
    void fake(std::uint8_t eventType, xcb_keycode_t code);

    XConnection& connection_;
    /// Every keyboard that feeds the core keyboard.
    std::vector<std::uint8_t> devices_;
    /// The server's own keyboard; none where it has but that of XTEST.
    std::optional<std::uint8_t> ownDevice_;
    std::uint8_t firstInputEvent_ = 0;
};

} // namespace tessel::desktop
