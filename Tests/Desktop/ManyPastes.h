#pragma once

#include <cstdint>
#include <vector>

#include "ProgramTest.h"

namespace tessel::desktop {

/// Pastes one after the other, each a random entry into a random window with random modifiers under the
/// user's fingers, some of them pressed or released while the paste is on its way.
class ManyPastesTest : public ProgramTest {
protected:
    /// Pastes `count` times among the windows. Every text has to arrive where the user was, exactly once, and
    /// in the end the keyboard is as it was.
    void pasteAtRandom(std::vector<TextClient*> windows, int count, std::uint32_t seed);

private:
    struct Round;

    void pasteOnce(Round& round);
    void moveModifiers(Round& round);
    void releaseModifiers(Round& round);
};

} // namespace tessel::desktop
