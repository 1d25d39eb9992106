#include <gtest/gtest.h>

#include "TestKeymap.h"
#include "X11/HeldKeys.h"

namespace tessel {
namespace {

KeySet keys(std::initializer_list<Keycode> list)
{
    KeySet set;
    for (const Keycode key : list)
        set[key] = true;
    return set;
}

const KeySet modifiers = keys({Key::shiftLeft, Key::controlLeft, Key::superLeft});
const KeySet chord = keys({Key::controlLeft, Key::v});

DeviceKeys physical(std::initializer_list<Keycode> down)
{
    return {DeviceKeys::Kind::physical, keys(down)};
}

DeviceKeys synthetic(std::initializer_list<Keycode> down)
{
    return {DeviceKeys::Kind::synthetic, keys(down)};
}

TEST(HeldKeys, nothingHeldIsNothingToDo)
{
    EXPECT_EQ(planHeldKeys({}, {physical({}), synthetic({})}, modifiers, chord), HeldKeysPlan{});
}

TEST(HeldKeys, aModifierUnderAFingerIsLiftedAndPutBack)
{
    const auto plan =
        planHeldKeys(keys({Key::superLeft}), {physical({Key::superLeft}), synthetic({})}, modifiers, chord);
    EXPECT_EQ(plan.lift, keys({Key::superLeft}));
    EXPECT_EQ(plan.putBack, keys({Key::superLeft}));
}

TEST(HeldKeys, anySlaveKeyboardCounts)
{
    const auto plan =
        planHeldKeys(keys({Key::shiftLeft}), {physical({}), physical({Key::shiftLeft})}, modifiers, chord);
    EXPECT_EQ(plan.putBack, keys({Key::shiftLeft}));
}

TEST(HeldKeys, aModifierThatOnlyXTestHoldsIsLiftedForGood)
{
    const auto plan =
        planHeldKeys(keys({Key::shiftLeft}), {physical({}), synthetic({Key::shiftLeft})}, modifiers, chord);
    EXPECT_EQ(plan.lift, keys({Key::shiftLeft}));
    EXPECT_EQ(plan.putBack, KeySet{});
}

TEST(HeldKeys, aKeyThatXTestHoldsUnseenIsLiftedBecauseItsPressWouldBeNone)
{
    const auto plan = planHeldKeys({}, {physical({}), synthetic({Key::controlLeft})}, modifiers, chord);
    EXPECT_EQ(plan.lift, keys({Key::controlLeft}));
    EXPECT_EQ(plan.putBack, KeySet{});
}

TEST(HeldKeys, theKeyOfTheChordComesUpButIsNotPutBack)
{
    const auto plan = planHeldKeys(keys({Key::v}), {physical({Key::v})}, modifiers, chord);
    EXPECT_EQ(plan.lift, keys({Key::v}));
    EXPECT_EQ(plan.putBack, KeySet{});
}

TEST(HeldKeys, otherKeysAreLeftAlone)
{
    const auto plan =
        planHeldKeys(keys({Key::a, Key::capsLock}), {physical({Key::a, Key::capsLock})}, modifiers, chord);
    EXPECT_EQ(plan, HeldKeysPlan{});
}

TEST(HeldKeys, aKeyThatWasLiftedBeforeAndIsStillUnderTheFingerIsNotPressedAnew)
{
    const auto plan = planHeldKeys({}, {physical({Key::superLeft})}, modifiers, chord);
    EXPECT_EQ(plan, HeldKeysPlan{});
}

TEST(HeldKeys, withoutKnowledgeOfTheDevicesNothingIsPutBack)
{
    const auto plan = planHeldKeys(keys({Key::superLeft}), {}, modifiers, chord);
    EXPECT_EQ(plan.lift, keys({Key::superLeft}));
    EXPECT_EQ(plan.putBack, KeySet{});
}

TEST(HeldKeys, keysLetGoMeanwhileAreLiftedAgain)
{
    const KeySet putBack = keys({Key::superLeft, Key::shiftLeft});
    EXPECT_EQ(
        keysToLiftAgain(putBack, {physical({Key::shiftLeft}), synthetic({Key::superLeft, Key::shiftLeft})}),
        keys({Key::superLeft}));
    EXPECT_EQ(keysToLiftAgain(putBack, {physical({Key::shiftLeft, Key::superLeft})}), KeySet{});
}

TEST(HeldKeys, aKeyLetGoBetweenTheReadingAndThePuttingBackIsLiftedAgain)
{
    const auto plan =
        planHeldKeys(keys({Key::superLeft}), {physical({Key::superLeft}), synthetic({})}, modifiers, chord);
    ASSERT_EQ(plan.putBack, keys({Key::superLeft}));
    EXPECT_EQ(keysToLiftAgain(plan.putBack, {physical({}), synthetic({Key::superLeft})}), plan.putBack);
}

TEST(HeldKeys, oneOfTwoFingersOnTheSameKeyOfTwoKeyboardsIsEnough)
{
    const std::vector<DeviceKeys> both = {physical({Key::shiftLeft}), physical({Key::shiftLeft})};
    const auto plan = planHeldKeys(keys({Key::shiftLeft}), both, modifiers, chord);
    ASSERT_EQ(plan.putBack, keys({Key::shiftLeft}));
    // Held on one and let go on the other; then let go on both.
    EXPECT_EQ(keysToLiftAgain(plan.putBack, {physical({}), physical({Key::shiftLeft})}), KeySet{});
    EXPECT_EQ(keysToLiftAgain(plan.putBack, {physical({}), physical({})}), keys({Key::shiftLeft}));
}

TEST(HeldKeys, eachKeyboardMayHoldAnotherKey)
{
    const auto plan = planHeldKeys(keys({Key::shiftLeft, Key::superLeft}),
                                   {physical({Key::shiftLeft}), physical({Key::superLeft}), synthetic({})},
                                   modifiers, chord);
    EXPECT_EQ(plan.lift, keys({Key::shiftLeft, Key::superLeft}));
    EXPECT_EQ(plan.putBack, keys({Key::shiftLeft, Key::superLeft}));
    EXPECT_EQ(keysToLiftAgain(plan.putBack, {physical({Key::shiftLeft}), physical({})}),
              keys({Key::superLeft}));
}

TEST(HeldKeys, aModifierOfTheChordThatIsHeldIsLiftedPressedAndPutBack)
{
    const auto plan = planHeldKeys(keys({Key::controlLeft}), {physical({Key::controlLeft}), synthetic({})},
                                   modifiers, chord);
    EXPECT_EQ(plan.lift, keys({Key::controlLeft}));
    EXPECT_EQ(plan.putBack, keys({Key::controlLeft}));
}

TEST(HeldKeys, lockingKeysAreNoHeldModifiers)
{
    const KeySet held = heldModifierKeys(testKeymap());
    EXPECT_FALSE(held[Key::capsLock]);
    EXPECT_FALSE(held[Key::numLock]);
    EXPECT_TRUE(held[Key::superLeft]);
}

} // namespace
} // namespace tessel
