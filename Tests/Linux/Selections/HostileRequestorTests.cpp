#include <thread>

#include "PasteboardFixture.h"
#include "RawRequestor.h"

namespace tessel {
namespace {

/// Applications that paste and do not do their part of it.
class HostileRequestors : public PasteboardOnX11 {
protected:
    const std::string& writeLarge(std::size_t megabytes)
    {
        for (std::size_t line = 0; large_.size() < megabytes << 20; ++line)
            large_ += "line " + std::to_string(line) + " of a long text\n";
        write(large_);
        // Our ownership is there when somebody gets the value.
        EXPECT_TRUE(loop_.runUntil([&] {
            loop_.post([] {});
            RawRequestor curious(display().name());
            return curious.ask("CLIPBOARD", "UTF8_STRING") && curious.comesInIncrements();
        }));
        return large_;
    }
    void expectServingGoesOn()
    {
        ASSERT_TRUE(good_.ask("CLIPBOARD", "UTF8_STRING"));
        EXPECT_TRUE(good_.takeAll() == large_);
    }

    std::string large_;
    /// Connected before the others: the server gives the ids of a client that has vanished to the next one,
    /// which would then be sent the answers to what the other asked for.
    RawRequestor good_{display().name()};
};

TEST_F(HostileRequestors, OnesThatVanishInTheMiddleHinderNobody)
{
    writeLarge(50);
    for (int number = 0; number < 10; ++number) {
        RawRequestor vanishing(display().name());
        ASSERT_TRUE(vanishing.ask("CLIPBOARD", "UTF8_STRING"));
        vanishing.takePiece();
    }
    expectServingGoesOn();
}

TEST_F(HostileRequestors, OnesThatVanishBeforeTheAnswerHinderNobody)
{
    writeLarge(8);
    for (int number = 0; number < 10; ++number)
        RawRequestor(display().name()).request("CLIPBOARD", "UTF8_STRING");
    expectServingGoesOn();
}

TEST_F(HostileRequestors, OnesThatNeverTakeAPieceHinderNobody)
{
    writeLarge(8);
    RawRequestor lazy(display().name());
    ASSERT_TRUE(lazy.ask("CLIPBOARD", "UTF8_STRING"));
    RawRequestor lazyLater(display().name());
    ASSERT_TRUE(lazyLater.ask("CLIPBOARD", "UTF8_STRING"));
    lazyLater.takePiece();
    expectServingGoesOn();
}

TEST_F(HostileRequestors, TenAtOnceAreServedTogether)
{
    writeLarge(8);
    std::vector<std::thread> threads;
    std::vector<std::string> received(10);
    for (std::string& text : received) {
        threads.emplace_back([&text, requestor = std::make_shared<RawRequestor>(display().name())] {
            if (requestor->ask("CLIPBOARD", "UTF8_STRING"))
                text = requestor->takeAll();
        });
    }
    for (std::thread& thread : threads)
        thread.join();
    for (const std::string& text : received)
        EXPECT_TRUE(text == large_);
}

TEST_F(HostileRequestors, AreServedWhileAPictureIsPrepared)
{
    // Interlaced, so that it takes long: the clipboard manager answers in the meantime, and the next copy
    // ends the work.
    const std::string picture = interlacedPNG(testImage(4000, 3000));
    const std::int64_t before = pasteboard_.changeCount();
    RawRequestor requestor(display().name());
    const xcb_window_t ownerBefore = requestor.ownerOf("CLIPBOARD");
    others_.push_back(
        ChildProcess::start({"xclip", "-quiet", "-selection", "clipboard", "-target", "image/png", "-in"},
                            display().name(), picture));
    ASSERT_TRUE(loop_.runUntil([&] {
        loop_.post([] {});
        return requestor.ownerOf("CLIPBOARD") != ownerBefore;
    }));
    for (int number = 0; number < 20; ++number)
        EXPECT_TRUE(requestor.ask("CLIPBOARD_MANAGER", "TIMESTAMP"));
    others_.push_back(
        ChildProcess::start({"xclip", "-quiet", "-selection", "clipboard", "-target", "UTF8_STRING", "-in"},
                            display().name(), "next"));
    EXPECT_TRUE(loop_.runUntil([&] { return text() == "next"; }));
    EXPECT_LE(pasteboard_.changeCount(), before + 2);
}

TEST_F(HostileRequestors, AClipboardManagerTakesThePlaceOfAnother)
{
    auto other = std::make_unique<RawRequestor>(display().name());
    other->own("CLIPBOARD_MANAGER");
    other.reset();
    EXPECT_TRUE(loop_.runUntil([&] {
        loop_.post([] {});
        return RawRequestor(display().name()).ask("CLIPBOARD_MANAGER", "TIMESTAMP");
    }));
}

} // namespace
} // namespace tessel
