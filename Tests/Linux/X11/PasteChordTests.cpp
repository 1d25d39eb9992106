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

TEST(PasteChord, terminalsTakeControlShiftV)
{
    for (const char* name :
         {"Gnome-terminal", "konsole", "Xfce4-terminal", "kitty", "Alacritty", "Tilix", "st-256color"})
        EXPECT_EQ(pasteChordFor({"any", name}), PasteChord::controlShiftV) << name;
    EXPECT_EQ(pasteChordFor({"konsole", "my own class"}), PasteChord::controlShiftV);
}

TEST(PasteChord, theOldestTerminalsTakeShiftInsert)
{
    EXPECT_EQ(pasteChordFor({"xterm", "XTerm"}), PasteChord::shiftInsert);
    EXPECT_EQ(pasteChordFor({"xterm", "UXTerm"}), PasteChord::shiftInsert);
    EXPECT_EQ(pasteChordFor({"urxvt", "URxvt"}), PasteChord::shiftInsert);
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

} // namespace
} // namespace tessel
