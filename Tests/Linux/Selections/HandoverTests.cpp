#include <algorithm>
#include <cstring>

#include "ClipboardFixture.h"
#include "PasteboardFixture.h"
#include "RawRequestor.h"
#include "TestPictures.h"

namespace tessel {
namespace {

using namespace std::chrono_literals;

/// The clipboard's value when we end, where somebody else is the clipboard manager.
class Handover : public ::testing::Test, protected ClipboardFixture {
protected:
    void startManager()
    {
        display.takeByStranger(atoms().clipboardManager);
        display.deliverAll();
    }
    void handOn()
    {
        beginToHandOn();
        display.deliverAll();
    }
    /// Nothing of it has reached the server yet.
    void beginToHandOn()
    {
        coordinator.handOn(display.now, [this] { ++doneCount; });
    }
    bool hasAskedManager() const
    {
        return std::ranges::count(display.convertedTargets, atoms().saveTargets) > 0;
    }
    void answerOfManager(AtomID property)
    {
        coordinator.selectionNotified({.requestor = FakeDisplay::ownWindow,
                                       .selection = atoms().clipboardManager,
                                       .target = atoms().saveTargets,
                                       .property = property,
                                       .time = display.time()},
                                      display.now);
    }
    /// What the manager is asked to save.
    std::vector<AtomID> targetsToSave() const
    {
        const FakeProperty* property = display.property(FakeDisplay::ownWindow, atoms().saveTargets);
        if (!property)
            return {};
        std::vector<AtomID> targets(property->bytes.size() / sizeof(AtomID));
        std::memcpy(targets.data(), property->bytes.data(), property->bytes.size());
        return targets;
    }

