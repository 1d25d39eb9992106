// An entry of a megabyte, in every kind of program that takes text.

#include <fstream>
#include <sstream>

#include "ApplicationTest.h"
#include "LoneKeyWatch.h"

namespace tessel::desktop {

namespace {

/// In lines of less than 1 kB, which a terminal takes in any mode.
std::string makeText()
{
    std::string text;
    for (int line = 0; text.size() < 1'000'000; ++line) {
        text += "line " + std::to_string(line) + ":";
        for (int word = 0; word < 60; ++word)
            text += word % 7 == 0 ? "\tżółw" : " 漢字 éè 🦊";
        text += '\n';
    }
    return text + "end";
}

class LargeTextTest : public ApplicationTest {
protected:
    void SetUp() override
    {
        ApplicationTest::SetUp();
        copyTexts({text_});
    }

    /// Chooses the large text, and returns when the keys for pasting it have been pressed.
    void paste()
    {
        LoneKeyWatch watch(desktop_.displayName(), desktop_.keyboard().keyCode(chordKey_));
        const int hotKeyPresses = chordKey_ == XKB_KEY_v ? 1 : 0;
        choose(0);
        desktop_.connection().waitUntil("the chord", [&] { return watch.pressCount() == hotKeyPresses + 1; });
    }

    void expectPastedOnceIntoClient(TextClientKind kind)
    {
        TextClient editor(desktop_, kind);
        paste();
        editor.waitForText(text_, patience());
        desktop_.keyboard().type("!");
        editor.waitForText(text_ + "!", patience());
        EXPECT_EQ(editor.pasteCount(), 1);
    }

    /// What the program inside a terminal has got: a terminal says Return for each line break.
    void expectPastedOnceIntoTerminal(Application& terminal)
    {
        std::string expected = text_;
        std::replace(expected.begin(), expected.end(), '\n', '\r');
        terminal.activate();
        paste();
        waitForArrival(expected);
        desktop_.keyboard().type("!");
        waitForArrival(expected + "!");
        terminal.quit();
    }

    void waitForArrival(const std::string& expected)
    {
        std::string seen;
        try {
            desktop_.connection().waitUntil(
                "the text from the terminal",
                [&] {
                    std::ostringstream contents;
                    contents << std::ifstream(arrived_, std::ios::binary).rdbuf();
                    seen = contents.str();
                    return seen == expected;
                },
                patience());
        } catch (const DesktopFailure& failure) {
            throw DesktopFailure(std::string(failure.what()) + ": expected " + textFacts(expected) +
                                 ", it has " + textFacts(seen));
        }
    }

    /// For big programs on a busy machine.
    static Deadline patience() { return Deadline(400s); }

    const std::string text_ = makeText();
    const std::filesystem::path arrived_ = desktop_.directory().path() / "arrived.txt";
    KeySymbol chordKey_ = XKB_KEY_v;
};

TEST_F(LargeTextTest, ArrivesOnceInAGtk3TextView)
{
    expectPastedOnceIntoClient(TextClientKind::gtk);
}

TEST_F(LargeTextTest, ArrivesOnceInAGtk4TextView)
{
    expectPastedOnceIntoClient(TextClientKind::gtk4);
}

TEST_F(LargeTextTest, ArrivesOnceInAQtTextEdit)
{
    expectPastedOnceIntoClient(TextClientKind::qt);
}

TEST_F(LargeTextTest, ArrivesOnceInATextAreaOfChromium)
{
    Application browser(desktop_, chromiumTextArea(desktop_));
    paste();
    browser.waitForTitle("1: " + textFacts(text_));
    desktop_.keyboard().type("!");
    browser.waitForTitle("2: " + textFacts(text_ + "!"));
}

TEST_F(LargeTextTest, ArrivesOnceInLibreOfficeWriter)
{
    Application writer(desktop_, libreOfficeWriter(desktop_, "<p>before</p>"));
    paste();
    writer.copy();
    const auto arrived = read({"UTF8_STRING"}).at("UTF8_STRING").value_or("");
    EXPECT_TRUE(arrived == text_ + "before") << textFacts(arrived) << ", not " << textFacts(text_ + "before");
    writer.activate();
}

TEST_F(LargeTextTest, ArrivesOnceInXterm)
{
    chordKey_ = XKB_KEY_Insert;
    Application terminal(desktop_, xtermWithReader(desktop_, arrived_));
    expectPastedOnceIntoTerminal(terminal);
}

TEST_F(LargeTextTest, ArrivesOnceInAGtkTerminal)
{
    Application terminal(desktop_, xfceTerminalWithReader(desktop_, arrived_));
    expectPastedOnceIntoTerminal(terminal);
}

class Gtk4Test : public ApplicationTest {};

TEST_F(Gtk4Test, AnEntryArrivesInAFieldForOneLineAsAPasteByHandWouldBringIt)
{
    const std::string text =
        "Zażółć gęślą jaźń, éèêü\tcolumn 漢字 🦊 👩‍👩‍👧‍👦 🇵🇱 e\u0301";
    copyTexts({text});
    TextClient field(desktop_, TextClientKind::gtk4Entry);
    expectPastedAsByHand(field, "Zażółć gęślą jaźń, éèêü");
}

} // namespace

} // namespace tessel::desktop
