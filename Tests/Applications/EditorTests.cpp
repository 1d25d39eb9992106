// Text editors of both toolkits.

#include "ApplicationTest.h"

namespace tessel::desktop {

namespace {

const std::string text = "Zażółć gęślą jaźń, éèêü\tcolumn\t\tcolumn\n\n  низкий 漢字かな 한국어 "
                         "العربية\n🦊 👩‍👩‍👧‍👦 🇵🇱 e\u0301\n\tend";

class EditorTest : public ApplicationTest {};

TEST_F(EditorTest, TextFromMousepadOutlivesIt)
{
    Application editor(desktop_, mousepad(desktop_, text));
    EXPECT_EQ(copyAndQuit(editor, {"UTF8_STRING"}).at("UTF8_STRING"), text);
    expectTextPastes(text);
}

TEST_F(EditorTest, TextFromFeatherPadOutlivesIt)
{
    Application editor(desktop_, featherpad(desktop_, text));
    EXPECT_EQ(copyAndQuit(editor, {"UTF8_STRING"}).at("UTF8_STRING"), text);
    expectTextPastes(text);
}

/// Large enough to be still on its way when the keys for quitting come.
std::string largeText()
{
    std::string large;
    for (int line = 0; large.size() < 3'000'000; ++line)
        large += "line " + std::to_string(line) + " żółw\n";
    return large;
}

class SavingTest : public ApplicationTest {};

TEST_F(SavingTest, AnEditorThatQuitsRightAfterACopyHasItSaved)
{
    const auto large = largeText();
    Application editor(desktop_, mousepad(desktop_, large));
    editor.copy();
    editor.quit();
    waitForOwner();
    EXPECT_TRUE(read({"UTF8_STRING"}).at("UTF8_STRING") == large) << "the text has changed";
    expectEntryCount(2);
}

} // namespace

} // namespace tessel::desktop
