#include "Settings/QuickClearPresets.h"

#include "History/DurationText.h"
#include "Support/WholeNumber.h"

namespace tessel {

bool isOneDayPreset(double preset)
{
    constexpr std::int64_t day = 86400; // Seconds.
    return truncatedToWhole(preset) == day;
}

bool isPresetSelected(double preset, QuickClearPolicy policy, double customSeconds)
{
    switch (policy) {
    case QuickClearPolicy::custom:
        return roundedToWhole(customSeconds) == roundedToWhole(preset);
    case QuickClearPolicy::oneDay:
        return isOneDayPreset(preset);
    case QuickClearPolicy::never:
        break;
    }
    return false;
}

std::string quickClearValueText(QuickClearPolicy policy, double customSeconds)
{
    switch (policy) {
    case QuickClearPolicy::custom:
        return durationText(customSeconds);
    case QuickClearPolicy::oneDay:
        return "24h";
    case QuickClearPolicy::never:
        break;
    }
    return "Infinity";
}

} // namespace tessel
