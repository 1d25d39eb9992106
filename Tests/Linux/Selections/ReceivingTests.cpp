#include <algorithm>

#include <gtest/gtest.h>

#include <malloc.h>

#include "ClipboardFixture.h"
#include "PeakMemory.h"

namespace tessel {
namespace {

class Receiving : public ::testing::Test, protected ClipboardFixture {
protected:
    FakeTarget text(std::string value) const { return utf8Target(atoms(), std::move(value)); }
    FakeTarget latin1(std::string value) const
    {
        FakeTarget target;
        target.value = {atoms().string, 8, std::move(value)};
        return target;
    }
    FakeTarget bytes(AtomID type, std::string value) const
    {
        FakeTarget target;
        target.value = {type, 8, std::move(value)};
        return target;
    }
    FakeTarget inIncrements(FakeTarget target, std::size_t size) const
    {
        target.incrementBytes = size;
        return target;
    }
    void copy(FakeOwner owner)
    {
        display.takeClipboard(std::move(owner));
        display.deliverAll();
    }
    void copy(std::map<AtomID, FakeTarget> targets) { copy(ownerOf(atoms(), std::move(targets))); }

    /// The text of the one report; expects that there is one.
    std::string onlyText() const
    {
        EXPECT_EQ(reports.size(), 1U);
        if (reports.size() != 1 || !reports[0].received.value.text)
            return "(none)";
        return *reports[0].received.value.text;
    }
    void expectOneUnreadable() const
    {
        ASSERT_EQ(reports.size(), 1U);
        EXPECT_EQ(reports[0].received.readability, Readability::unreadable);
        EXPECT_TRUE(reports[0].received.value.isEmpty());
    }
    void TearDown() override
    {
        display.passTime(SelectionReceiver::retirement);
        EXPECT_TRUE(display.requestors.empty()) << "a requestor window was left behind";
        EXPECT_FALSE(coordinator.deadline());
    }
};

TEST_F(Receiving, AnIncrementThatOvertakesItsAnnouncementIsNotMissed)
{
    display.eventsOvertakeReplies = true;
    copy({{atoms().utf8String, inIncrements(utf8Target(atoms(), "a text in increments"), 4)}});
    EXPECT_EQ(onlyText(), "a text in increments");
}

TEST_F(Receiving, ATextInOneProperty)
{
    copy({{atoms().utf8String, text("Grüße")}});
    EXPECT_EQ(onlyText(), "Grüße");
    EXPECT_EQ(display.createdRequestors, 1U);
}

TEST_F(Receiving, NothingIsReportedBeforeTheValueIsHere)
{
    display.takeClipboard(ownerOf(atoms(), {{atoms().utf8String, inIncrements(text("abc"), 1)}}));
    while (reports.empty())
        ASSERT_TRUE(display.deliverOne());
    EXPECT_EQ(onlyText(), "abc");
    display.deliverAll();
    EXPECT_EQ(reports.size(), 1U);
}

TEST_F(Receiving, ATextOfManySlicesArrivesWhole)
{
    std::string large;
    for (int line = 0; large.size() < 3 * IncomingConversion::sliceBytes + 17; ++line)
        large += "line " + std::to_string(line) + "\n";
    copy({{atoms().utf8String, text(large)}});
    EXPECT_EQ(onlyText(), large);
}

TEST_F(Receiving, ATextInIncrementsArrivesWhole)
{
    std::string large;
    for (int line = 0; large.size() < 100000; ++line)
        large += "line " + std::to_string(line) + "\n";
    copy({{atoms().utf8String, inIncrements(text(large), 1000)}});
    EXPECT_EQ(onlyText(), large);
}

TEST_F(Receiving, IncrementsMayBeLargerThanASlice)
{
    const std::string large(3 * IncomingConversion::sliceBytes, 'x');
    copy({{atoms().utf8String, inIncrements(text(large), IncomingConversion::sliceBytes + 4)}});
    EXPECT_EQ(onlyText(), large);
}

TEST_F(Receiving, AnEmptyTextInIncrementsIsEmpty)
{
    copy({{atoms().utf8String, inIncrements(text(""), 10)}});
    EXPECT_EQ(onlyText(), "");
}

TEST_F(Receiving, TextFormsAreTakenInOrder)
{
    copy({{atoms().string, latin1("latin")},
          {atoms().text, text("any")},
          {atoms().plainTextUTF8, bytes(atoms().plainTextUTF8, "plain")}});
    EXPECT_EQ(onlyText(), "plain");
}

TEST_F(Receiving, StringIsLatin1)
{
    copy({{atoms().string, latin1("Gr\xFC\xDF"
                                  "e")}});
    EXPECT_EQ(onlyText(), "Grüße");
}

TEST_F(Receiving, TextIsReadAsTheTypeThatComesBack)
{
    copy({{atoms().text, latin1("\xE4")}});
    EXPECT_EQ(onlyText(), "ä");
    reports.clear();
    copy({{atoms().text, bytes(atoms().compoundText, "\x1B%G世\x1B%@")}});
    EXPECT_EQ(onlyText(), "世");
}

TEST_F(Receiving, InvalidUTF8IsRepaired)
{
    copy({{atoms().utf8String, text("a\xFF"
                                    "b")}});
    EXPECT_EQ(onlyText(), "a\uFFFDb");
}

TEST_F(Receiving, AnOwnerWithoutTargetsIsAskedForTextAllTheSame)
{
    FakeOwner owner;
    owner.targets[atoms().string] = latin1("old");
    copy(std::move(owner));
    EXPECT_EQ(onlyText(), "old");
}

TEST_F(Receiving, TextWinsOverAPicture)
{
    copy({{atoms().utf8String, text("word")}, {atoms().png, bytes(atoms().png, "picture")}});
    EXPECT_EQ(onlyText(), "word");
    EXPECT_EQ(std::ranges::count(display.convertedTargets, atoms().png), 0);
}

TEST_F(Receiving, APictureBesideAnEmptyTextIsTaken)
{
    copy({{atoms().utf8String, text("")}, {atoms().png, bytes(atoms().png, "picture")}});
    EXPECT_EQ(onlyText(), "");
    EXPECT_EQ(*reports[0].received.value.picture.bytes, "picture");
    EXPECT_EQ(reports[0].received.value.picture.mimeType, "image/png");
}

TEST_F(Receiving, PNGIsPreferredAndOthersFollow)
{
    copy({{atoms().jpeg, bytes(atoms().jpeg, "jpeg")}, {atoms().png, bytes(atoms().png, "png")}});
    EXPECT_EQ(reports.at(0).received.value.picture.mimeType, "image/png");
    copy({{atoms().jpeg, bytes(atoms().jpeg, "jpeg")}, {atoms().bmp, bytes(atoms().bmp, "bmp")}});
    EXPECT_EQ(reports.at(1).received.value.picture.mimeType, "image/bmp");
    FakeTarget missing = bytes(atoms().png, "");
    missing.isMissing = true;
    copy({{atoms().jpeg, bytes(atoms().jpeg, "jpeg")}, {atoms().png, missing}});
    EXPECT_EQ(reports.at(2).received.value.picture.mimeType, "image/jpeg");
}

TEST_F(Receiving, AValueThatIsNeitherIsConsumed)
{
    copy({{555, bytes(555, "whatever")}});
    ASSERT_EQ(reports.size(), 1U);
    EXPECT_EQ(reports[0].received.readability, Readability::readable);
    EXPECT_TRUE(reports[0].received.value.isEmpty());
}

TEST_F(Receiving, NothingIsTakenWhereASecretsMarkMayStandBeyondWhatIsLookedAt)
{
    FakeOwner owner = ownerOf(atoms(), {{atoms().utf8String, utf8Target(atoms(), "word")}});
    owner.targets[atoms().targets].value.bytes +=
        std::string(SelectionReceiver::mostTargets * sizeof(AtomID), '\7');
    copy(std::move(owner));
    expectOneUnreadable();
}

TEST_F(Receiving, ASecretIsConsumedAndNotKeptWhereverItsMarkStands)
{
    for (const bool standsFirst : {true, false}) {
        reports.clear();
        FakeOwner owner = ownerOf(
            atoms(), {{atoms().utf8String, text("password")}, {atoms().passwordManagerHint, text("secret")}});
        std::vector<AtomID> list = {atoms().utf8String, atoms().targets};
        list.insert(standsFirst ? list.begin() : list.end(), atoms().passwordManagerHint);
        owner.targets[atoms().targets].value.bytes = atomBytes(list);
        display.convertedTargets.clear();
        copy(std::move(owner));
        ASSERT_EQ(reports.size(), 1U);
        EXPECT_EQ(reports[0].received.readability, Readability::secret);
        EXPECT_TRUE(reports[0].received.value.isEmpty());
        EXPECT_EQ(std::ranges::count(display.convertedTargets, atoms().utf8String), 0) << "it was read";
        display.killOwner();
        display.deliverAll();
        EXPECT_EQ(display.ownerOf(atoms().clipboard), noWindow) << "it was kept";
    }
}

TEST_F(Receiving, AnotherHintIsNoSecret)
{
    copy({{atoms().utf8String, text("word")}, {atoms().passwordManagerHint, text("public")}});
    EXPECT_EQ(onlyText(), "word");
}

TEST_F(Receiving, ASilentOwnerFailsAfterTheLongestSilence)
{
    FakeOwner owner;
    owner.isMute = true;
    copy(std::move(owner));
    display.passTime(IncomingConversion::longestSilence - std::chrono::milliseconds(1));
    EXPECT_TRUE(reports.empty());
    display.passTime(std::chrono::milliseconds(1));
    expectOneUnreadable();
}

TEST_F(Receiving, ANewOwnerIsReceivedAtOnceWhileAnotherIsSilent)
{
    FakeOwner owner;
    owner.isMute = true;
    copy(std::move(owner));
    copy({{atoms().utf8String, text("next")}});
    EXPECT_EQ(onlyText(), "next");
    display.passTime(IncomingConversion::longestSilence * 2);
    EXPECT_EQ(reports.size(), 1U);
}

TEST_F(Receiving, SilenceIsCountedFromTheLastPieceAndNotFromTheStart)
{
    FakeTarget slow = inIncrements(text("abcdef"), 1);
    display.takeClipboard(ownerOf(atoms(), {{atoms().utf8String, slow}}));
    while (reports.empty()) {
        display.passTime(IncomingConversion::longestSilence / 4); // Not every event is one of the owner's.
        ASSERT_TRUE(display.deliverOne());
    }
    EXPECT_EQ(onlyText(), "abcdef");
}

TEST_F(Receiving, AnOwnerThatFallsSilentInTheMiddleFails)
{
    FakeTarget cut = inIncrements(text("abcdef"), 2);
    cut.silentAfter = 2;
    copy({{atoms().utf8String, cut}});
    EXPECT_TRUE(reports.empty());
    display.passTime(IncomingConversion::longestSilence);
    expectOneUnreadable();
}

TEST_F(Receiving, AnOwnerThatDiesInTheMiddleFailsAtOnceAndIsNotKept)
{
    FakeTarget cut = inIncrements(text("abcdef"), 2);
    cut.silentAfter = 2;
    copy({{atoms().utf8String, cut}});
    display.killOwner();
    display.deliverAll();
    expectOneUnreadable();
    EXPECT_EQ(display.ownerOf(atoms().clipboard), noWindow);
}

TEST_F(Receiving, AnEndlessOwnerIsGivenUpAtTheBound)
{
    FakeTarget endless = inIncrements(text(std::string(std::size_t{8} << 20, 'x')), std::size_t{8} << 20);
    endless.isEndless = true;
    copy({{atoms().utf8String, endless}});
    expectOneUnreadable();
    EXPECT_LE(display.bytesRead, SelectionReceiver::mostValueBytes + 2 * IncomingConversion::sliceBytes);
}

TEST_F(Receiving, AnOwnerThatDripsForEverCostsAReadForEachDropAndNothingElse)
{
    FakeTarget drip = inIncrements(text("x"), 1);
    drip.isEndless = true;
    const PeakMemory memory;
    display.takeClipboard(ownerOf(atoms(), {{atoms().utf8String, drip}}));
    constexpr std::size_t drops = 86400; // A day of them.
    while (display.bytesRead < drops) {
        ASSERT_TRUE(display.deliverOne());
        display.passTime(std::chrono::milliseconds(500));
        ASSERT_GT(*coordinator.deadline(), display.now + IncomingConversion::longestSilence / 2)
            << "it is looked at although nothing has come";
    }
    EXPECT_TRUE(reports.empty());
    EXPECT_EQ(display.createdRequestors, 1U);
    EXPECT_LE(display.readCount, drops + 2) << "the targets, the announcement, and the drops";
    EXPECT_LE(memory.growth(), std::size_t{1} << 20);
    copy({{atoms().utf8String, text("next")}});
    EXPECT_EQ(onlyText(), "next");
}

TEST_F(Receiving, AHugeTextOfEveryFormIsReceivedInTheRoomThatItTakes)
{
    constexpr std::size_t megabyte = std::size_t{1} << 20;
    mallopt(M_MMAP_THRESHOLD, static_cast<int>(megabyte)); // As the worker has it.
    const auto receive = [&](const FakeTarget& target, AtomID name) {
        reports.clear();
        const PeakMemory memory;
        display.takeClipboard(ownerOf(atoms(), {{name, target}}));
        display.deliverAll();
        const std::size_t growth = memory.growth();
        reports.clear();
        display.clearClipboard();
        display.deliverAll();
        return growth;
    };
    // The owner's own copies are in this process, too: two of the value, and the increment under way.
    constexpr std::size_t size = 40 * megabyte;
    constexpr std::size_t slack = 4 * megabyte;
    FakeTarget large = inIncrements(latin1(std::string(size, '\xFC')), megabyte);
    EXPECT_LE(receive(large, atoms().string), 2 * size + 2 * size + slack) << "every letter takes two bytes";
    large.value.type = atoms().utf8String;
    large.value.bytes.assign(size, 'x');
    EXPECT_LE(receive(large, atoms().utf8String), 2 * size + size + slack);
    large.announced = 0;
    EXPECT_LE(receive(large, atoms().utf8String), 2 * size + 2 * size + slack) << "it has to grow";
}

TEST_F(Receiving, TheAnnouncedLengthIsNotBelieved)
{
    FakeTarget boaster = inIncrements(text("small"), 2);
    boaster.announced = 0xFFFFFFFF;
    copy({{atoms().utf8String, boaster}});
    EXPECT_EQ(onlyText(), "small");
    EXPECT_LT(reports[0].received.value.text->capacity(), 1000U);
    boaster.announced = 0;
    reports.clear();
    copy({{atoms().utf8String, boaster}});
    EXPECT_EQ(onlyText(), "small");
}

TEST_F(Receiving, LiesAboutTypesAndFormatsCostTheTargetOnly)
{
    FakeTarget wrongFormat = text("xxxx");
    wrongFormat.value.format = 32;
    copy({{atoms().utf8String, wrongFormat}, {atoms().string, latin1("other")}});
    EXPECT_EQ(onlyText(), "other");
    reports.clear();
    copy({{atoms().utf8String, bytes(atoms().png, "xxxx")}, {atoms().string, latin1("other")}});
    EXPECT_EQ(onlyText(), "other");
}

TEST_F(Receiving, APromisedPropertyThatIsMissingIsARefusal)
{
    FakeTarget missing = text("x");
    missing.isMissing = true;
    copy({{atoms().utf8String, missing}, {atoms().string, latin1("other")}});
    EXPECT_EQ(onlyText(), "other");
}

TEST_F(Receiving, OffersEverythingAndDeliversNothing)
{
    FakeOwner owner = ownerOf(atoms(), {});
    std::vector<AtomID> list;
    for (const SelectionAtoms::Name& entry : SelectionAtoms::names())
        list.push_back(atoms().*entry.member);
    std::erase(list, atoms().passwordManagerHint);
    owner.targets[atoms().targets].value.bytes = atomBytes(list);
    copy(std::move(owner));
    ASSERT_EQ(reports.size(), 1U);
    EXPECT_TRUE(reports[0].received.value.isEmpty());
    EXPECT_LE(display.convertedTargets.size(), SelectionAtoms::transferSlotCount);
}

TEST_F(Receiving, OnlyTheLatestOwnerOfARushIsReceived)
{
    for (int number = 0; number < 200; ++number)
        display.takeClipboard(ownerOf(atoms(), {{atoms().utf8String, text(std::to_string(number))}}));
    display.deliverAll();
    EXPECT_EQ(onlyText(), "199");
    EXPECT_LE(display.requestors.size(), SelectionReceiver::mostRetiredWindows);
    EXPECT_EQ(display.createdRequestors, 200U);
}

TEST_F(Receiving, AnOwnerThatIsLeftInTheMiddleFindsTheWindowStillThere)
{
    FakeTarget value = inIncrements(text("abcdef"), 1);
    display.takeClipboard(ownerOf(atoms(), {{atoms().utf8String, value}}));
    for (int number = 0; number < 8; ++number)
        ASSERT_TRUE(display.deliverOne());
    ASSERT_TRUE(reports.empty());
    copy({{atoms().utf8String, text("next")}});
    EXPECT_EQ(onlyText(), "next");
    EXPECT_EQ(display.writesToMissingWindows, 0);
    EXPECT_EQ(display.requestors.size(), 1U);
    display.passTime(SelectionReceiver::retirement);
    EXPECT_TRUE(display.requestors.empty());
}

TEST_F(Receiving, AWindowIsDestroyedAtOnceWhenItsOwnerHasDoneItsPart)
{
    copy({{atoms().utf8String, text("word")}});
    EXPECT_TRUE(display.requestors.empty());
    EXPECT_FALSE(coordinator.deadline());
}

TEST_F(Receiving, AForeignClearIsAnEmptyValueAndIsNotUndone)
{
    copy({{atoms().utf8String, text("word")}});
    display.clearClipboard();
    display.deliverAll();
    ASSERT_EQ(reports.size(), 2U);
    EXPECT_TRUE(reports[1].received.value.isEmpty());
    EXPECT_EQ(display.ownerOf(atoms().clipboard), noWindow);
}

TEST_F(Receiving, CompanionsComeAfterTheReportAndWithinTheirBounds)
{
    copy({{atoms().utf8String, text("word")},
          {atoms().html, bytes(atoms().html, "<b>word</b>")},
          {atoms().uriList,
           bytes(atoms().uriList, std::string(SelectionReceiver::mostCompanionBytes + 1, 'x'))}});
    EXPECT_EQ(onlyText(), "word");
    EXPECT_TRUE(reports[0].received.value.companions.empty());
    display.killOwner();
    display.deliverAll();
    EXPECT_EQ(paste(atoms().clipboard, atoms().html)->bytes, "<b>word</b>");
    EXPECT_FALSE(paste(atoms().clipboard, atoms().uriList));
}

} // namespace
} // namespace tessel
