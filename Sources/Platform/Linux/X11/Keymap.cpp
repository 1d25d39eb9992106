#include "X11/Keymap.h"

#include <algorithm>

#include "KeyEvent.h"

namespace tessel {

namespace {

constexpr std::size_t lowestKeycode = 8;
constexpr std::size_t keycodeCount = 256;

bool locksSomething(const Keymap& keymap, Keycode key)
{
    constexpr std::array lockSymbols = {KeysymName::capsLock, KeysymName::shiftLock, KeysymName::numLock,
                                        KeysymName::scrollLock};
    const auto& symbols = keymap.symbols.at(key);
    return std::any_of(symbols.begin(), symbols.end(), [&](Keysym symbol) {
        return std::find(lockSymbols.begin(), lockSymbols.end(), symbol) != lockSymbols.end();
    });
}

} // namespace

std::optional<Keysym> symbolInGroup(const Keymap& keymap, Keycode key, std::size_t group)
{
    const auto& symbols = keymap.symbols.at(key);
    if (symbols.empty())
        return std::nullopt;
    return symbols.at(group % symbols.size());
}

std::optional<Keycode> keyFor(const Keymap& keymap, Keysym symbol, std::size_t group)
{
    for (std::size_t key = lowestKeycode; key < keycodeCount; ++key) {
        const auto keycode = static_cast<Keycode>(key);
        if (symbolInGroup(keymap, keycode, group) == symbol)
            return keycode;
    }
    return std::nullopt;
}

KeySet keysFor(const Keymap& keymap, Keysym symbol)
{
    KeySet keys;
    for (std::size_t key = lowestKeycode; key < keycodeCount; ++key) {
        const auto& symbols = keymap.symbols.at(key);
        keys[key] = std::find(symbols.begin(), symbols.end(), symbol) != symbols.end();
    }
    return keys;
}

std::optional<Keycode> keyForLatinV(const Keymap& keymap, std::size_t group)
{
    const auto key = keyFor(keymap, KeysymName::latinSmallV, group);
    return key ? key : keymap.keyInVPosition;
}

std::optional<Keycode> keyForVirtualKeyCode(const Keymap& keymap, std::uint32_t virtualKeyCode)
{
    if (virtualKeyCode != VirtualKey::v)
        return std::nullopt;
    constexpr std::size_t firstGroup = 0;
    return keymap.keyInVPosition ? keymap.keyInVPosition
                                 : keyFor(keymap, KeysymName::latinSmallV, firstGroup);
}

std::uint8_t modifiersOf(const Keymap& keymap, Keysym symbol)
{
    const KeySet keys = keysFor(keymap, symbol);
    unsigned int bits = 0;
    for (std::size_t modifier = 0; modifier < modifierCount; ++modifier)
        for (const Keycode key : keymap.modifierKeys.at(modifier))
            if (keys[key])
                bits |= 1U << modifier;
    return static_cast<std::uint8_t>(bits);
}

KeySet heldModifierKeys(const Keymap& keymap)
{
    KeySet keys;
    for (const auto& modifier : keymap.modifierKeys)
        for (const Keycode key : modifier)
            keys[key] = !locksSomething(keymap, key);
    return keys;
}

std::optional<Keycode> keyWithoutMeaning(const Keymap& keymap)
{
    KeySet modifiers;
    for (const auto& keys : keymap.modifierKeys)
        for (const Keycode key : keys)
            modifiers[key] = true;
    for (std::size_t key = keycodeCount - 1; key >= lowestKeycode; --key)
        if (keymap.symbols.at(key).empty() && !modifiers[key])
            return static_cast<Keycode>(key);
    return std::nullopt;
}

} // namespace tessel
