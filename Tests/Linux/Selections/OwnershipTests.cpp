#include <gtest/gtest.h>

#include "ClipboardFixture.h"

namespace tessel {
namespace {

class Ownership : public ::testing::Test, protected ClipboardFixture {
protected:
    FakeOwner textOwner(std::string text) const
    {
        return ownerOf(atoms(), {{atoms().utf8String, utf8Target(atoms(), std::move(text))}});
    }
    void copy(std::string text)
    {
        display.takeClipboard(textOwner(std::move(text)));
        display.deliverAll();
    }
};

TEST_F(Ownership, OurOwnWriteIsNotReceived)
{
    writeText(1, "ours");
    display.deliverAll();
    EXPECT_TRUE(display.isOwnedByUs(atoms().clipboard));
    EXPECT_TRUE(reports.empty());
    EXPECT_TRUE(display.convertedTargets.empty());
}

TEST_F(Ownership, AnOwnerAfterOurWriteCarriesItsNumber)
{
    copy("before");
    writeText(7, "ours");
    display.deliverAll();
    copy("after");
    ASSERT_EQ(reports.size(), 2U);
    EXPECT_EQ(reports[0].generation, 0U);
    EXPECT_EQ(reports[1].generation, 7U);
    EXPECT_FALSE(display.isOwnedByUs(atoms().clipboard));
}

TEST_F(Ownership, AWriteEndsTheTransferFromAnOlderOwner)
{
    display.takeClipboard(textOwner("older"));
    display.deliverOne();
    display.deliverOne();
    writeText(1, "ours");
    display.deliverAll();
    EXPECT_TRUE(reports.empty());
    EXPECT_EQ(paste(atoms().clipboard, atoms().utf8String)->bytes, "ours");
}

TEST_F(Ownership, WhoTakesTheSelectionAfterOurTimestampIsTheLatest)
{
    writeText(1, "ours");
    display.takeClipboard(textOwner("older"));
    display.deliverAll();
    ASSERT_EQ(reports.size(), 1U);
    EXPECT_EQ(*reports[0].received.value.text, "older");
    EXPECT_FALSE(display.isOwnedByUs(atoms().clipboard));
}

TEST_F(Ownership, AnOwnerThatComesRightAfterUsIsReceived)
{
    writeText(1, "ours");
    display.deliverOne(); // The time; now the selection is taken.
    EXPECT_TRUE(display.isOwnedByUs(atoms().clipboard));
    display.takeClipboard(textOwner("theirs"));
    display.deliverAll();
    ASSERT_EQ(reports.size(), 1U);
    EXPECT_EQ(reports[0].generation, 1U);
    EXPECT_EQ(*reports[0].received.value.text, "theirs");
}

TEST_F(Ownership, AnOwnerThatComesAndDiesWhileWeTakeTheSelectionIsAnUnreadableValue)
{
    writeText(1, "ours");
    display.deliverOne();
    display.takeClipboard(textOwner("theirs"));
    display.killOwner();
    display.deliverAll();
    ASSERT_EQ(reports.size(), 1U);
    EXPECT_EQ(reports[0].received.readability, Readability::unreadable);
}

TEST_F(Ownership, TheLastOfSeveralWritesIsServed)
{
    writeText(1, "one");
    writeText(2, "two");
    display.deliverAll();
    EXPECT_EQ(paste(atoms().clipboard, atoms().utf8String)->bytes, "two");
    EXPECT_TRUE(reports.empty());
}

TEST_F(Ownership, ADeliberateClearIsKeptAsEmptiness)
{
    copy("word");
    coordinator.write(1, std::make_shared<const SelectionValue>(), display.now);
    display.deliverAll();
    EXPECT_TRUE(display.isOwnedByUs(atoms().clipboard));
    EXPECT_FALSE(paste(atoms().clipboard, atoms().utf8String));
    EXPECT_EQ(atomsOf(paste(atoms().clipboard, atoms().targets)->bytes),
              (std::vector<AtomID>{atoms().targets, atoms().timestamp, atoms().multiple}));
}

TEST_F(Ownership, AnOwnerThatTakesTheSelectionBackIsLeftAlone)
{
    writeText(1, "ours");
    display.deliverAll();
    for (int round = 0; round < 5; ++round)
        copy("theirs");
    EXPECT_EQ(reports.size(), 5U);
    EXPECT_FALSE(display.isOwnedByUs(atoms().clipboard));
}

TEST_F(Ownership, AValueOutlivesItsOwnerWithoutBeingReportedAgain)
{
    copy("word");
    display.killOwner();
    display.deliverAll();
    EXPECT_TRUE(display.isOwnedByUs(atoms().clipboard));
    EXPECT_EQ(paste(atoms().clipboard, atoms().utf8String)->bytes, "word");
    EXPECT_EQ(reports.size(), 1U);
}

TEST_F(Ownership, AValueThatIsAnsweredIsNotLostWhenItsOwnerDiesAtOnce)
{
    display.takeClipboard(textOwner("word"));
    constexpr int targetsAndText = 2;
    while (display.readCount < targetsAndText)
        ASSERT_TRUE(display.deliverOne());
    display.killOwner();
    display.deliverAll();
    ASSERT_EQ(reports.size(), 1U);
    ASSERT_TRUE(reports[0].received.value.text);
    EXPECT_EQ(*reports[0].received.value.text, "word");
    EXPECT_TRUE(display.isOwnedByUs(atoms().clipboard));
    EXPECT_EQ(paste(atoms().clipboard, atoms().utf8String)->bytes, "word");
}

TEST_F(Ownership, AnOwnerThatAnnouncesIncrementsAndDiesIsNotWaitedFor)
{
    FakeTarget text = utf8Target(atoms(), "a text in increments");
    text.incrementBytes = 4;
    display.takeClipboard(ownerOf(atoms(), {{atoms().utf8String, text}}));
    constexpr int targetsAndText = 2;
    while (display.readCount < targetsAndText)
        ASSERT_TRUE(display.deliverOne());
    display.killOwner();
    display.deliverAll();
    ASSERT_EQ(reports.size(), 1U);
    EXPECT_EQ(reports[0].received.readability, Readability::unreadable);
    EXPECT_FALSE(display.isOwnedByUs(atoms().clipboard));
}

TEST_F(Ownership, APictureAndItsCompanionsOutliveTheirOwner)
{
    FakeTarget picture;
    picture.value = {atoms().jpeg, 8, "jpeg bytes"};
    FakeTarget html;
    html.value = {atoms().html, 8, "<img>"};
    display.takeClipboard(ownerOf(atoms(), {{atoms().jpeg, picture}, {atoms().html, html}}));
    display.deliverAll();
    display.killOwner();
    display.deliverAll();
    EXPECT_EQ(paste(atoms().clipboard, atoms().jpeg)->bytes, "jpeg bytes");
    EXPECT_EQ(paste(atoms().clipboard, atoms().html)->bytes, "<img>");
    EXPECT_EQ(reports.size(), 1U);
}

TEST_F(Ownership, WhatWasThereBeforeUsIsKeptAndNeverReported)
{
    display.takeClipboard(textOwner("before"));
    display.forgetEvents();
    coordinator.keepPresentValue();
    display.deliverAll();
    EXPECT_TRUE(reports.empty());
    display.killOwner();
    display.deliverAll();
    EXPECT_EQ(paste(atoms().clipboard, atoms().utf8String)->bytes, "before");
    EXPECT_TRUE(reports.empty());
    copy("after");
    ASSERT_EQ(reports.size(), 1U);
    EXPECT_EQ(*reports[0].received.value.text, "after");
}

TEST_F(Ownership, AnOwnerThatComesWhileWeLookAtThePresentOneIsReported)
{
    display.takeClipboard(textOwner("before"));
    display.forgetEvents();
    coordinator.keepPresentValue();
    display.takeClipboard(textOwner("after"));
    display.deliverAll();
    ASSERT_EQ(reports.size(), 1U);
    EXPECT_EQ(*reports[0].received.value.text, "after");
}

TEST_F(Ownership, ASilentOwnerFromBeforeIsNeverReported)
{
    FakeOwner mute;
    mute.isMute = true;
    display.takeClipboard(mute);
    display.forgetEvents();
    coordinator.keepPresentValue();
    display.deliverAll();
    display.passTime(IncomingConversion::longestSilence);
    EXPECT_TRUE(reports.empty());
}

TEST_F(Ownership, ACompanionThatIsTooLargeDoesNotCostTheOthers)
{
    const auto companions = atoms().companionTargets();
    ASSERT_GE(companions.size(), 2U);
    const auto companion = [](AtomID target, std::string bytes) {
        FakeTarget offered;
        offered.value = {target, 8, std::move(bytes)};
        return std::pair(target, offered);
    };
    display.takeClipboard(ownerOf(
        atoms(), {{atoms().utf8String, utf8Target(atoms(), "word")},
                  companion(companions[0], std::string(SelectionReceiver::mostCompanionBytes + 1, 'x')),
                  companion(companions[1], "kept")}));
    display.deliverAll();
    display.killOwner();
    display.deliverAll();
    EXPECT_EQ(paste(atoms().clipboard, companions[1])->bytes, "kept");
}

TEST_F(Ownership, WhoTakesTheSelectionAfterADeathKeepsIt)
{
    copy("word");
    display.killOwner();
    display.takeClipboard(textOwner("manager"));
    display.deliverAll();
    EXPECT_FALSE(display.isOwnedByUs(atoms().clipboard));
    ASSERT_EQ(reports.size(), 2U);
    EXPECT_EQ(*reports[1].received.value.text, "manager");
}

TEST_F(Ownership, WhoTakesTheSelectionAtADeathWithAnEarlierTimeKeepsItToo)
{
    copy("word");
    display.passTime(std::chrono::milliseconds(50));
    const ServerTime keyPress = display.time();
    display.passTime(std::chrono::milliseconds(50));
    display.killOwner();
    display.takeClipboard(textOwner("copied by a slow application"), keyPress);
    display.deliverAll();
    EXPECT_FALSE(display.isOwnedByUs(atoms().clipboard));
    ASSERT_EQ(reports.size(), 2U);
    EXPECT_EQ(*reports[1].received.value.text, "copied by a slow application");
}

TEST_F(Ownership, NothingIsTakenOverAfterAClearByOthers)
{
    copy("word");
    display.clearClipboard();
    display.deliverAll();
    display.killOwner();
    display.deliverAll();
    EXPECT_EQ(display.ownerOf(atoms().clipboard), noWindow);
}

TEST_F(Ownership, AnApplicationThatQuitsIsToldWhenItsValueIsHere)
{
    coordinator.becomeClipboardManager();
    display.deliverAll();
    FakeTarget html;
    html.value = {atoms().html, 8, "<b>"};
    const WindowID owner = display.takeClipboard(
        ownerOf(atoms(), {{atoms().utf8String, utf8Target(atoms(), "word")}, {atoms().html, html}}));
    display.deliverOne();
    display.notices.clear();
    constexpr AtomID property = 9000;
    display.request(owner, atoms().clipboardManager, atoms().saveTargets, property);
    while (display.notices.empty())
        ASSERT_TRUE(display.deliverOne());
    EXPECT_EQ(display.property(owner, property)->type, atoms().null);
    display.killOwner();
    display.deliverAll();
    EXPECT_EQ(paste(atoms().clipboard, atoms().utf8String)->bytes, "word");
    EXPECT_EQ(paste(atoms().clipboard, atoms().html)->bytes, "<b>");
}

TEST_F(Ownership, WhatAnOwnerGivesUpOnItsWayOutAfterSavingIsOurs)
{
    coordinator.becomeClipboardManager();
    display.deliverAll();
    const WindowID owner = display.takeClipboard(textOwner("word"));
    display.deliverAll();
    const ServerTime quitTime = display.time();
    display.notices.clear();
    display.request(owner, atoms().clipboardManager, atoms().saveTargets, 9000);
    while (display.notices.empty())
        ASSERT_TRUE(display.deliverOne());
    display.setSelectionOwner(noWindow, atoms().clipboard, quitTime);
    display.deliverAll();
    EXPECT_TRUE(display.isOwnedByUs(atoms().clipboard));
    EXPECT_EQ(paste(atoms().clipboard, atoms().utf8String)->bytes, "word");
    EXPECT_EQ(reports.size(), 1U) << "what is kept is not a new value";
}

TEST_F(Ownership, WhoWaitsIsToldOnceWhatWasWrittenAndOfferedIsOurs)
{
    auto value = std::make_shared<SelectionValue>();
    value->text = std::make_shared<const std::string>("word");
    writeText(1, "word");
    coordinator.offerPrimary(value);
    bool isTold = false;
    coordinator.whenAvailable([&] { isTold = true; });
    EXPECT_FALSE(isTold);
    while (!isTold)
        ASSERT_TRUE(display.deliverOne());
    EXPECT_TRUE(display.isOwnedByUs(atoms().clipboard));
    EXPECT_TRUE(display.isOwnedByUs(atoms().primary));
}

TEST_F(Ownership, WhoWaitsForNothingIsToldAtOnce)
{
    bool isTold = false;
    coordinator.whenAvailable([&] { isTold = true; });
    EXPECT_TRUE(isTold);
}

TEST_F(Ownership, AClearAfterSavingIsAClear)
{
    coordinator.becomeClipboardManager();
    display.deliverAll();
    const WindowID owner = display.takeClipboard(textOwner("word"));
    display.deliverAll();
    display.request(owner, atoms().clipboardManager, atoms().saveTargets, 9000);
    display.deliverAll();
    display.clearClipboard();
    display.deliverAll();
    EXPECT_EQ(display.ownerOf(atoms().clipboard), noWindow);
}

TEST_F(Ownership, WhoDoesNotOwnTheClipboardSavesNothing)
{
    coordinator.becomeClipboardManager();
    display.deliverAll();
    const WindowID owner = display.takeClipboard(textOwner("word"));
    display.deliverAll();
    display.notices.clear();
    display.request(display.createForeignWindow(), atoms().clipboardManager, atoms().saveTargets, 9000);
    display.deliverAll();
    EXPECT_EQ(display.notices.size(), 1U);
    EXPECT_EQ(display.ownerOf(atoms().clipboard), owner);
}

TEST_F(Ownership, WhoTakesTheSelectionAfterASavedValueKeepsIt)
{
    coordinator.becomeClipboardManager();
    display.deliverAll();
    const WindowID owner = display.takeClipboard(textOwner("saved"));
    display.deliverAll();
    display.request(owner, atoms().clipboardManager, atoms().saveTargets, 9000);
    const WindowID latest = display.takeClipboard(textOwner("latest"));
    display.deliverAll();
    EXPECT_EQ(display.ownerOf(atoms().clipboard), latest);
    ASSERT_EQ(reports.size(), 2U);
    EXPECT_EQ(*reports[1].received.value.text, "latest");
}

TEST_F(Ownership, AnApplicationThatQuitsIsNotLeftWaiting)
{
    coordinator.becomeClipboardManager();
    display.deliverAll();
    FakeOwner mute;
    mute.isMute = true;
    const WindowID owner = display.takeClipboard(mute);
    display.deliverAll();
    display.notices.clear();
    display.request(owner, atoms().clipboardManager, atoms().saveTargets, 9000);
    display.deliverAll();
    EXPECT_TRUE(display.notices.empty());
    display.passTime(IncomingConversion::longestSilence);
    display.deliverAll();
    EXPECT_EQ(display.notices.size(), 1U);
}

} // namespace
} // namespace tessel
