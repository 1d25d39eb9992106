#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "X11/Keymap.h"

namespace tessel {

/// What an application takes as "paste".
enum class PasteChord {
    controlV,
    controlShiftV, ///< Terminals, where Ctrl+V belongs to the program inside.
    shiftInsert,   ///< The oldest terminals, which paste PRIMARY and know no other chord.
};

/// WM_CLASS of a window (ICCCM section 4.1.2.5).
struct WindowClass {
    std::string instance;
    std::string name;

    friend bool operator==(const WindowClass&, const WindowClass&) = default;
};

/// Reads the property: two texts, each closed by a zero byte. Missing parts are empty.
WindowClass windowClassFromProperty(std::string_view bytes);

/// The chord that pastes in a window of that class, from a table of terminals.
PasteChord pasteChordFor(const WindowClass& windowClass);

/// The keys of a chord: the modifiers in the order in which they are pressed, and the key.
struct ChordKeys {
    std::vector<Keycode> modifiers;
    Keycode key = 0;

    friend bool operator==(const ChordKeys&, const ChordKeys&) = default;
};

/// The keys for a chord on this keyboard while the layout `group` is in force. None: the keyboard lacks one
/// of them.
std::optional<ChordKeys> keysOfChord(PasteChord chord, const Keymap& keymap, std::size_t group);

/// The same keys as a set.
KeySet setOf(const ChordKeys& keys);

} // namespace tessel
