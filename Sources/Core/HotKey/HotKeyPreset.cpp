#include "HotKey/HotKeyPreset.h"

#include <cstddef>

#include "Support/RawValue.h"

namespace tessel {

namespace {

struct PresetRow {
    std::string_view rawValue;
    std::string_view title;
    std::uint32_t carbonModifiers;
};

/// By the order of the cases.
constexpr std::array<PresetRow, allHotKeyPresets.size()> presetTable = {{
    {"cmdShiftV", "Cmd + Shift + V", 0x0300},   // cmdKey 0x0100 + shiftKey 0x0200
    {"ctrlShiftV", "Ctrl + Shift + V", 0x1200}, // controlKey 0x1000 + shiftKey 0x0200
    {"cmdOptionV", "Cmd + Option + V", 0x0900}, // cmdKey 0x0100 + optionKey 0x0800
}};

const PresetRow& row(HotKeyPreset preset)
{
    return presetTable.at(static_cast<std::size_t>(preset));
}

} // namespace

std::string_view rawValue(HotKeyPreset preset)
{
    return row(preset).rawValue;
}

std::optional<HotKeyPreset> hotKeyPreset(std::string_view rawValue)
{
    return caseWithRawValue(allHotKeyPresets, rawValue);
}

std::string_view title(HotKeyPreset preset)
{
    return row(preset).title;
}

std::uint32_t carbonModifiers(HotKeyPreset preset)
{
    return row(preset).carbonModifiers;
}

} // namespace tessel
