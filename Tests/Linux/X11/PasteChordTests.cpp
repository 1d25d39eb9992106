#include <gtest/gtest.h>

#include "TestKeymap.h"
#include "X11/PasteChord.h"

namespace tessel {
namespace {

using namespace std::string_view_literals;

TEST(PasteChord, windowClassIsTwoTextsEachClosedByAZero)
{
    EXPECT_EQ(windowClassFromProperty("gnome-terminal-server\0Gnome-terminal\0"sv),
              (WindowClass{"gnome-terminal-server", "Gnome-terminal"}));
    EXPECT_EQ(windowClassFromProperty("xterm\0XTerm"sv), (WindowClass{"xterm", "XTerm"}));
    EXPECT_EQ(windowClassFromProperty("alone"sv), (WindowClass{"alone", ""}));
    EXPECT_EQ(windowClassFromProperty(""sv), WindowClass{});
}

TEST(PasteChord, everythingThatIsNoTerminalTakesControlV)
{
    EXPECT_EQ(pasteChordFor({"gedit", "Gedit"}), PasteChord::controlV);
    EXPECT_EQ(pasteChordFor({}), PasteChord::controlV);
}

/// As the terminals set it.
const std::vector<WindowClass> controlShiftVTerminals = {
    {"Alacritty", "Alacritty"},
    {"blackbox", "com.raggesilver.BlackBox"},
    {"cool-retro-term", "cool-retro-term"},
    {"deepin-terminal", "deepin-terminal"},
    {"ghostty", "com.mitchellh.ghostty"},
    {"gnome-terminal-server", "Gnome-terminal"},
    {"guake", "Guake"},
    {"io.elementary.terminal", "Io.elementary.terminal"},
    {"kgx", "kgx"},
    {"kitty", "kitty"},
    {"konsole", "konsole"},
    {"lxterminal", "Lxterminal"},
    {"mate-terminal", "Mate-terminal"},
    {"ptyxis", "org.gnome.Ptyxis"},
    {"qterminal", "qterminal"},
    {"roxterm", "Roxterm"},
    {"sakura", "Sakura"},
    {"st", "st-256color"},
    {"terminator", "Terminator"},
    {"terminology", "terminology"},
    {"tilda", "Tilda"},
    {"tilix", "Tilix"},
    {"org.wezfurlong.wezterm", "org.wezfurlong.wezterm"},
    {"xfce4-terminal", "Xfce4-terminal"},
    {"yakuake", "yakuake"},
    {"zutty", "Zutty"},
};

TEST(PasteChord, terminalsTakeControlShiftV)
{
    for (const WindowClass& terminal : controlShiftVTerminals)
        EXPECT_EQ(pasteChordFor(terminal), PasteChord::controlShiftV) << terminal.name;
    EXPECT_EQ(pasteChordFor({"konsole", "my own class"}), PasteChord::controlShiftV);
}

TEST(PasteChord, theOldestTerminalsTakeShiftInsert)
{
    const std::vector<WindowClass> terminals = {{"xterm", "XTerm"},   {"uxterm", "UXTerm"},
                                                {"urxvt", "URxvt"},   {"x-terminal-emulator", "XTerm"},
                                                {"mlterm", "mlterm"}, {"koi8rxterm", "KOI8RXTerm"},
                                                {"pterm", "Pterm"}};
    for (const WindowClass& terminal : terminals)
        EXPECT_EQ(pasteChordFor(terminal), PasteChord::shiftInsert) << terminal.name;
}

TEST(PasteChord, itsKeysAreThoseOfThisKeyboard)
{
    EXPECT_EQ(keysOfChord(PasteChord::controlV, testKeymap(), 0), (ChordKeys{{Key::controlLeft}, Key::v}));
    EXPECT_EQ(keysOfChord(PasteChord::controlShiftV, testKeymap(), 1),
              (ChordKeys{{Key::controlLeft, Key::shiftLeft}, Key::v}));
    EXPECT_EQ(keysOfChord(PasteChord::shiftInsert, testKeymap(), 0),
              (ChordKeys{{Key::shiftLeft}, Key::insert}));
}

TEST(PasteChord, aKeyboardThatLacksAKeyHasNoChord)
{
    Keymap keymap = testKeymap();
    keymap.symbols[Key::insert].clear();
    EXPECT_EQ(keysOfChord(PasteChord::shiftInsert, keymap, 0), std::nullopt);
    keymap.modifierKeys[2].clear();
    EXPECT_EQ(keysOfChord(PasteChord::controlV, keymap, 0), std::nullopt);
}

TEST(PasteChord, aKeyWithoutMeaningHasNoSymbolAndSetsNoModifier)
{
    Keymap keymap = testKeymap();
    const auto key = keyWithoutMeaning(keymap);
    ASSERT_TRUE(key);
    EXPECT_TRUE(keymap.symbols[*key].empty());
    keymap.modifierKeys[5] = {*key};
    EXPECT_NE(keyWithoutMeaning(keymap), key);
    for (auto& symbols : keymap.symbols)
        symbols = {KeysymName::insert};
    EXPECT_EQ(keyWithoutMeaning(keymap), std::nullopt);
}

} // namespace
} // namespace tessel
