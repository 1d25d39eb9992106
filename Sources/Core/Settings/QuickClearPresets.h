#pragma once

#include <array>
#include <string>

#include "History/QuickClearPolicy.h"

namespace tessel {

/// The age limits that the settings offer beside having none, in seconds, in the order of their buttons.
inline constexpr std::array<double, 7> quickClearPresets = {30, 300, 900, 3600, 10800, 21600, 86400};

/// True for the preset that stands for the `oneDay` policy; the others stand for `custom` with that many
/// seconds. Fatal error: `preset` does not fit a 64-bit integer.
bool isOneDayPreset(double preset);

/// Is a preset what is in force? A custom age limit counts as the whole number of seconds that is nearest.
/// Fatal error: a value that is compared does not fit a 64-bit integer.
bool isPresetSelected(double preset, QuickClearPolicy policy, double customSeconds);

/// The policy in force, in a word: the age limit, "24h" or "Infinity".
std::string quickClearValueText(QuickClearPolicy policy, double customSeconds);

} // namespace tessel
