#pragma once

#include <array>
#include <cstdint>
#include <optional>
#include <string_view>

namespace tessel {

/// The global shortcuts that the user can choose from.
enum class HotKeyPreset : std::uint8_t { cmdShiftV, ctrlShiftV, cmdOptionV };

inline constexpr std::array allHotKeyPresets = {HotKeyPreset::cmdShiftV, HotKeyPreset::ctrlShiftV,
                                                HotKeyPreset::cmdOptionV};
inline constexpr HotKeyPreset defaultHotKeyPreset = HotKeyPreset::cmdShiftV;

/// The stored form, equal to the case name.
std::string_view rawValue(HotKeyPreset preset);
/// None: `rawValue` is the stored form of no preset. Letter case counts.
std::optional<HotKeyPreset> hotKeyPreset(std::string_view rawValue);
/// The name of the combination as the user reads it, for instance "Cmd + Shift + V".
std::string_view title(HotKeyPreset preset);
/// The Carbon modifier mask of the combination. Its key is always the V key.
std::uint32_t carbonModifiers(HotKeyPreset preset);

} // namespace tessel
