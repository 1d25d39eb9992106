// What becomes an entry and what does not, seen through the panel's height and through what is pasted.

#include "ProgramTest.h"

namespace tessel::desktop {

namespace {

class HistoryTest : public ProgramTest {};

TEST_F(HistoryTest, CopyingABAMakesThreeEntries)
{
    copyTexts({"A", "B", "A"});
    expectEntryCount(3);
}

TEST_F(HistoryTest, CopyingTheSameTwiceInARowMakesOneEntry)
{
    copyTexts({"A"});
    copies_->owner().copyText("A");
    copies_->owner().waitForRequest("UTF8_STRING");
    letTheProgramTick();
    // Were there two entries of A, the panel would be higher than for two.
    copyTexts({"B"});
    expectEntryCount(2);
}

TEST_F(HistoryTest, WhatWasCopiedBeforeTheLaunchIsNotCaptured)
{
    endProgram();
    ClipboardOwner owner(desktop_.displayName());
    owner.copyText("from before");
    program_.emplace(desktop_);
    letTheProgramTick();
    copyTexts({"A", "B"});
    expectEntryCount(2);
}

TEST_F(HistoryTest, ARelaunchStartsEmpty)
{
    copyTexts({"A", "B", "C"});
    copies_.reset();
    restartProgram();
    letTheProgramTick();
    copyTexts({"D", "E"});
    expectEntryCount(2);
}

TEST_F(HistoryTest, NothingIsWrittenToDisk)
{
    const std::string marker = "Tessel-secret-9d41c7";
    copyTexts({marker + " one", marker + " two"});
    TextClient target(desktop_, TextClientKind::gtk);
    choose(1);
    target.waitForText(marker + " one");
    EXPECT_THAT(desktop_.directory().filesContaining(marker), testing::IsEmpty());
    const auto words = program_->process().errorOutput();
    EXPECT_EQ(words.find(marker), std::string::npos) << words;
    endProgram();
    EXPECT_THAT(desktop_.directory().filesContaining(marker), testing::IsEmpty());
}

TEST_F(HistoryTest, ThePanelsHeightFollowsTheNumberOfEntriesWhileItIsOpen)
{
    program_->openPanel();
    program_->panel().waitForHeight(220);
    CountedCopies copies(desktop_, *program_);
    for (const int height : {220, 262, 334, 406, 478, 550, 550}) {
        copies.copyText("entry " + std::to_string(copies.entryCount()));
        EXPECT_EQ(program_->panel().find()->frame.height, height);
    }
    program_->closePanel();
}

TEST_F(HistoryTest, AnEntryIsRemovedAndPinnedByItsKeys)
{
    copyTexts({"A", "B", "C"});
    program_->openPanel();
    // C goes; the selection falls back to the top, which is B; A is pinned and comes first.
    const auto withThree = program_->panel().picture();
    desktop_.keyboard().chord({XKB_KEY_Control_L}, XKB_KEY_BackSpace);
    program_->panel().waitUntilItDiffersFrom(withThree);
    desktop_.keyboard().tap(XKB_KEY_Down);
    desktop_.keyboard().chord({XKB_KEY_Control_L}, XKB_KEY_p);
    program_->closePanel();
    expectEntryCount(2);
    TextClient target(desktop_, TextClientKind::gtk);
    choose(0);
    target.waitForText("A");
}

TEST_F(HistoryTest, TheHundredAndFirstCopyDropsTheOldestAndItsPin)
{
    program_->openPanel();
    CountedCopies copies(desktop_, *program_);
    copies.copyText("value 1");
    desktop_.keyboard().chord({XKB_KEY_Control_L}, XKB_KEY_p);
    for (int number = 2; number <= 101; ++number)
        copies.copyText("value " + std::to_string(number));
    program_->closePanel();

    TextClient target(desktop_, TextClientKind::gtk);
    choose(0);
    target.waitForText("value 101");
    target.setText("");
    choose(120);
    target.waitForText("value 2");
}

} // namespace

} // namespace tessel::desktop
