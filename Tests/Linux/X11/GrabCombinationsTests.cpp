#include <algorithm>

#include <gtest/gtest.h>

#include "OtherWindow.h"
#include "TestKeymap.h"
#include "X11/GrabCombinations.h"

namespace tessel {
namespace {

constexpr std::uint16_t scrollLockBit = 1U << 5;

TEST(GrabCombinations, eachPresetMapsToTheModifiersOfThisKeyboard)
{
    const ModifierBits bits = modifierBits(testKeymap());
    EXPECT_EQ(modifiersForCarbonMask(0x0300, bits), Modifier::super | Modifier::shift);
    EXPECT_EQ(modifiersForCarbonMask(0x1200, bits), Modifier::control | Modifier::shift);
    EXPECT_EQ(modifiersForCarbonMask(0x0900, bits), Modifier::super | Modifier::alt);
    EXPECT_EQ(modifiersForCarbonMask(0, bits), Modifier::none);
}

TEST(GrabCombinations, aMaskWithUnknownBitsIsRefused)
{
    EXPECT_EQ(modifiersForCarbonMask(0x0300 | 0x0400, modifierBits(testKeymap())), std::nullopt);
}

TEST(GrabCombinations, aKeyboardWithoutSuperHasNoCommand)
{
    Keymap keymap = testKeymap();
    keymap.modifierKeys[6].clear();
    const ModifierBits bits = modifierBits(keymap);
    EXPECT_EQ(modifiersForCarbonMask(0x0300, bits), std::nullopt);
    EXPECT_EQ(modifiersForCarbonMask(0x1200, bits), Modifier::control | Modifier::shift);
}

TEST(GrabCombinations, superIsFoundWhereverTheKeyboardPutsIt)
{
    Keymap keymap = testKeymap();
    std::swap(keymap.modifierKeys[6], keymap.modifierKeys[5]);
    EXPECT_EQ(modifierBits(keymap).command, 1U << 5);
}

TEST(GrabCombinations, everyCombinationOfTheLocksIsThereOnce)
{
    Keymap keymap = testKeymap();
    constexpr Keycode scrollLockKey = 78;
    keymap.symbols[scrollLockKey] = {KeysymName::scrollLock};
    keymap.modifierKeys[5] = {scrollLockKey};
    const ModifierBits bits = modifierBits(keymap);
    auto combinations = withEveryLockCombination(Modifier::super | Modifier::shift, bits);
    std::sort(combinations.begin(), combinations.end());
    EXPECT_EQ(combinations.size(), 8U);
    EXPECT_EQ(std::unique(combinations.begin(), combinations.end()), combinations.end());
    for (const std::uint16_t combination : combinations)
        EXPECT_EQ(combination & ~(Modifier::lock | Modifier::numLock | scrollLockBit),
                  Modifier::super | Modifier::shift);
}

TEST(GrabCombinations, aKeyboardWithoutNumLockNeedsFewerGrabs)
{
    Keymap keymap = testKeymap();
    keymap.modifierKeys[4].clear();
    EXPECT_EQ(withEveryLockCombination(Modifier::control, modifierBits(keymap)).size(), 2U);
}

TEST(GrabCombinations, locksButtonsAndGroupMakeNoDifferenceToAPress)
{
    const ModifierBits bits = modifierBits(testKeymap());
    constexpr std::uint16_t firstButton = 1U << 8;
    constexpr std::uint16_t secondGroup = 1U << 13;
    constexpr std::uint16_t state =
        Modifier::super | Modifier::shift | Modifier::lock | Modifier::numLock | firstButton | secondGroup;
    EXPECT_EQ(withoutLocks(state, bits), Modifier::super | Modifier::shift);
}

TEST(Keymap, latinVIsFoundByTheActiveGroupElseByPosition)
{
    Keymap keymap = testKeymap();
    EXPECT_EQ(keyForLatinV(keymap, 0), Key::v);
    EXPECT_EQ(keyForLatinV(keymap, 1), Key::v) << "The Cyrillic layout has no Latin v.";
    keymap.symbols[Key::fullStop] = {0x2E, KeysymName::latinSmallV};
    EXPECT_EQ(keyForLatinV(keymap, 1), Key::fullStop);
    EXPECT_EQ(keyForLatinV(keymap, 0), Key::v);
}

TEST(Keymap, onlyVirtualKeyCodeNineHasAPosition)
{
    EXPECT_EQ(keyForVirtualKeyCode(testKeymap(), 9), Key::v);
    EXPECT_EQ(keyForVirtualKeyCode(testKeymap(), 35), std::nullopt);
}

TEST(Keymap, keysThatLockAreNotHeldModifiers)
{
    const KeySet keys = heldModifierKeys(testKeymap());
    EXPECT_TRUE(keys[Key::shiftLeft] && keys[Key::controlLeft] && keys[Key::altLeft] && keys[Key::superLeft]);
    EXPECT_FALSE(keys[Key::capsLock] || keys[Key::numLock] || keys[Key::v]);
}

} // namespace
} // namespace tessel
