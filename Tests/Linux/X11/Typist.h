#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include <xcb/xcb.h>

#include "X11/HeldKeys.h"
#include "X11/Keymap.h"

namespace tessel {

/// The keys of the test server's keyboard (evdev key codes).
namespace Key {
inline constexpr Keycode returnKey = 36;
inline constexpr Keycode controlLeft = 37;
inline constexpr Keycode shiftLeft = 50;
inline constexpr Keycode v = 55;
inline constexpr Keycode fullStop = 60; ///< Latin v on the Dvorak layout.
inline constexpr Keycode altLeft = 64;
inline constexpr Keycode capsLock = 66;
inline constexpr Keycode numLock = 77;
inline constexpr Keycode scrollLock = 78;
inline constexpr Keycode a = 38;
inline constexpr Keycode escape = 9;
inline constexpr Keycode keypadEnter = 104;
inline constexpr Keycode keypadDivide = 106;
inline constexpr Keycode down = 116;
inline constexpr Keycode insert = 118;
inline constexpr Keycode superLeft = 133;
} // namespace Key

/// A user at the test server's keyboard: the keys move on a device of their own, as fingers do, not on the
/// XTEST one. The
/// server has seen everything that was typed when a call returns.
class Typist {
public:
    Typist();
    ~Typist();
    Typist(const Typist&) = delete;
    Typist& operator=(const Typist&) = delete;

    void press(Keycode key);
    void release(Keycode key);
    /// Down and up again.
    void tap(Keycode key);
    /// The modifiers down, the key down and up, the modifiers up.
    void tapWith(const std::vector<Keycode>& modifiers, Keycode key);
    void movePointer(int x, int y);
    /// Switches the core keyboard to a layout, and returns when the server has it.
    void setLayout(const std::string& layout, const std::string& variant = {});
    void lockGroup(std::uint8_t group);

    /// The modifiers of the core protocol that are locked, Caps Lock among them.
    std::uint8_t lockedModifiers();
    /// The keys that the server has down on the core keyboard.
    KeySet keysDown();
    /// The keys that the server has down on its XTEST keyboard.
    KeySet keysDownOnXTest();
    /// Returns when the server has done all that was asked of it.
    void synchronize();

private:
    std::uint8_t findKeyboard(DeviceKeys::Kind kind);
    KeySet keysDownOn(std::uint8_t device);
    void fake(std::uint8_t kind, Keycode key);

    xcb_connection_t* connection_ = nullptr;
    std::uint8_t firstInputEvent_ = 0;
    std::uint8_t keyboard_ = 0;
    std::uint8_t xtest_ = 0;
};

} // namespace tessel
