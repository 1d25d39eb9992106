#include <memory>
#include <optional>
#include <vector>

#include "CarbonHotKeyCenter.h"
#include "Support/MacOSTest.h"
#include "Support/System.h"

namespace tessel::test {
namespace {

/// "CLIP"
constexpr std::uint32_t signature = 0x434C4950;

class HotKeyTests : public MacOSTest {
protected:
    /// Installs a handler that answers 0 and notes what it was given.
    void installHandler()
    {
        expectCall("GetApplicationEventTarget()");
        expectCall("InstallEventHandler(application target, handler, 1, {'keyb', 5}, user data, &handlerRef)",
                   0);
        handler = center.installEventHandler([this](std::optional<EventHotKeyID> identifier) {
            pressed.push_back(identifier);
            return 0;
        });
        ASSERT_TRUE(handler);
    }

    void removeHandler()
    {
        expectCall("RemoveEventHandler(handlerRef)", 0);
        center.removeEventHandler(*handler);
    }

    CarbonHotKeyCenter center;
    std::optional<HotKeyHandlerRef> handler;
    std::vector<std::optional<EventHotKeyID>> pressed;
};

TEST_F(HotKeyTests, InstallsOneHandlerOfTheApplicationForPressedHotKeysOfTheKeyboardClass)
{
    installHandler();
    removeHandler();
}

TEST_F(HotKeyTests, AHandlerThatTheSystemRefusesIsNone)
{
    expectCall("GetApplicationEventTarget()");
    expectCall("InstallEventHandler(application target, handler, 1, {'keyb', 5}, user data, &handlerRef)",
               -9860);
    EXPECT_EQ(center.installEventHandler([](std::optional<EventHotKeyID>) { return 0; }), std::nullopt);
}

TEST_F(HotKeyTests, RegistersTheVKeyWithTheMaskAndTheIdentifierAndNoOptions)
{
    for (const auto& [mask, text] : {std::pair(0x0300U, "0x300"), {0x1200U, "0x1200"}, {0x0900U, "0x900"}}) {
        expectCall("GetApplicationEventTarget()");
        expectCall(std::string("RegisterEventHotKey(9, ") + text +
                       ", {'CLIP', 1}, application target, 0, &hotKeyRef)",
                   0);
        const auto hotKey = center.registerEventHotKey(9, mask, {signature, 1});
        ASSERT_TRUE(hotKey);
        expectCall("UnregisterEventHotKey(hotKeyRef)", 0);
        center.unregisterEventHotKey(*hotKey);
    }
}

TEST_F(HotKeyTests, ACombinationThatTheSystemRefusesIsNone)
{
    expectCall("GetApplicationEventTarget()");
    expectCall("RegisterEventHotKey(9, 0x300, {'CLIP', 1}, application target, 0, &hotKeyRef)", -9878);
    EXPECT_EQ(center.registerEventHotKey(9, 0x0300, {signature, 1}), std::nullopt);
}

TEST_F(HotKeyTests, TheHandlerIsGivenTheEventsDirectObjectReadAsAnIdentifierOfEightBytes)
{
    installHandler();
    expectCall("GetEventParameter(event, '----', 'hkid', NULL, 8, NULL, &data)", 0);
    EXPECT_EQ(pressHotKey(signature, 1), 0);
    ASSERT_EQ(pressed.size(), 1U);
    EXPECT_EQ(pressed[0], (EventHotKeyID{signature, 1}));
    removeHandler();
}

TEST_F(HotKeyTests, AnotherIdentifierAndAnotherSignatureReachTheHandlerAsTheyAre)
{
    installHandler();
    expectCall("GetEventParameter(event, '----', 'hkid', NULL, 8, NULL, &data)", 0);
    EXPECT_EQ(pressHotKey(0x4F544852, 2), 0);
    ASSERT_EQ(pressed.size(), 1U);
    EXPECT_EQ(pressed[0], (EventHotKeyID{0x4F544852, 2}));
    removeHandler();
}

TEST_F(HotKeyTests, AnEventWhoseParameterCannotBeReadHasNoIdentifier)
{
    installHandler();
    expectCall("GetEventParameter(event, '----', 'hkid', NULL, 8, NULL, &data)", -9870);
    EXPECT_EQ(pressHotKey(signature, 1), 0);
    ASSERT_EQ(pressed.size(), 1U);
    EXPECT_EQ(pressed[0], std::nullopt);
    removeHandler();
}

TEST_F(HotKeyTests, WithoutAnEventOrUserDataTheStatusIsZeroAndNothingHappens)
{
    installHandler();
    EXPECT_EQ(callHotKeyHandlerWithoutEvent(), 0);
    EXPECT_EQ(callHotKeyHandlerWithoutUserData(), 0);
    EXPECT_TRUE(pressed.empty());
    removeHandler();
}

TEST_F(HotKeyTests, TheStatusIsTheHandlersOwn)
{
    expectCall("GetApplicationEventTarget()");
    expectCall("InstallEventHandler(application target, handler, 1, {'keyb', 5}, user data, &handlerRef)", 0);
    handler = center.installEventHandler([](std::optional<EventHotKeyID>) { return 7; });
    expectCall("GetEventParameter(event, '----', 'hkid', NULL, 8, NULL, &data)", 0);
    EXPECT_EQ(pressHotKey(signature, 1), 7);
    removeHandler();
}

TEST_F(HotKeyTests, WhatAHandlerHoldsGoesWithIt)
{
    const auto held = std::make_shared<int>(0);
    expectCall("GetApplicationEventTarget()");
    expectCall("InstallEventHandler(application target, handler, 1, {'keyb', 5}, user data, &handlerRef)", 0);
    handler = center.installEventHandler([held](std::optional<EventHotKeyID>) { return 0; });
    EXPECT_EQ(held.use_count(), 2);
    removeHandler();
    EXPECT_EQ(held.use_count(), 1);
}

} // namespace
} // namespace tessel::test
