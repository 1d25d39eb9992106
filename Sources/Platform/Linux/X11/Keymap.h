#pragma once

#include <array>
#include <bitset>
#include <cstdint>
#include <optional>
#include <vector>

namespace tessel {

/// A set of X key codes.
using KeySet = std::bitset<256>;
/// The number of a key: 8 to 255.
using Keycode = std::uint8_t;
/// What a key means: a symbol of the X protocol (appendix A).
using Keysym = std::uint32_t;

/// The symbols that this room knows by name (X protocol, appendix A; `keysymdef.h`).
namespace KeysymName {
inline constexpr Keysym latinSmallV = 0x0076;
inline constexpr Keysym returnKey = 0xFF0D;
inline constexpr Keysym keypadEnter = 0xFF8D;
inline constexpr Keysym insert = 0xFF63;
inline constexpr Keysym shiftLeft = 0xFFE1;
inline constexpr Keysym shiftRight = 0xFFE2;
inline constexpr Keysym controlLeft = 0xFFE3;
inline constexpr Keysym controlRight = 0xFFE4;
inline constexpr Keysym capsLock = 0xFFE5;
inline constexpr Keysym shiftLock = 0xFFE6;
inline constexpr Keysym metaLeft = 0xFFE7;
inline constexpr Keysym altLeft = 0xFFE9;
inline constexpr Keysym altRight = 0xFFEA;
inline constexpr Keysym superLeft = 0xFFEB;
inline constexpr Keysym superRight = 0xFFEC;
inline constexpr Keysym numLock = 0xFF7F;
inline constexpr Keysym scrollLock = 0xFF14;
} // namespace KeysymName

/// The modifier bits of the core protocol in their order: Shift, Lock, Control, Mod1 to Mod5.
inline constexpr std::size_t modifierCount = 8;

/// What the keys of the core keyboard mean now.
struct Keymap {
    /// For each key the symbol that it yields without Shift, in each of its groups (layouts). Empty: no
    /// symbol.
    std::array<std::vector<Keysym>, 256> symbols;
    /// For each modifier bit the keys that set it, in the order of their key codes.
    std::array<std::vector<Keycode>, modifierCount> modifierKeys;
    /// The key in the V position of the ANSI layout: <AB04>. None: this keyboard does not name its keys.
    std::optional<Keycode> keyInVPosition;

    friend bool operator==(const Keymap&, const Keymap&) = default;
};

/// The symbol that a key yields in a group. A key with fewer groups than the layouts wraps around, as XKB
/// does by default.
std::optional<Keysym> symbolInGroup(const Keymap& keymap, Keycode key, std::size_t group);

/// The first key that yields `symbol` in that group.
std::optional<Keycode> keyFor(const Keymap& keymap, Keysym symbol, std::size_t group);

/// Every key that yields `symbol` in any group.
KeySet keysFor(const Keymap& keymap, Keysym symbol);

/// The key that yields Latin v in that group, else the key in the V position.
std::optional<Keycode> keyForLatinV(const Keymap& keymap, std::size_t group);

/// The key of virtual key code 9, whatever the layout. Other virtual key codes have no position here.
std::optional<Keycode> keyForVirtualKeyCode(const Keymap& keymap, std::uint32_t virtualKeyCode);

/// The modifier bits (1 << 0 to 1 << 7) that the keys with that symbol set.
std::uint8_t modifiersOf(const Keymap& keymap, Keysym symbol);

/// The keys that act as modifiers while they are held down. Keys that lock something are not among them:
/// pressing one of those on the user's behalf would change more than a held key does.
KeySet heldModifierKeys(const Keymap& keymap);

/// A key that has no symbol in any group and sets no modifier, so that pressing it means nothing to anybody.
std::optional<Keycode> keyWithoutMeaning(const Keymap& keymap);

} // namespace tessel
