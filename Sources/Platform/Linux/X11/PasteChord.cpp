#include "X11/PasteChord.h"

#include <algorithm>
#include <array>
#include <cctype>

namespace tessel {

namespace {

/// In small letters, by class name or instance name.
constexpr std::array<std::string_view, 57> controlShiftVTerminals = {
    "alacritty",
    "blackbox",
    "com.github.amezin.ddterm",
    "com.mitchellh.ghostty",
    "com.raggesilver.blackbox",
    "com.system76.cosmicterm",
    "contour",
    "cool-retro-term",
    "deepin-terminal",
    "dev.warp.warp",
    "elementary-terminal",
    "foot",
    "ghostty",
    "gnome-terminal",
    "gnome-terminal-server",
    "guake",
    "hyper",
    "io.elementary.terminal",
    "kgx",
    "kitty",
    "konsole",
    "lxterminal",
    "mate-terminal",
    "org.codeberg.dnkl.foot",
    "org.contourterminal.contour",
    "org.gnome.console",
    "org.gnome.ptyxis",
    "org.gnome.terminal",
    "org.kde.konsole",
    "org.kde.yakuake",
    "org.wezfurlong.wezterm",
    "pantheon-terminal",
    "ptyxis",
    "qterminal",
    "rio",
    "roxterm",
    "sakura",
    "st",
    "st-256color",
    "stterm",
    "stterm-256color",
    "tabby",
    "terminal",
    "terminator",
    "terminology",
    "termite",
    "tilda",
    "tilix",
    "tym",
    "wezterm",
    "wezterm-gui",
    "xfce4-terminal",
    "xfce4-terminal-dropdown",
    "xst",
    "xst-256color",
    "yakuake",
    "zutty",
};

constexpr std::array<std::string_view, 13> shiftInsertTerminals = {
    "aterm", "eterm", "koi8rxterm",   "kterm", "mlterm", "mrxvt", "pterm",
    "putty", "rxvt",  "rxvt-unicode", "urxvt", "uxterm", "xterm",
};

std::string lowercase(std::string_view text)
{
    std::string result(text);
    std::transform(result.begin(), result.end(), result.begin(),
                   [](unsigned char letter) { return static_cast<char>(std::tolower(letter)); });
    return result;
}

template <class Table>
bool names(const Table& table, const WindowClass& windowClass)
{
    const auto contains = [&](const std::string& name) {
        return std::find(table.begin(), table.end(), lowercase(name)) != table.end();
    };
    return contains(windowClass.name) || contains(windowClass.instance);
}

/// A key that sets the modifier: the one with the preferred symbol where there is one.
std::optional<Keycode> modifierKey(const Keymap& keymap, std::size_t modifier, Keysym preferred)
{
    const auto& keys = keymap.modifierKeys.at(modifier);
    const KeySet preferredKeys = keysFor(keymap, preferred);
    for (const Keycode key : keys)
        if (preferredKeys[key])
            return key;
    if (keys.empty())
        return std::nullopt;
    return keys.front();
}

constexpr std::size_t shiftModifier = 0;
constexpr std::size_t controlModifier = 2;

} // namespace

WindowClass windowClassFromProperty(std::string_view bytes)
{
    const auto instanceEnd = std::min(bytes.find('\0'), bytes.size());
    WindowClass windowClass{std::string(bytes.substr(0, instanceEnd)), {}};
    bytes.remove_prefix(std::min(instanceEnd + 1, bytes.size()));
    windowClass.name = bytes.substr(0, std::min(bytes.find('\0'), bytes.size()));
    return windowClass;
}

PasteChord pasteChordFor(const WindowClass& windowClass)
{
    if (names(shiftInsertTerminals, windowClass))
        return PasteChord::shiftInsert;
    if (names(controlShiftVTerminals, windowClass))
        return PasteChord::controlShiftV;
    return PasteChord::controlV;
}

std::optional<ChordKeys> keysOfChord(PasteChord chord, const Keymap& keymap, std::size_t group)
{
    const auto control = modifierKey(keymap, controlModifier, KeysymName::controlLeft);
    const auto shift = modifierKey(keymap, shiftModifier, KeysymName::shiftLeft);
    const auto letter = keyForLatinV(keymap, group);
    const auto insert = keyFor(keymap, KeysymName::insert, group);
    switch (chord) {
    case PasteChord::controlV:
        if (control && letter)
            return ChordKeys{{*control}, *letter};
        return std::nullopt;
    case PasteChord::controlShiftV:
        if (control && shift && letter)
            return ChordKeys{{*control, *shift}, *letter};
        return std::nullopt;
    case PasteChord::shiftInsert:
        if (shift && insert)
            return ChordKeys{{*shift}, *insert};
        return std::nullopt;
    }
    return std::nullopt;
}

KeySet setOf(const ChordKeys& keys)
{
    KeySet set;
    for (const Keycode key : keys.modifiers)
        set[key] = true;
    set[keys.key] = true;
    return set;
}

} // namespace tessel
