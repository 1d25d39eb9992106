#include "ManyPastes.h"

#include <algorithm>
#include <array>
#include <random>

namespace tessel::desktop {

namespace {

/// As they are in the panel, the newest first.
const std::vector<std::string> entries = {"first;", "zażółć;", "third 🦊;", "fourth\tcolumn;", "fifth;"};

constexpr std::array<KeySymbol, 5> modifiers = {XKB_KEY_Shift_L, XKB_KEY_Control_L, XKB_KEY_Alt_L,
                                                XKB_KEY_Super_L, XKB_KEY_Shift_R};

} // namespace

/// What goes on from one paste to the next.
struct ManyPastesTest::Round {
    std::mt19937 random;
    std::array<bool, modifiers.size()> isHeld{};
    std::vector<TextClient*> windows;
    std::vector<std::string> expected;

    int draw(int below) { return static_cast<int>(random() % static_cast<unsigned>(below)); }
};

void ManyPastesTest::pasteAtRandom(std::vector<TextClient*> windows, int count, std::uint32_t seed)
{
    SCOPED_TRACE("seed " + std::to_string(seed));
    copyTexts({entries.rbegin(), entries.rend()});
    Round round{std::mt19937(seed), {}, windows, std::vector<std::string>(windows.size())};
    for (int paste = 0; paste < count && !HasFailure(); ++paste) {
        SCOPED_TRACE("paste " + std::to_string(paste));
        pasteOnce(round);
    }
    // What is typed afterwards comes behind every other paste that may have been on its way.
    for (std::size_t index = 0; index < windows.size(); ++index) {
        windows[index]->activate();
        desktop_.keyboard().type("!");
        windows[index]->waitForText(round.expected[index] + "!");
    }
    EXPECT_EQ(desktop_.keyboard().modifiers(), 0);
    EXPECT_TRUE(desktop_.keyboard().isFree());
}

void ManyPastesTest::pasteOnce(Round& round)
{
    const auto chosen = static_cast<std::size_t>(round.draw(static_cast<int>(round.windows.size())));
    const int entry = round.draw(static_cast<int>(entries.size()));
    TextClient& target = *round.windows[chosen];
    target.activate();
    program_->openPanel();
    moveModifiers(round);
    for (int press = 0; press < entry; ++press)
        desktop_.keyboard().tap(XKB_KEY_Down);
    moveModifiers(round);
    // Some are let go when the paste is already on its way.
    desktop_.keyboard().tap(XKB_KEY_Return,
                            std::chrono::milliseconds(round.draw(3) == 0 ? round.draw(300) : 0));
    for (int moves = round.draw(4); moves > 0; --moves) {
        // The time is the input itself: the keys move before, during and after the paste.
        std::this_thread::sleep_for(std::chrono::milliseconds(round.draw(80)));
        moveModifiers(round);
    }
    round.expected[chosen] += entries[static_cast<std::size_t>(entry)];
    target.waitForText(round.expected[chosen]);
    releaseModifiers(round);
    desktop_.connection().waitUntil("every key to be up again",
                                    [this] { return !desktop_.keyboard().isAnyKeyDown(); });
}

void ManyPastesTest::moveModifiers(Round& round)
{
    for (std::size_t index = 0; index < modifiers.size(); ++index) {
        if (round.draw(4) != 0)
            continue;
        if (std::exchange(round.isHeld[index], !round.isHeld[index]))
            desktop_.keyboard().release(modifiers[index]);
        else
            desktop_.keyboard().press(modifiers[index]);
    }
}

void ManyPastesTest::releaseModifiers(Round& round)
{
    for (std::size_t index = 0; index < modifiers.size(); ++index)
        if (std::exchange(round.isHeld[index], false))
            desktop_.keyboard().release(modifiers[index]);
}

} // namespace tessel::desktop
