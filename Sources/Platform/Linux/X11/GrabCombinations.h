#pragma once

#include <cstdint>
#include <optional>
#include <vector>

#include "X11/Keymap.h"

namespace tessel {

/// The modifier bits of the core protocol that a keyboard uses for each of the modifiers of a hot key, and
/// those of the locks, which must not make a difference to a hot key.
struct ModifierBits {
    std::uint16_t shift = 0;
    std::uint16_t control = 0;
    std::uint16_t option = 0;         ///< Alt.
    std::uint16_t command = 0;        ///< Super.
    std::vector<std::uint16_t> locks; ///< Caps Lock, Num Lock and Scroll Lock: one bit each, none twice.

    friend bool operator==(const ModifierBits&, const ModifierBits&) = default;
};

/// Carbon's modifier masks.
namespace CarbonModifier {
inline constexpr std::uint32_t command = 0x0100;
inline constexpr std::uint32_t shift = 0x0200;
inline constexpr std::uint32_t option = 0x0800;
inline constexpr std::uint32_t control = 0x1000;
inline constexpr std::uint32_t all = command | shift | option | control;
} // namespace CarbonModifier

ModifierBits modifierBits(const Keymap& keymap);

/// The modifier bits that stand for a Carbon modifier mask. None: the mask has other bits, or this keyboard
/// lacks a modifier that it names.
std::optional<std::uint16_t> modifiersForCarbonMask(std::uint32_t mask, const ModifierBits& bits);

/// `modifiers` with every combination of the locks: a passive grab takes exactly one combination.
std::vector<std::uint16_t> withEveryLockCombination(std::uint16_t modifiers, const ModifierBits& bits);

/// The modifiers of a key event's state without its locks, pointer buttons and group.
std::uint16_t withoutLocks(std::uint16_t state, const ModifierBits& bits);

} // namespace tessel
