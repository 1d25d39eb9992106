#pragma once

#include "Typist.h"
#include "X11/Keymap.h"

namespace tessel {

/// A small PC keyboard with a Latin and a Cyrillic layout.
inline Keymap testKeymap()
{
    constexpr Keysym cyrillicEm = 0x06CD;
    Keymap keymap;
    keymap.symbols[Key::v] = {KeysymName::latinSmallV, cyrillicEm};
    keymap.symbols[Key::returnKey] = {KeysymName::returnKey};
    keymap.symbols[Key::insert] = {KeysymName::insert};
    keymap.symbols[Key::shiftLeft] = {KeysymName::shiftLeft};
    keymap.symbols[Key::controlLeft] = {KeysymName::controlLeft};
    keymap.symbols[Key::altLeft] = {KeysymName::altLeft};
    keymap.symbols[Key::superLeft] = {KeysymName::superLeft};
    keymap.symbols[Key::capsLock] = {KeysymName::capsLock};
    keymap.symbols[Key::numLock] = {KeysymName::numLock};
    keymap.modifierKeys = {{{Key::shiftLeft},
                            {Key::capsLock},
                            {Key::controlLeft},
                            {Key::altLeft},
                            {Key::numLock},
                            {},
                            {Key::superLeft},
                            {}}};
    keymap.keyInVPosition = Key::v;
    return keymap;
}

} // namespace tessel
