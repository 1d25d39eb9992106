// The doubles are strict: what would go unseen otherwise fails the test.

#include <gtest/gtest-spi.h>
#include <gtest/gtest.h>

#include "AXAccessibilityTrust.h"
#include "CarbonHotKeyCenter.h"
#include "DispatchMainQueue.h"
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

TEST(CallScriptTests, ANumberThatIsOnlyCloseFails)
{
    CallScript script;
    script.announce("[NSTimer scheduledTimerWithTimeInterval:0.7 repeats:YES block:^]", Nil{});
    EXPECT_NONFATAL_FAILURE((void)DispatchMainQueue().repeat(0.7000001, [] {}), "0.7000001");
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

TEST(CallScriptTests, AHotKeyThatIsGivenBackInPlaceOfAnotherFails)
{
    CallScript script;
    CarbonHotKeyCenter center;
    const auto registered = [&] {
        script.announce("GetApplicationEventTarget()", Nothing{});
        script.announce("RegisterEventHotKey(9, 0x300, {'CLIP', 1}, application target, 0, &hotKeyRef)", 0);
        return *center.registerEventHotKey(9, 0x300, {0x434C4950, 1});
    };
    const auto unregister = [&](HotKeyRef hotKey) {
        script.announce("UnregisterEventHotKey(hotKeyRef)", 0);
        center.unregisterEventHotKey(hotKey);
    };
    const HotKeyRef first = registered();
    const HotKeyRef second = registered();
    unregister(first);
    EXPECT_NONFATAL_FAILURE(unregister(first), "another hot key");
    script.taken("hot key");
    unregister(second);
}

} // namespace
} // namespace tessel::test
