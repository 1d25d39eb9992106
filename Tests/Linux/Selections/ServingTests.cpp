#include <algorithm>

#include <gtest/gtest.h>

#include "ClipboardFixture.h"

namespace tessel {
namespace {

constexpr AtomID property = 9000;

class Serving : public ::testing::Test, protected ClipboardFixture {
protected:
    void own(std::string text)
    {
        writeText(1, std::move(text));
        display.deliverAll();
        ASSERT_TRUE(display.isOwnedByUs(atoms().clipboard));
    }
    void ownPicture(std::string mimeType, std::string bytes)
    {
        auto value = std::make_shared<SelectionValue>();
        value->picture = {std::make_shared<const std::string>(std::move(bytes)), std::move(mimeType)};
        coordinator.write(1, std::move(value), display.now);
        display.deliverAll();
    }
    std::vector<AtomID> offeredTargets()
    {
        const auto answer = paste(atoms().clipboard, atoms().targets);
        EXPECT_TRUE(answer && answer->type == atoms().atom && answer->format == 32);
        return answer ? atomsOf(answer->bytes) : std::vector<AtomID>();
    }
    bool offers(AtomID target)
    {
        const auto targets = offeredTargets();
        return std::ranges::find(targets, target) != targets.end();
    }
    std::string large() const
    {
        std::string text;
        for (int line = 0; text.size() < 20000; ++line)
            text += "line " + std::to_string(line) + "\n";
        return text;
    }
};

TEST_F(Serving, ATextInEveryUsualForm)
{
    own("Grüße 世");
    for (const AtomID target : {atoms().utf8String, atoms().plainTextUTF8, atoms().plainText}) {
        EXPECT_TRUE(offers(target));
        const auto answer = paste(atoms().clipboard, target);
        ASSERT_TRUE(answer);
        EXPECT_EQ(answer->bytes, "Grüße 世");
        EXPECT_EQ(answer->type, target);
        EXPECT_EQ(answer->format, 8);
    }
    EXPECT_EQ(paste(atoms().clipboard, atoms().string)->bytes, "Gr\xFC\xDF"
                                                               "e ?");
    EXPECT_EQ(paste(atoms().clipboard, atoms().text)->type, atoms().utf8String);
    EXPECT_FALSE(offers(atoms().compoundText));
}

TEST_F(Serving, TextOfPlainCharactersIsAString)
{
    own("plain");
    const auto answer = paste(atoms().clipboard, atoms().text);
    ASSERT_TRUE(answer);
    EXPECT_EQ(answer->type, atoms().string);
    EXPECT_EQ(answer->bytes, "plain");
}

TEST_F(Serving, WhatIsNotOfferedIsRefused)
{
    own("text");
    EXPECT_FALSE(offers(atoms().png));
    EXPECT_FALSE(paste(atoms().clipboard, atoms().png));
    EXPECT_FALSE(paste(atoms().clipboard, 4242));
    EXPECT_EQ(display.notices.size(), 1U);
    EXPECT_EQ(display.notices[0].property, noAtom);
}

TEST_F(Serving, TheTimestampIsThatOfTheOwnership)
{
    own("text");
    const auto answer = paste(atoms().clipboard, atoms().timestamp);
    ASSERT_TRUE(answer);
    EXPECT_EQ(answer->type, atoms().integer);
    EXPECT_EQ(answer->format, 32);
    EXPECT_EQ(atomsOf(answer->bytes).at(0), display.timeOfTaking(atoms().clipboard));
    EXPECT_NE(display.timeOfTaking(atoms().clipboard), currentTime);
}

TEST_F(Serving, TheTimestampOfAValueThatOutlivedItsOwnerIsThatOfOurTaking)
{
    display.takeClipboard(ownerOf(atoms(), {{atoms().utf8String, utf8Target(atoms(), "kept")}}));
    display.deliverAll();
    display.killOwner();
    display.deliverAll();
    ASSERT_TRUE(display.isOwnedByUs(atoms().clipboard));
    const auto answer = paste(atoms().clipboard, atoms().timestamp);
    ASSERT_TRUE(answer);
    EXPECT_EQ(atomsOf(answer->bytes).at(0), display.timeOfTaking(atoms().clipboard));
}

TEST_F(Serving, ASelectionThatIsNotOursIsRefused)
{
    own("text");
    const WindowID window = display.createForeignWindow();
    display.notices.clear();
    for (const AtomID selection : {atoms().primary, atoms().clipboardManager, AtomID{4242}})
        coordinator.selectionRequested(
            {FakeDisplay::ownWindow, window, selection, atoms().utf8String, property, currentTime},
            display.now);
    ASSERT_EQ(display.notices.size(), 3U);
    for (const SelectionNotice& notice : display.notices)
        EXPECT_EQ(notice.property, noAtom);
    // And one that was ours when it was asked for.
    display.takeClipboard(ownerOf(atoms(), {}));
    display.deliverAll();
    coordinator.selectionRequested(
        {FakeDisplay::ownWindow, window, atoms().clipboard, atoms().utf8String, property, currentTime},
        display.now);
    EXPECT_EQ(display.notices.back().property, noAtom);
    EXPECT_EQ(display.property(window, property), nullptr);
}

TEST_F(Serving, AnAnswerNamesWhatWasAskedFor)
{
    own("text");
    const WindowID window = display.createForeignWindow();
    const ServerTime time = display.time();
    for (const AtomID target : {atoms().utf8String, atoms().png}) {
        display.notices.clear();
        display.request(window, atoms().clipboard, target, property, time);
        display.deliverAll();
        ASSERT_EQ(display.notices.size(), 1U);
        const SelectionNotice& notice = display.notices[0];
        EXPECT_EQ(notice.requestor, window);
        EXPECT_EQ(notice.selection, atoms().clipboard);
        EXPECT_EQ(notice.target, target);
        EXPECT_EQ(notice.time, time);
    }
}

TEST_F(Serving, ARequestFromBeforeOurOwnershipIsRefused)
{
    const ServerTime before = display.time();
    own("text");
    const WindowID window = display.createForeignWindow();
    display.notices.clear();
    display.request(window, atoms().clipboard, atoms().utf8String, property, before);
    display.request(window, atoms().clipboard, atoms().utf8String, property, currentTime);
    display.deliverAll();
    ASSERT_EQ(display.notices.size(), 2U);
    EXPECT_EQ(display.notices[0].property, noAtom);
    EXPECT_EQ(display.notices[1].property, property);
}

TEST_F(Serving, WhatHasBeenOwnedForWeeksIsServed)
{
    own("text");
    const WindowID window = display.createForeignWindow();
    for (int week = 1; week <= 7; ++week) {
        display.passTime(std::chrono::hours(7 * 24));
        display.notices.clear();
        display.request(window, atoms().clipboard, atoms().utf8String, property, display.time());
        display.deliverAll();
        ASSERT_EQ(display.notices.size(), 1U);
        EXPECT_EQ(display.notices[0].property, property) << "after " << week << " weeks";
    }
}

TEST_F(Serving, NobodyMayUseOurOwnWindow)
{
    own(large());
    display.notices.clear();
    display.request(FakeDisplay::ownWindow, atoms().clipboard, atoms().utf8String, property);
    display.deliverAll();
    ASSERT_EQ(display.notices.size(), 1U);
    EXPECT_EQ(display.notices[0].property, noAtom);
}

TEST_F(Serving, AnObsoleteClientGetsTheTargetAsProperty)
{
    own("text");
    const WindowID window = display.createForeignWindow();
    display.notices.clear();
    display.request(window, atoms().clipboard, atoms().utf8String, noAtom);
    display.deliverAll();
    ASSERT_EQ(display.notices.size(), 1U);
    EXPECT_EQ(display.notices[0].property, atoms().utf8String);
    EXPECT_EQ(display.property(window, atoms().utf8String)->bytes, "text");
}

TEST_F(Serving, ALargeTextGoesInIncrements)
{
    own(large());
    const WindowID window = display.createForeignWindow();
    display.request(window, atoms().clipboard, atoms().utf8String, property);
    display.deliverAll();
    ASSERT_TRUE(display.property(window, property));
    EXPECT_EQ(display.property(window, property)->type, atoms().incr);
    EXPECT_EQ(atomsOf(display.property(window, property)->bytes).at(0), large().size());
    EXPECT_EQ(paste(atoms().clipboard, atoms().utf8String)->bytes, large());
}

TEST_F(Serving, ALargeTextIsRewrittenToLatin1OnItsWay)
{
    std::string text;
    std::string latin1;
    for (int line = 0; text.size() < 20000; ++line) {
        text += "Zeile " + std::to_string(line) + ": Grüße 世\n";
        latin1 += "Zeile " + std::to_string(line) + ": Gr\xFC\xDF" + "e ?\n";
    }
    own(text);
    const WindowID window = display.createForeignWindow();
    display.request(window, atoms().clipboard, atoms().string, property);
    display.deliverAll();
    ASSERT_TRUE(display.property(window, property));
    EXPECT_LE(atomsOf(display.property(window, property)->bytes).at(0), latin1.size()) << "no lower bound";
    const auto answer = paste(atoms().clipboard, atoms().string);
    EXPECT_EQ(answer->type, atoms().string);
    EXPECT_EQ(answer->bytes, latin1);
}

TEST_F(Serving, WhatIsMoreThanARequestCarriesGoesInIncrements)
{
    constexpr std::size_t requestHead = 100;
    own(std::string(FakeDisplay::requestBytes - requestHead, 'x'));
    const WindowID window = display.createForeignWindow();
    display.request(window, atoms().clipboard, atoms().utf8String, property);
    display.deliverAll();
    EXPECT_EQ(display.property(window, property)->type, atoms().utf8String);
    own(std::string(FakeDisplay::requestBytes - requestHead + 1, 'x'));
    display.request(window, atoms().clipboard, atoms().utf8String, property);
    display.deliverAll();
    EXPECT_EQ(display.property(window, property)->type, atoms().incr);
}

TEST_F(Serving, ManyRequestorsAtOnceEachAtTheirOwnPace)
{
    own(large());
    std::map<WindowID, std::string> received;
    std::map<WindowID, int> pace;
    for (int number = 1; number <= 10; ++number) {
        const WindowID window = display.createForeignWindow();
        display.request(window, atoms().clipboard, atoms().utf8String, property);
        pace[window] = number;
    }
    display.deliverAll();
    std::set<WindowID> done;
    for (const auto& [window, step] : pace)
        EXPECT_EQ(display.takeProperty(window, property)->type, atoms().incr);
    for (int turn = 1; done.size() < pace.size(); ++turn) {
        ASSERT_LT(turn, 1000);
        for (const auto& [window, step] : pace) {
            display.deliverAll();
            if (done.contains(window) || turn % step != 0)
                continue;
            const auto piece = display.takeProperty(window, property);
            ASSERT_TRUE(piece);
            received[window] += piece->bytes;
            if (piece->bytes.empty())
                done.insert(window);
        }
    }
    display.deliverAll();
    for (const auto& [window, text] : received)
        EXPECT_EQ(text, large());
    EXPECT_TRUE(display.watched.empty());
    EXPECT_FALSE(coordinator.deadline());
}

TEST_F(Serving, ARequestorThatTakesNothingIsGivenUp)
{
    own(large());
    const WindowID window = display.createForeignWindow();
    display.request(window, atoms().clipboard, atoms().utf8String, property);
    display.deliverAll();
    EXPECT_EQ(display.watched.size(), 1U);
    display.passTime(OutgoingTransfer::longestSilence);
    EXPECT_TRUE(display.watched.empty());
    EXPECT_FALSE(coordinator.deadline());
}

TEST_F(Serving, ARequestorThatDiesIsDropped)
{
    own(large());
    const WindowID dying = display.createForeignWindow();
    display.request(dying, atoms().clipboard, atoms().utf8String, property);
    display.deliverAll();
    display.takeProperty(dying, property);
    display.deliverAll();
    display.destroyForeignWindow(dying);
    display.deliverAll();
    EXPECT_FALSE(coordinator.deadline());
    // And one that was dead before it was answered.
    const WindowID dead = display.createForeignWindow();
    display.request(dead, atoms().clipboard, atoms().utf8String, property);
    display.destroyForeignWindow(dead);
    display.deliverAll();
    EXPECT_FALSE(coordinator.deadline());
    EXPECT_EQ(paste(atoms().clipboard, atoms().utf8String)->bytes, large());
}

TEST_F(Serving, ATransferGoesOnAfterTheSelectionIsLost)
{
    own(large());
    const WindowID window = display.createForeignWindow();
    display.request(window, atoms().clipboard, atoms().utf8String, property);
    display.deliverAll();
    display.takeClipboard(ownerOf(atoms(), {{atoms().utf8String, utf8Target(atoms(), "new")}}));
    display.takeProperty(window, property);
    display.deliverAll();
    std::string text;
    while (true) {
        const auto piece = display.takeProperty(window, property);
        ASSERT_TRUE(piece);
        if (piece->bytes.empty())
            break;
        text += piece->bytes;
        display.deliverAll();
    }
    EXPECT_EQ(text, large());
}

TEST_F(Serving, MultipleConvertsEachPairAndMarksFailures)
{
    own("Grüße");
    const WindowID window = display.createForeignWindow();
    display.setProperty(window, property,
                        {atoms().atomPair, 32,
                         atomBytes({atoms().utf8String, 9001, atoms().png, 9002, atoms().string, 9003})});
    display.notices.clear();
    display.request(window, atoms().clipboard, atoms().multiple, property);
    display.deliverAll();
    ASSERT_EQ(display.notices.size(), 1U);
    EXPECT_EQ(display.notices[0].property, property);
    EXPECT_EQ(display.property(window, 9001)->bytes, "Grüße");
    EXPECT_EQ(display.property(window, 9003)->bytes, "Gr\xFC\xDF"
                                                     "e");
    EXPECT_EQ(display.property(window, 9002), nullptr);
    EXPECT_EQ(atomsOf(display.property(window, property)->bytes),
              (std::vector<AtomID>{atoms().utf8String, 9001, atoms().png, noAtom, atoms().string, 9003}));
}

TEST_F(Serving, MultipleMarksAPairWithoutAPropertyAndGoesOn)
{
    own("text");
    const WindowID window = display.createForeignWindow();
    display.setProperty(window, property,
                        {atoms().atomPair, 32,
                         atomBytes({atoms().utf8String, noAtom, atoms().multiple, 9001, atoms().timestamp,
                                    9002, atoms().targets, 9003})});
    display.notices.clear();
    display.request(window, atoms().clipboard, atoms().multiple, property);
    display.deliverAll();
    ASSERT_EQ(display.notices.size(), 1U);
    EXPECT_EQ(display.notices[0].property, property);
    EXPECT_EQ(display.property(window, property)->type, atoms().atomPair);
    EXPECT_EQ(atomsOf(display.property(window, property)->bytes),
              (std::vector<AtomID>{atoms().utf8String, noAtom, atoms().multiple, noAtom, atoms().timestamp,
                                   9002, atoms().targets, 9003}));
    EXPECT_EQ(display.property(window, 9001), nullptr) << "a MULTIPLE within a MULTIPLE";
    EXPECT_NE(display.property(window, 9002), nullptr);
    EXPECT_NE(display.property(window, 9003), nullptr);
}

TEST_F(Serving, MultipleOfNothingIsAnswered)
{
    own("text");
    const WindowID window = display.createForeignWindow();
    display.setProperty(window, property, {atoms().atomPair, 32, ""});
    display.notices.clear();
    display.request(window, atoms().clipboard, atoms().multiple, property);
    display.deliverAll();
    ASSERT_EQ(display.notices.size(), 1U);
    EXPECT_EQ(display.notices[0].property, property);
}

TEST_F(Serving, ARequestorsTimeIsCountedFromTheLastPieceThatItTook)
{
    own(large());
    const WindowID window = display.createForeignWindow();
    display.request(window, atoms().clipboard, atoms().utf8String, property);
    display.deliverAll();
    std::string text;
    EXPECT_EQ(display.takeProperty(window, property)->type, atoms().incr);
    display.deliverAll();
    while (true) {
        display.passTime(OutgoingTransfer::longestSilence - std::chrono::milliseconds(1));
        const auto piece = display.takeProperty(window, property);
        ASSERT_TRUE(piece) << "it was given up after " << text.size() << " bytes";
        display.deliverAll();
        text += piece->bytes;
        if (piece->bytes.empty())
            break;
    }
    EXPECT_EQ(text, large());
}

TEST_F(Serving, AConvertedPictureIsHeldNoLongerThanItIsSent)
{
    ownPicture("image/webp", "bytes");
    const WindowID window = display.createForeignWindow();
    display.request(window, atoms().clipboard, atoms().bmp, property);
    display.deliverAll();
    auto bytes = std::make_shared<const std::string>(20000, 'b');
    const std::weak_ptr<const std::string> held = bytes;
    coordinator.pictureConverted(wantedPictures.at(0).first, atoms().bmp, std::move(bytes), display.now);
    wantedPictures.clear();
    EXPECT_FALSE(held.expired());
    display.passTime(OutgoingTransfer::longestSilence);
    EXPECT_TRUE(held.expired());
}

TEST_F(Serving, MultipleWithoutItsPairsIsRefused)
{
    own("text");
    EXPECT_FALSE(paste(atoms().clipboard, atoms().multiple));
    EXPECT_EQ(display.notices.size(), 1U);
}

TEST_F(Serving, APictureGoesByteForByteInItsOwnForm)
{
    ownPicture("image/webp", "the very bytes");
    EXPECT_EQ(offeredTargets().at(3), atoms().webp);
    EXPECT_EQ(paste(atoms().clipboard, atoms().webp)->bytes, "the very bytes");
    EXPECT_TRUE(wantedPictures.empty());
}

TEST_F(Serving, AnotherFormIsConvertedOnceForAllWhoWait)
{
    ownPicture("image/webp", "bytes");
    const WindowID first = display.createForeignWindow();
    const WindowID second = display.createForeignWindow();
    display.notices.clear();
    display.request(first, atoms().clipboard, atoms().bmp, property);
    display.request(second, atoms().clipboard, atoms().bmp, property);
    display.deliverAll();
    EXPECT_TRUE(display.notices.empty());
    ASSERT_EQ(wantedPictures.size(), 1U);
    EXPECT_TRUE(coordinator.isPictureWanted(wantedPictures[0].first, atoms().bmp));
    coordinator.pictureConverted(wantedPictures[0].first, atoms().bmp,
                                 std::make_shared<const std::string>("as BMP"), display.now);
    EXPECT_EQ(display.notices.size(), 2U);
    EXPECT_EQ(display.property(first, property)->bytes, "as BMP");
    EXPECT_EQ(display.property(second, property)->bytes, "as BMP");
    EXPECT_FALSE(coordinator.isPictureWanted(wantedPictures[0].first, atoms().bmp));
}

TEST_F(Serving, AConversionThatFailsIsARefusal)
{
    ownPicture("image/webp", "bytes");
    const WindowID window = display.createForeignWindow();
    display.notices.clear();
    display.request(window, atoms().clipboard, atoms().png, property);
    display.deliverAll();
    coordinator.pictureConverted(wantedPictures.at(0).first, atoms().png, nullptr, display.now);
    ASSERT_EQ(display.notices.size(), 1U);
    EXPECT_EQ(display.notices[0].property, noAtom);
}

TEST_F(Serving, MultipleWaitsForItsConversions)
{
    ownPicture("image/png", "png bytes");
    const WindowID window = display.createForeignWindow();
    display.setProperty(
        window, property,
        {atoms().atomPair, 32, atomBytes({atoms().bmp, 9001, atoms().tiff, 9002, atoms().png, 9003})});
    display.notices.clear();
    display.request(window, atoms().clipboard, atoms().multiple, property);
    display.deliverAll();
    ASSERT_EQ(wantedPictures.size(), 1U);
    coordinator.pictureConverted(wantedPictures[0].first, atoms().bmp,
                                 std::make_shared<const std::string>("b"), display.now);
    ASSERT_EQ(wantedPictures.size(), 2U);
    EXPECT_TRUE(display.notices.empty());
    coordinator.pictureConverted(wantedPictures[1].first, atoms().tiff,
                                 std::make_shared<const std::string>("t"), display.now);
    EXPECT_EQ(display.notices.size(), 1U);
    EXPECT_EQ(display.property(window, 9001)->bytes, "b");
    EXPECT_EQ(display.property(window, 9002)->bytes, "t");
    EXPECT_EQ(display.property(window, 9003)->bytes, "png bytes");
}

TEST_F(Serving, PrimaryIsOwnedUntilTheNextWrite)
{
    own("text");
    auto value = std::make_shared<SelectionValue>();
    value->text = std::make_shared<const std::string>("text");
    coordinator.offerPrimary(value);
    display.deliverAll();
    EXPECT_EQ(paste(atoms().primary, atoms().utf8String)->bytes, "text");
    writeText(2, "other");
    display.deliverAll();
    EXPECT_EQ(display.ownerOf(atoms().primary), noWindow);
}

} // namespace
} // namespace tessel
