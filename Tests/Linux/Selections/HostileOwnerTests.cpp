#include <csignal>
#include <filesystem>
#include <fstream>

#include "PasteboardFixture.h"
#include "RawRequestor.h"

namespace tessel {
namespace {

/// Owners that are slow, silent, dying or lying, each in a process of its own.
class HostileOwners : public PasteboardOnX11 {
protected:
    /// Starts the owner and waits until it owns the clipboard.
    void own(std::vector<std::string> arguments)
    {
        arguments.insert(arguments.begin(), TESSEL_SELECTION_OWNERS);
        others_.push_back(ChildProcess::start(arguments, display().name()));
        ASSERT_EQ(others_.back()->readLine(), "owned");
    }
    /// Waits for the one change that the owner makes.
    void expectOneChange(std::int64_t before)
    {
        ASSERT_TRUE(loop_.runUntil([&] { return pasteboard_.changeCount() > before; }));
        EXPECT_EQ(pasteboard_.changeCount(), before + 1);
    }
    void expectText(std::vector<std::string> arguments, const std::string& expected)
    {
        const std::int64_t before = pasteboard_.changeCount();
        own(std::move(arguments));
        expectOneChange(before);
        EXPECT_EQ(text(), expected);
        expectTheNextCopyToArrive();
    }
    void expectNothing(std::vector<std::string> arguments)
    {
        copy("before");
        const std::int64_t before = pasteboard_.changeCount();
        own(std::move(arguments));
        expectOneChange(before);
        EXPECT_FALSE(pasteboard_.string());
        EXPECT_FALSE(pasteboard_.image());
        expectTheNextCopyToArrive();
    }
    /// Whether the next copy arrives before anything comes of the owner.
    bool isOvertaken(const std::vector<std::string>& arguments)
    {
        const std::int64_t before = pasteboard_.changeCount();
        own(arguments);
        copyAndAwait("next " + std::to_string(++copies_));
        return pasteboard_.changeCount() == before + 1;
    }
    /// The next copy does not wait for the owner. A machine may be so slow that the owner's patience, or
    /// ours, is over before the next copy is made; but not every time.
    void expectNoHindrance(const std::vector<std::string>& arguments)
    {
        constexpr int attempts = 5;
        int attempt = 1;
        while (!isOvertaken(arguments) && attempt < attempts)
            ++attempt;
        EXPECT_LT(attempt, attempts) << "the owner before was waited for";
    }
    void expectTheNextCopyToArrive()
    {
        copy("the next copy");
        EXPECT_EQ(text(), "the next copy");
    }

