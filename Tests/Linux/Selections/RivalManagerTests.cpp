#include "PasteboardFixture.h"
#include "RawRequestor.h"
#include "RivalManager.h"

namespace tessel {
namespace {

/// Other clipboard managers that want to own the clipboard as well. Nobody may fight about it.
class RivalManagers : public PasteboardOnX11 {
protected:
    using Greed = RivalManager::Greed;

    template <class Condition>
    bool becomesTrue(Condition condition)
    {
        return loop_.runUntil([&] {
            loop_.post([] {});
            return condition();
        });
    }
    xcb_window_t owner() { return requestor_.ownerOf("CLIPBOARD"); }
    bool hasOwner() { return owner() != XCB_NONE; }

    /// Asks around many times. A fight would go on with every answer; somebody who is late may come once.
    void expectPeace(const RivalManager& watch)
    {
        const auto askAround = [&] {
            for (int round = 0; round < 20; ++round) {
                requestor_.ask("CLIPBOARD_MANAGER", "TIMESTAMP");
                requestor_.ask("CLIPBOARD", "TARGETS");
            }
        };
        askAround();
        const int before = watch.ownershipChanges();
        askAround();
        EXPECT_LE(watch.ownershipChanges() - before, 1) << "they are still fighting";
    }

    RivalManager watch_{display().name(), Greed::watches};
    RawRequestor requestor_{display().name()};
};

TEST_F(RivalManagers, OneThatTakesEverythingIsLeftAlone)
{
    RivalManager rival(display().name(), Greed::takesEverything);
    constexpr int copies = 10;
    const int before = watch_.ownershipChanges();
    for (int number = 1; number <= copies; ++number) {
        const std::string word = "copy " + std::to_string(number);
        startCopying(word);
        ASSERT_TRUE(becomesTrue([&] { return rival.text() == word && owner() == rival.window(); }));
        ASSERT_TRUE(becomesTrue([&] { return text() == word; }));
        others_.clear(); // It is no owner any more, so that its end is no event.
    }
    expectPeace(watch_);
    EXPECT_EQ(owner(), rival.window());
    EXPECT_EQ(watch_.ownershipChanges() - before, 2 * copies) << "the application and the rival, each time";
}

TEST_F(RivalManagers, OurOwnWriteIsTakenOverByOneAndNotTakenBack)
{
    RivalManager rival(display().name(), Greed::takesEverything);
    const int before = watch_.ownershipChanges();
    constexpr int writes = 10;
    for (int number = 1; number <= writes; ++number) {
        const std::string word = "ours " + std::to_string(number);
        write(word);
        ASSERT_TRUE(becomesTrue([&] { return rival.text() == word && owner() == rival.window(); }));
        ASSERT_EQ(text(), word);
    }
    expectPeace(watch_);
    EXPECT_EQ(owner(), rival.window());
    EXPECT_EQ(watch_.ownershipChanges() - before, 2 * writes);
}

TEST_F(RivalManagers, OneThatTakesWhatTheDeadLeaveIsNotFought)
{
    RivalManager rival(display().name(), Greed::takesDead);
    constexpr int copies = 10;
    const int before = watch_.ownershipChanges();
    for (int number = 1; number <= copies; ++number) {
        const std::string word = "copy " + std::to_string(number);
        startCopying(word);
        ASSERT_TRUE(becomesTrue([&] { return rival.text() == word && text() == word; }));
        const int beforeDeath = watch_.ownershipChanges();
        others_.clear();
        ASSERT_TRUE(becomesTrue([&] { return watch_.ownershipChanges() > beforeDeath && hasOwner(); }));
        expectPeace(watch_);
        EXPECT_TRUE(becomesTrue([&] { return paste() == word; }));
    }
    // The application, its death, and whoever is first, after which the other may still come.
    EXPECT_LE(watch_.ownershipChanges() - before, 4 * copies);
}

TEST_F(RivalManagers, TwoOfUsDoNotFight)
{
    X11Pasteboard second(environment(display().name()));
    const auto secondText = [&] { return second.string() ? *second.string() : ""; };
    constexpr int copies = 10;
    const int before = watch_.ownershipChanges();
    for (int number = 1; number <= copies; ++number) {
        const std::string word = "copy " + std::to_string(number);
        startCopying(word);
        ASSERT_TRUE(becomesTrue([&] { return text() == word && secondText() == word; }));
        const int beforeDeath = watch_.ownershipChanges();
        others_.clear();
        ASSERT_TRUE(becomesTrue([&] { return watch_.ownershipChanges() > beforeDeath && hasOwner(); }));
        expectPeace(watch_);
        EXPECT_TRUE(becomesTrue([&] { return paste() == word; }));
        EXPECT_EQ(text(), word);
        EXPECT_EQ(secondText(), word);
    }
    // The application, its death, and both of us.
    EXPECT_LE(watch_.ownershipChanges() - before, 4 * copies);
}

TEST_F(RivalManagers, WhatOneOfUsWritesTheOtherReceivesAndKeeps)
{
    auto second = std::make_unique<X11Pasteboard>(environment(display().name()));
    second->clearContents();
    second->setString(std::make_shared<const std::string>("from the second"));
    ASSERT_TRUE(becomesTrue([&] { return text() == "from the second"; }));
    const std::int64_t count = pasteboard_.changeCount();
    second.reset();
    ASSERT_TRUE(becomesTrue([&] { return paste() == "from the second"; }));
    expectPeace(watch_);
    EXPECT_EQ(pasteboard_.changeCount(), count);
}

} // namespace
} // namespace tessel
