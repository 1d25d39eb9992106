#include <map>

#include <gtest/gtest.h>

#include "Panel/PanelKeyMap.h"

namespace tessel::test {
namespace {

/// The keys by their numbers, independent of the names in the code.
const std::map<unsigned, PanelAction> actionsWithAnyModifier = {
    {126, PanelAction::up},   {125, PanelAction::down},  {36, PanelAction::enter},
    {76, PanelAction::enter}, {53, PanelAction::escape},
};
const std::map<unsigned, PanelAction> actionsWithCommand = {
    {51, PanelAction::deleteItem},
    {117, PanelAction::deleteItem},
    {35, PanelAction::pinToggle},
};

std::optional<PanelAction> expectedAction(unsigned keyCode, unsigned modifierBits)
{
    constexpr unsigned commandBit = 0x100000;
    if (const auto found = actionsWithAnyModifier.find(keyCode); found != actionsWithAnyModifier.end())
        return found->second;
    if ((modifierBits & commandBit) == 0)
        return std::nullopt;
    const auto found = actionsWithCommand.find(keyCode);
    return found != actionsWithCommand.end() ? std::optional(found->second) : std::nullopt;
}

std::optional<PanelAction> action(unsigned keyCode, unsigned modifierBits)
{
    return panelAction({static_cast<std::uint16_t>(keyCode), ModifierFlags{modifierBits}});
}

TEST(PanelKeyMap, GivesEveryKeyWithEveryCombinationOfModifiersItsAction)
{
    // Caps lock, Shift, Control, Option, Command, numeric pad, help and function are the bits 16 to 23.
    for (unsigned keyCode = 0; keyCode < 128; ++keyCode) {
        for (unsigned combination = 0; combination < 256; ++combination) {
            const unsigned bits = combination << 16U;
            ASSERT_EQ(action(keyCode, bits), expectedAction(keyCode, bits))
                << keyCode << " with " << std::hex << bits;
        }
    }
}

TEST(PanelKeyMap, DoesNotKnowKeysBeyondTheKeyboard)
{
    for (unsigned keyCode = 128; keyCode <= 0xFFFF; ++keyCode)
        ASSERT_EQ(action(keyCode, 0x100000), std::nullopt) << keyCode;
}

TEST(PanelKeyMap, IgnoresTheBitsThatTellLeftFromRight)
{
    constexpr unsigned leftCommandKey = 0x8;
    EXPECT_EQ(action(35, leftCommandKey), std::nullopt);
    EXPECT_EQ(action(35, 0x100000 | leftCommandKey), PanelAction::pinToggle);
}

TEST(PanelKeyMap, TakesKeypadEnterForReturn)
{
    EXPECT_EQ(action(76, 0), PanelAction::enter);
    EXPECT_EQ(action(36, 0), PanelAction::enter);
}

TEST(PanelKeyMap, PassesDeleteAndPOnWithoutCommand)
{
    for (const unsigned keyCode : {51U, 117U, 35U}) {
        EXPECT_EQ(action(keyCode, 0), std::nullopt) << keyCode;
        EXPECT_NE(action(keyCode, 0x100000), std::nullopt) << keyCode;
    }
}

TEST(PanelKeyMap, TakesMoreModifiersBesideCommand)
{
    EXPECT_EQ(action(35, 0x120000), PanelAction::pinToggle);
    EXPECT_EQ(action(51, 0x180000), PanelAction::deleteItem);
}

TEST(PanelKeyMap, StillMovesWithShiftHeld)
{
    EXPECT_EQ(action(126, 0x20000), PanelAction::up);
}

} // namespace
} // namespace tessel::test
