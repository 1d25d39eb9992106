// The doubles are strict: what would go unseen otherwise fails the test.

#include <gtest/gtest-spi.h>
#include <gtest/gtest.h>

#include "AXAccessibilityTrust.h"
#include "Support/CallScript.h"

namespace tessel::test {
namespace {

TEST(CallScriptTests, ACallThatNobodyAnnouncedFails)
{
    CallScript script;
    EXPECT_NONFATAL_FAILURE(AXAccessibilityTrust().isProcessTrusted(), "Nobody announced");
}

TEST(CallScriptTests, ACallWithAnotherArgumentFails)
{
    CallScript script;
    script.announce("CGEventSourceCreate(1)", Nil{});
    EXPECT_NONFATAL_FAILURE(script.receive("CGEventSourceCreate(0)"), "what came was");
}

TEST(CallScriptTests, ACallOutOfOrderFails)
{
    CallScript script;
    script.announce("CGEventPost(0, down)", Nothing{});
    script.announce("CGEventPost(0, up)", Nothing{});
    EXPECT_NONFATAL_FAILURE(script.receive("CGEventPost(0, up)"),
                            "Announced was the call  CGEventPost(0, down)");
}

TEST(CallScriptTests, ACallThatNeverComesFails)
{
    CallScript script;
    script.announce("AXIsProcessTrusted()", true);
    EXPECT_NONFATAL_FAILURE(script.expectAllReceived(), "never came");
}

TEST(CallScriptTests, AnAnswerOfAnotherKindFails)
{
    CallScript script;
    script.announce("AXIsProcessTrusted()", "yes");
    EXPECT_NONFATAL_FAILURE(AXAccessibilityTrust().isProcessTrusted(), "has to be true or false");
}

TEST(CallScriptTests, WhatIsNotGivenBackFails)
{
    CallScript script;
    script.taken("event handler");
    EXPECT_NONFATAL_FAILURE(script.expectAllGivenBack(), "Never given back: event handler");
}

TEST(CallScriptTests, WhatIsGivenBackTwiceFails)
{
    CallScript script;
    script.taken("hot key");
    script.givenBack("hot key");
    EXPECT_NONFATAL_FAILURE(script.givenBack("hot key"), "nobody had it");
}

} // namespace
} // namespace tessel::test