    int copies_ = 0;
};

TEST_F(HostileOwners, GoodOnesAreUnderstood)
{
    expectText({"text", "--text", "Grüße"}, "Grüße");
    expectText({"latin1"}, "Grüße aus Köln");
    expectText({"utf16"}, "Grün");
    expectText({"no-targets", "--text", "old"}, "old");
    expectText({"late", "--text", "patience"}, "patience");
    expectText({"rich-text", "--text", "rich"}, "rich");
}

TEST_F(HostileOwners, WhatCanBeSavedOfASloppyOneIsSaved)
{
    expectText({"invalid-utf8"}, "good \uFFFD\uFFFD and \uFFFD good\n");
    expectText({"liar-length", "--text", "short"}, "short");
}

TEST_F(HostileOwners, ASilentOneHindersNobody)
{
    expectNoHindrance({"mute"});
    expectNoHindrance({"mute-after-targets"});
    expectNoHindrance({"stalls"});
    expectNoHindrance({"drip"});
    expectNoHindrance({"late"});
}

/// How often the worker thread has waited for something, by now.
long wakeUpsOfTheWorker()
{
    for (const auto& thread : std::filesystem::directory_iterator("/proc/self/task")) {
        std::string name;
        std::getline(std::ifstream(thread.path() / "comm") >> std::ws, name);
        if (name != "selections")
            continue;
        std::ifstream status(thread.path() / "status");
        std::string word;
        long count = 0;
        while (status >> word) {
            if (word == "voluntary_ctxt_switches:" && status >> count)
                return count;
        }
    }
    throw std::runtime_error("there is no worker thread");
}

TEST_F(HostileOwners, ADrippingOneWakesTheWorkerOnlyWithItsDrops)
{
    own({"drip", "--text", std::string(1000, 'x')});
    const auto start = std::chrono::steady_clock::now();
    // What there was to say in the beginning has been said when somebody else has been answered.
    ASSERT_TRUE(RawRequestor(display().name()).ask("CLIPBOARD_MANAGER", "TIMESTAMP"));
    const long before = wakeUpsOfTheWorker();
    const auto elapsed = [&] { return std::chrono::steady_clock::now() - start; };
    EXPECT_FALSE(loop_.runUntil([] { return false; }, std::chrono::milliseconds(2500)));
    const auto drops = std::chrono::duration_cast<std::chrono::seconds>(elapsed()).count() + 1;
    EXPECT_LE(wakeUpsOfTheWorker() - before, 30 * drops) << "about five events for each drop";
    expectTheNextCopyToArrive();
}

TEST_F(HostileOwners, OneThatGivesNothingIsASkippedValue)
{
    expectNothing({"refuses"});
    expectNothing({"liar-type"});
    expectNothing({"liar-format"});
    expectNothing({"secret"});
    expectNothing({"secret-last"});
}

TEST_F(HostileOwners, OneThatDiesIsASkippedValue)
{
    expectNothing({"dies-before"});
    expectNothing({"dies-during"});
    expectNothing({"dies-at-end"});
}

TEST_F(HostileOwners, AnEndlessOneIsGivenUp)
{
    expectNothing({"endless"});
}

TEST_F(HostileOwners, OneThatTakesTheSelectionBackWins)
{
    const std::int64_t before = pasteboard_.changeCount();
    own({"takes-back", "--text", "mine"});
    expectOneChange(before);
    write("ours");
    ASSERT_TRUE(loop_.runUntil([&] { return pasteboard_.changeCount() == before + 3; }));
    EXPECT_EQ(text(), "mine");
}

TEST_F(HostileOwners, TheLastOfARushArrives)
{
    own({"rush", "--text", "number"});
    EXPECT_TRUE(loop_.runUntil([&] { return text() == "number 200"; }));
    expectTheNextCopyToArrive();
}

TEST_F(HostileOwners, AFlappingOneIsReadInBetweenAndEndsWithTheNextCopy)
{
    own({"flapping", "--text", "again"});
    EXPECT_TRUE(loop_.runUntil([&] { return pasteboard_.changeCount() > 20; }));
    EXPECT_EQ(text(), "again");
    others_.clear();
    EXPECT_TRUE(isPasted("again")) << "kept when it went";
    expectTheNextCopyToArrive();
}

TEST_F(HostileOwners, AClearByAnotherIsNotUndone)
{
    const std::int64_t before = pasteboard_.changeCount();
    own({"clears", "--text", "gone soon"});
    ASSERT_TRUE(loop_.runUntil([&] { return pasteboard_.changeCount() == before + 2; }));
    EXPECT_FALSE(pasteboard_.string());
    others_.clear();
    EXPECT_EQ(paste(), "");
}

TEST_F(HostileOwners, ASecretIsGoneWithItsOwner)
{
    const std::int64_t before = pasteboard_.changeCount();
    own({"secret", "--text", "password"});
    expectOneChange(before);
    others_.clear();
    EXPECT_EQ(paste(), "");
}

TEST_F(HostileOwners, RichTextOutlivesItsOwner)
{
    const std::int64_t before = pasteboard_.changeCount();
    own({"rich-text", "--text", "rich"});
    expectOneChange(before);
    // The companions come after the change. Applications that quit ask whether everything has been taken.
    ASSERT_TRUE(RawRequestor(display().name()).ask("CLIPBOARD_MANAGER", "SAVE_TARGETS"));
    others_.back()->kill(SIGTERM);
    others_.back()->wait();
    ASSERT_TRUE(isPasted("rich"));
    EXPECT_EQ(paste("text/html"), "<b>rich</b>");
    EXPECT_EQ(paste("text/rtf"), "{\\rtf1 rich}");
    EXPECT_EQ(pasteboard_.changeCount(), before + 1);
}

} // namespace
} // namespace tessel
