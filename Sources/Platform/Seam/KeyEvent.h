#pragma once

#include <cstdint>

namespace tessel {

/// Modifier bits of a key event, as `NSEventModifierFlags` and `CGEventFlags` number them.
enum class ModifierFlags : std::uint64_t {
    none = 0,
    shift = 1U << 17,
    control = 1U << 18,
    option = 1U << 19,
    command = 1U << 20, ///< `NSEventModifierFlagCommand` and `kCGEventFlagMaskCommand`, 0x100000
};

constexpr ModifierFlags operator|(ModifierFlags left, ModifierFlags right)
{
    return static_cast<ModifierFlags>(static_cast<std::uint64_t>(left) | static_cast<std::uint64_t>(right));
}

/// True when every bit of `wanted` is set in `flags`.
constexpr bool contains(ModifierFlags flags, ModifierFlags wanted)
{
    return (static_cast<std::uint64_t>(flags) & static_cast<std::uint64_t>(wanted)) ==
           static_cast<std::uint64_t>(wanted);
}

/// A key-down event. `keyCode` is a virtual key code of the ANSI layout (`kVK_...`).
struct KeyEvent {
    std::uint16_t keyCode = 0;
    ModifierFlags modifierFlags = ModifierFlags::none;
};

/// The virtual key codes that the program knows by name.
namespace VirtualKey {
inline constexpr std::uint16_t v = 9;
inline constexpr std::uint16_t p = 35;
inline constexpr std::uint16_t returnKey = 36;
inline constexpr std::uint16_t deleteKey = 51; ///< Backspace on a PC keyboard.
inline constexpr std::uint16_t escape = 53;
inline constexpr std::uint16_t keypadEnter = 76;
inline constexpr std::uint16_t forwardDelete = 117;
inline constexpr std::uint16_t downArrow = 125;
inline constexpr std::uint16_t upArrow = 126;
/// No key of the ANSI layout.
inline constexpr std::uint16_t unknown = 0xFFFF;
} // namespace VirtualKey

} // namespace tessel