    int doneCount = 0;
};

TEST_F(Handover, TheManagerIsAskedAndServedBeforeTheEnd)
{
    startManager();
    writeText(1, "word");
    handOn();
    EXPECT_TRUE(hasAskedManager());
    EXPECT_EQ(doneCount, 0);
    EXPECT_EQ(paste(atoms().clipboard, atoms().utf8String)->bytes, "word");
    EXPECT_EQ(doneCount, 0);
    answerOfManager(atoms().saveTargets);
    EXPECT_EQ(doneCount, 1);
}

TEST_F(Handover, ARefusalIsTheEnd)
{
    startManager();
    writeText(1, "word");
    handOn();
    answerOfManager(noAtom);
    EXPECT_EQ(doneCount, 1);
}

TEST_F(Handover, WithoutAManagerTheServerRefuses)
{
    writeText(1, "word");
    handOn();
    EXPECT_EQ(doneCount, 1);
}

TEST_F(Handover, WhereWeAreTheManagerNobodyIsAsked)
{
    coordinator.becomeClipboardManager();
    writeText(1, "word");
    handOn();
    EXPECT_FALSE(hasAskedManager());
    EXPECT_EQ(doneCount, 1);
}

TEST_F(Handover, TheValueOfAnotherIsNotOurs)
{
    startManager();
    display.takeClipboard({});
    display.deliverAll();
    handOn();
    EXPECT_FALSE(hasAskedManager());
    EXPECT_EQ(doneCount, 1);
}

TEST_F(Handover, ADeliberateClearIsNotHandedOn)
{
    startManager();
    coordinator.write(1, std::make_shared<SelectionValue>(), display.now);
    handOn();
    EXPECT_FALSE(hasAskedManager());
    EXPECT_EQ(doneCount, 1);
}

TEST_F(Handover, ASilentManagerIsNotWaitedForLongerThanThePatienceLasts)
{
    startManager();
    writeText(1, "word");
    handOn();
    display.passTime(1'999ms);
    EXPECT_EQ(doneCount, 0);
    display.passTime(1ms);
    EXPECT_EQ(doneCount, 1);
    answerOfManager(atoms().saveTargets);
    EXPECT_EQ(doneCount, 1) << "a late answer is nobody's";
}

TEST_F(Handover, EachSignOfLifeRenewsThePatienceUpToItsEnd)
{
    startManager();
    writeText(1, "word");
    handOn();
    for (int second = 1; second < 5; ++second) {
        display.passTime(1'000ms);
        EXPECT_EQ(paste(atoms().clipboard, atoms().utf8String)->bytes, "word");
        EXPECT_EQ(doneCount, 0) << second;
    }
    display.passTime(1'000ms);
    EXPECT_EQ(doneCount, 1);
}

TEST_F(Handover, AServerThatDoesNotAnswerIsNotWaitedForLongerThanThePatienceLasts)
{
    startManager();
    writeText(1, "word");
    beginToHandOn();
    display.now += 4'999ms;
    coordinator.timePassed(display.now);
    EXPECT_EQ(doneCount, 0);
    EXPECT_EQ(coordinator.deadline(), display.now + 1ms);
    display.now += 1ms;
    coordinator.timePassed(display.now);
    EXPECT_EQ(doneCount, 1);
    display.deliverAll();
    EXPECT_FALSE(hasAskedManager()) << "a late answer is nobody's";
}

TEST_F(Handover, TheLossOfTheConnectionIsTheEnd)
{
    startManager();
    writeText(1, "word");
    beginToHandOn();
    int availableCount = 0;
    coordinator.whenAvailable([&] { ++availableCount; });
    coordinator.connectionLost();
    EXPECT_EQ(doneCount, 1);
    EXPECT_EQ(availableCount, 1);
}

TEST_F(Handover, TheLossOfTheConnectionIsTheEndAlsoWhileTheManagerIsWaitedFor)
{
    startManager();
    writeText(1, "word");
    handOn();
    EXPECT_EQ(doneCount, 0);
    coordinator.connectionLost();
    EXPECT_EQ(doneCount, 1);
}

TEST_F(Handover, AWriteThatIsStillOnItsWayIsHandedOn)
{
    startManager();
    writeText(1, "first");
    display.deliverAll();
    writeText(2, "second");
    handOn();
    EXPECT_TRUE(hasAskedManager());
    EXPECT_EQ(paste(atoms().clipboard, atoms().utf8String)->bytes, "second");
}

TEST_F(Handover, ALargeTextIsSavedInOneForm)
{
    startManager();
    writeText(1, std::string(FakeDisplay::requestBytes * 2, 'x'));
    handOn();
    const auto targets = targetsToSave();
    EXPECT_EQ(std::ranges::count(targets, atoms().utf8String), 1);
    for (const AtomID spare : {atoms().plainTextUTF8, atoms().plainText, atoms().string, atoms().text})
        EXPECT_EQ(std::ranges::count(targets, spare), 0);
}

TEST_F(Handover, APictureIsSavedAsItCameAndAsEverybodyReadsIt)
{
    startManager();
    auto value = std::make_shared<SelectionValue>();
    value->picture = {std::make_shared<const std::string>("jpeg"), "image/jpeg"};
    coordinator.write(1, std::move(value), display.now);
    handOn();
    const auto targets = targetsToSave();
    EXPECT_EQ(std::ranges::count(targets, atoms().jpeg), 1);
    EXPECT_EQ(std::ranges::count(targets, atoms().png), 1);
    EXPECT_EQ(std::ranges::count(targets, atoms().bmp), 0);
    EXPECT_EQ(std::ranges::count(targets, atoms().tiff), 0);
}

/// The manager is the pasteboard of another process of ours, so to say; it was there first.
class HandoverOnX11 : public PasteboardOnX11 {
protected:
    static constexpr HandoverPatience endless{.silence = 60s, .whole = 60s};

    std::unique_ptr<X11Pasteboard> second(HandoverPatience patience)
    {
        auto surroundings = environment(display().name());
        surroundings.handoverPatience = patience;
        return std::make_unique<X11Pasteboard>(std::move(surroundings));
    }
    void waitForManager()
    {
        ASSERT_TRUE(loop_.runUntil([&] {
            loop_.post([] {});
            return requestor_.ownerOf("CLIPBOARD_MANAGER") != XCB_NONE;
        }));
    }
    /// Hands on and ends. False: that has not ended within the patience of a test.
    bool end(std::unique_ptr<X11Pasteboard> pasteboard)
    {
        bool isDone = false;
        pasteboard->handOn([&] { isDone = true; });
        return loop_.runUntil([&] { return isDone; });
    }

    RawRequestor requestor_{display().name()};
};

TEST_F(HandoverOnX11, AHugeTextIsThereWhenItsOwnerHasEnded)
{
    waitForManager();
    auto ending = second(endless);
    constexpr std::size_t hundredMegabytes = 100'000'000;
    const auto text = std::make_shared<const std::string>(hundredMegabytes, 'x');
    ending->clearContents();
    ending->setString(text);
    ASSERT_TRUE(end(std::move(ending)));
    EXPECT_TRUE(paste() == *text);
}

TEST_F(HandoverOnX11, APictureIsThereByteForByte)
{
    waitForManager();
    const std::string png = encodedImage(testImage(300, 200), "png");
    copy(png, "image/png");
    auto ending = second(endless);
    ending->clearContents();
    ending->writeObjects(pasteboard_.image());
    ASSERT_TRUE(end(std::move(ending)));
    EXPECT_EQ(paste("image/png"), png);
}

TEST_F(HandoverOnX11, ASilentManagerDoesNotKeepUsForEver)
{
    waitForManager();
    requestor_.own("CLIPBOARD_MANAGER");
    auto ending = second({.silence = 100ms, .whole = 200ms});
    ending->clearContents();
    ending->setString(std::make_shared<const std::string>("word"));
    EXPECT_TRUE(end(std::move(ending)));
}

TEST_F(HandoverOnX11, TheLossOfTheConnectionDoesNotKeepUs)
{
    waitForManager();
    requestor_.own("CLIPBOARD_MANAGER");
    auto ending = second(endless);
    ending->clearContents();
    ending->setString(std::make_shared<const std::string>("word"));
    bool isDone = false;
    ending->handOn([&] { isDone = true; });
    requestor_.waitForRequest("CLIPBOARD_MANAGER");
    EXPECT_FALSE(isDone);
    requestor_.disconnectOwnerOf("CLIPBOARD");
    EXPECT_TRUE(loop_.runUntil([&] { return isDone; }));
    isDone = false;
    ending->whenAvailable([&] { isDone = true; });
    EXPECT_TRUE(loop_.runUntil([&] { return isDone; }));
}

TEST_F(HandoverOnX11, WithoutADisplayThereIsNothingToWaitFor)
{
    auto surroundings = environment("no such display");
    EXPECT_TRUE(end(std::make_unique<X11Pasteboard>(std::move(surroundings))));
}

} // namespace
} // namespace tessel
