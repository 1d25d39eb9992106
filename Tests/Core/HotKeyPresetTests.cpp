#include <gmock/gmock.h>

#include "HotKey/HotKeyPreset.h"

namespace tessel::test {
namespace {

using testing::ElementsAre;

TEST(HotKeyPreset, ListsThePresetsInTheirOrder)
{
    EXPECT_THAT(allHotKeyPresets,
                ElementsAre(HotKeyPreset::cmdShiftV, HotKeyPreset::ctrlShiftV, HotKeyPreset::cmdOptionV));
    EXPECT_EQ(static_cast<int>(HotKeyPreset::cmdShiftV), 0);
    EXPECT_EQ(static_cast<int>(HotKeyPreset::ctrlShiftV), 1);
    EXPECT_EQ(static_cast<int>(HotKeyPreset::cmdOptionV), 2);
    EXPECT_EQ(defaultHotKeyPreset, HotKeyPreset::cmdShiftV);
}

TEST(HotKeyPreset, IsStoredUnderItsName)
{
    EXPECT_EQ(rawValue(HotKeyPreset::cmdShiftV), "cmdShiftV");
    EXPECT_EQ(rawValue(HotKeyPreset::ctrlShiftV), "ctrlShiftV");
    EXPECT_EQ(rawValue(HotKeyPreset::cmdOptionV), "cmdOptionV");
}

TEST(HotKeyPreset, IsKnownByItsExactNameOnly)
{
    for (const HotKeyPreset preset : allHotKeyPresets)
        EXPECT_EQ(hotKeyPreset(rawValue(preset)), preset);
    for (const auto* name : {"", "CmdShiftV", "cmdshiftv", "cmdShiftV ", " cmdShiftV", "cmdShift", "foo"})
        EXPECT_EQ(hotKeyPreset(name), std::nullopt) << name;
}

TEST(HotKeyPreset, HasATitle)
{
    EXPECT_EQ(title(HotKeyPreset::cmdShiftV), "Cmd + Shift + V");
    EXPECT_EQ(title(HotKeyPreset::ctrlShiftV), "Ctrl + Shift + V");
    EXPECT_EQ(title(HotKeyPreset::cmdOptionV), "Cmd + Option + V");
}

TEST(HotKeyPreset, HasACarbonModifierMask)
{
    EXPECT_EQ(carbonModifiers(HotKeyPreset::cmdShiftV), 0x0300U);
    EXPECT_EQ(carbonModifiers(HotKeyPreset::ctrlShiftV), 0x1200U);
    EXPECT_EQ(carbonModifiers(HotKeyPreset::cmdOptionV), 0x0900U);
}

} // namespace
} // namespace tessel::test
