// The main job: copy, hot key, choose, paste.

#include "ImageClient.h"
#include "ProgramTest.h"

namespace tessel::desktop {

namespace {

const std::string plainText = "first: A";
const std::string richText = "Zażółć gęślą jaźń, éèêü\tcolumn\t\tcolumn\n\n  низкий 漢字かな 한국어 "
                             "العربية\n🦊 👩‍👩‍👧‍👦 🇵🇱 e\u0301\n\tend";
const std::string lastText = "third: C";

class MainJobTest : public ProgramTest, public testing::WithParamInterface<TextClientKind> {};

TEST_P(MainJobTest, TheSecondEntryArrivesExactlyOnceAndIntact)
{
    TextClient source(desktop_, TextClientKind::gtk);
    copyInEditor(source, {plainText, richText, lastText});
    TextClient target(desktop_, GetParam());

    choose(1);

    expectPastedOnce(target, richText);
    EXPECT_EQ(source.text(), lastText);
    EXPECT_EQ(ClipboardReader(desktop_.displayName()).readText(), richText);
}

TEST_P(MainJobTest, ItWorksAgainAndAgainInTheSameEditor)
{
    copyTexts({"one ", "two ", "three "});
    TextClient target(desktop_, GetParam());
    std::string expected;
    // A paste makes no new entry, so the order stays.
    for (const auto& [downPresses, text] :
         {std::pair(2, "one "), std::pair(1, "two "), std::pair(0, "three ")}) {
        choose(downPresses);
        expected += text;
        target.waitForText(expected);
    }
    EXPECT_EQ(target.pasteCount(), 3);
}

INSTANTIATE_TEST_SUITE_P(Editors, MainJobTest, testing::Values(TextClientKind::gtk, TextClientKind::qt),
                         [](const auto& parameter) {
                             return parameter.param == TextClientKind::gtk ? "Gtk" : "Qt";
                         });

class PasteTest : public ProgramTest {};

TEST_F(PasteTest, AnImagePastesIntoAnotherProgramWithTheSamePixels)
{
    const auto file = desktop_.directory().path() / "picture.png";
    writePng(makeTestPicture(317, 211, 7), file);
    program_->openPanel();
    const auto emptyPanel = program_->panel().picture();
    program_->closePanel();

    ImageClient source(desktop_, "source");
    source.copy(file);
    program_->openPanel();
    program_->panel().waitUntilItDiffersFrom(emptyPanel);
    copies_.emplace(desktop_, *program_, 1);
    copies_->copyText("something else");
    program_->closePanel();

    ImageClient target(desktop_, "target");
    choose(1);
    EXPECT_EQ(target.waitForPastedPicture(), source.describe(file));
}

TEST_F(PasteTest, ThePastesOwnWriteMakesNoNewEntry)
{
    copyTexts({"A", "B", "C"});
    TextClient target(desktop_, TextClientKind::gtk);
    choose(1);
    target.waitForText("B");
    letTheProgramTick();
    expectEntryCount(3);
    target.activate();
    choose(0);
    target.waitForText("BC");
}

TEST_F(PasteTest, AHeldReturnDoesNotRepeatIntoTheTarget)
{
    copyTexts({"A", "B"});
    TextClient target(desktop_, TextClientKind::gtk);
    choose(1, 1400ms);
    expectPastedOnce(target, "A");
}

TEST_F(PasteTest, AReturnHeldForVeryLongPastesOnceToo)
{
    copyTexts({"A", "B"});
    TextClient target(desktop_, TextClientKind::qt);
    choose(1, 3200ms);
    expectPastedOnce(target, "A");
}

TEST_F(PasteTest, TheKeypadsEnterChoosesToo)
{
    copyTexts({"A", "B"});
    TextClient target(desktop_, TextClientKind::gtk);
    program_->openPanel();
    desktop_.keyboard().tap(XKB_KEY_Down);
    desktop_.keyboard().tap(XKB_KEY_KP_Enter);
    program_->panel().waitUntilClosed();
    expectPastedOnce(target, "A");
}

TEST_F(PasteTest, AnEntryOfALargeTextArrivesWhole)
{
    std::string text;
    for (int line = 0; text.size() < 1'000'000; ++line)
        text += "line " + std::to_string(line) + " żółw\n";
    copyTexts({text, "small"});
    TextClient target(desktop_, TextClientKind::gtk);
    choose(1);
    target.waitForText(text);
}

} // namespace

} // namespace tessel::desktop
