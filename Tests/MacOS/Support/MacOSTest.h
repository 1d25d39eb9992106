#pragma once

#include <optional>
#include <string>

#include <gtest/gtest.h>

#include "Runtime/Runtime.h"
#include "Support/Answer.h"
#include "Support/CallScript.h"

namespace tessel::test {

/// A test of the macOS backend on doubles of the system. When it is over, every call that it announced must
/// have come, nothing may still be held of the system, no block may wait on the main queue, and no object may
/// be alive.
class MacOSTest : public testing::Test {
protected:
    MacOSTest();
    ~MacOSTest() override;

    /// The next call that the system receives, and what it answers; see `CallScript::announce`.
    void expectCall(std::string call, Answer answer = Nothing{});
    /// Every call that was announced so far must have come.
    void expectNoMore() const { script_.expectAllReceived(); }
    /// The end of a turn of the main loop: what was autoreleased is released.
    void endTurn()
    {
        pool_.reset();
        pool_.emplace();
    }

private:
    CallScript script_;
    std::optional<objc::AutoreleasePool> pool_;
};

} // namespace tessel::test
