#include "X11/GrabCombinations.h"

#include <algorithm>
#include <array>
#include <utility>

namespace tessel {

namespace {

constexpr std::uint16_t shiftBit = 1U << 0;
constexpr std::uint16_t lockBit = 1U << 1;
constexpr std::uint16_t controlBit = 1U << 2;
constexpr std::uint16_t everyModifierBit = 0xFF;

/// One bit of those that any of the symbols sets: the lowest, where a keyboard has several.
std::uint16_t oneBit(const Keymap& keymap, std::initializer_list<Keysym> symbols)
{
    for (const Keysym symbol : symbols) {
        const unsigned int bits = modifiersOf(keymap, symbol);
        if (bits != 0)
            return static_cast<std::uint16_t>(bits & (~bits + 1U));
    }
    return 0;
}

} // namespace

ModifierBits modifierBits(const Keymap& keymap)
{
    ModifierBits bits;
    bits.shift = shiftBit;
    bits.control = controlBit;
    bits.option = oneBit(keymap, {KeysymName::altLeft, KeysymName::altRight, KeysymName::metaLeft});
    bits.command = oneBit(keymap, {KeysymName::superLeft, KeysymName::superRight});
    bits.locks.push_back(lockBit);
    for (const Keysym symbol : {KeysymName::numLock, KeysymName::scrollLock}) {
        const std::uint16_t bit = oneBit(keymap, {symbol});
        const bool isKnown = std::find(bits.locks.begin(), bits.locks.end(), bit) != bits.locks.end();
        const bool isModifier = bit == bits.option || bit == bits.command;
        if (bit != 0 && !isKnown && !isModifier)
            bits.locks.push_back(bit);
    }
    return bits;
}

std::optional<std::uint16_t> modifiersForCarbonMask(std::uint32_t mask, const ModifierBits& bits)
{
    const std::array<std::pair<std::uint32_t, std::uint16_t>, 4> table = {{
        {CarbonModifier::command, bits.command},
        {CarbonModifier::shift, bits.shift},
        {CarbonModifier::option, bits.option},
        {CarbonModifier::control, bits.control},
    }};
    unsigned int modifiers = 0;
    for (const auto& [carbon, bit] : table) {
        if ((mask & carbon) == 0)
            continue;
        if (bit == 0)
            return std::nullopt;
        modifiers |= bit;
        mask &= ~carbon;
    }
    if (mask != 0)
        return std::nullopt;
    return static_cast<std::uint16_t>(modifiers);
}

std::vector<std::uint16_t> withEveryLockCombination(std::uint16_t modifiers, const ModifierBits& bits)
{
    std::vector<std::uint16_t> combinations = {modifiers};
    for (const std::uint16_t lock : bits.locks) {
        const std::size_t count = combinations.size();
        for (std::size_t index = 0; index < count; ++index)
            combinations.push_back(static_cast<std::uint16_t>(combinations[index] | lock));
    }
    return combinations;
}

std::uint16_t withoutLocks(std::uint16_t state, const ModifierBits& bits)
{
    unsigned int modifiers = state & everyModifierBit;
    for (const std::uint16_t lock : bits.locks)
        modifiers &= ~static_cast<unsigned int>(lock);
    return static_cast<std::uint16_t>(modifiers);
}

} // namespace tessel
