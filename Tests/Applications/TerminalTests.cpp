// Terminals, and the keys by which they paste.

#include <fstream>
#include <sstream>

#include "ApplicationTest.h"

namespace tessel::desktop {

namespace {

class TerminalTest : public ApplicationTest {
protected:
    /// Selects from the first character that the terminal shows to the end of a row, as a click and a click
    /// with the right button do.
    void selectRows(const Application& terminal, int rowCount)
    {
        const auto window = terminal.window();
        const auto hints = desktop_.connection().propertyItems(window.window, "WM_NORMAL_HINTS");
        ASSERT_GE(hints.size(), 11U); // ICCCM section 4.1.2.3.
        const auto rowHeight = static_cast<int>(hints[10]);
        const int left = window.frame.x + 4;
        const int firstRow = window.frame.y + rowHeight / 2 + 2;
        desktop_.pointer().moveTo({left, firstRow});
        desktop_.pointer().click(PointerButton::left);
        desktop_.pointer().moveTo(
            {window.frame.x + window.frame.width - 10, firstRow + (rowCount - 1) * rowHeight});
        desktop_.pointer().click(PointerButton::right);
        desktop_.pointer().moveTo(restingPlace);
    }

    /// Waits until the terminal has handed on exactly this text.
    void waitForArrival(const std::string& expected)
    {
        const auto arrived = [this] {
            const std::ifstream stream(arrived_, std::ios::binary);
            std::ostringstream contents;
            contents << stream.rdbuf();
            return contents.str();
        };
        try {
            desktop_.connection().waitUntil("the text from the terminal",
                                            [&] { return arrived() == expected; });
        } catch (const DesktopFailure& failure) {
            throw DesktopFailure(std::string(failure.what()) + ": expected \"" + expected + "\", it is \"" +
                                 arrived() + "\"");
        }
    }

    const std::filesystem::path arrived_ = desktop_.directory().path() / "arrived.txt";
    const std::string text_ =
        "Zażółć gęślą jaźń  éèêü\n  низкий 漢字かな 한국어\n\n🦊 end\n";
};

TEST_F(TerminalTest, TextFromXtermOutlivesItAndPastesIntoAnother)
{
    Application terminal(desktop_, xterm(desktop_, text_, arrived_));
    selectRows(terminal, 4);
    EXPECT_EQ(copyAndQuit(terminal, {"UTF8_STRING"}).at("UTF8_STRING"), text_);
    expectTextPastes(text_);

    Application other(desktop_, xterm(desktop_, "", arrived_));
    choose(0);
    waitForArrival(text_);
}

/// How a terminal is started, up to the name of the program inside.
struct Terminal {
    std::string name;
    std::vector<std::string> command;
    std::string className;

    friend std::ostream& operator<<(std::ostream& stream, const Terminal& terminal)
    {
        return stream << terminal.name;
    }
};

const std::vector<Terminal> terminals = {
    {"alacritty", {"alacritty", "-e"}, "Alacritty"},
    {"kitty", {"kitty"}, "kitty"},
    {"lxterminal", {"lxterminal", "--no-remote", "-e"}, "Lxterminal"},
    {"mate_terminal", {"mate-terminal", "--disable-factory", "-x"}, "Mate-terminal"},
    {"mlterm", {"mlterm", "-e"}, "mlterm"},
    {"pterm", {"pterm", "-e"}, "Pterm"},
    {"qterminal", {"qterminal", "-e"}, "qterminal"},
    {"st", {"stterm", "-e"}, "st-256color"},
    {"terminator", {"terminator", "-u", "-x"}, "Terminator"},
    {"tilix", {"tilix", "--new-process", "-e"}, "Tilix"},
    {"urxvt", {"urxvt", "-e"}, "URxvt"},
};

class TerminalChordTest : public TerminalTest, public testing::WithParamInterface<Terminal> {};

TEST_P(TerminalChordTest, AnEntryArrivesOnce)
{
    const std::string line = "ls 'żółw éè'";
    copyTexts({line});
    Application terminal(desktop_, terminalWithReader(GetParam().command, GetParam().className, arrived_));
    choose(0);
    waitForArrival(line);
    letTheProgramTick();
    desktop_.keyboard().type("!");
    waitForArrival(line + "!");
}

INSTANTIATE_TEST_SUITE_P(Every, TerminalChordTest, testing::ValuesIn(terminals),
                         testing::PrintToStringParamName());

} // namespace

} // namespace tessel::desktop
