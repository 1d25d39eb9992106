#include "History/QuickClearPolicy.h"

#include "Support/RawValue.h"

namespace tessel {

std::string_view rawValue(QuickClearPolicy policy)
{
    switch (policy) {
    case QuickClearPolicy::custom:
        return "custom";
    case QuickClearPolicy::oneDay:
        return "oneDay";
    case QuickClearPolicy::never:
        break;
    }
    return "never";
}

std::optional<QuickClearPolicy> quickClearPolicy(std::string_view rawValue)
{
    return caseWithRawValue(allQuickClearPolicies, rawValue);
}

std::optional<double> maximumAge(QuickClearPolicy policy, double customSeconds)
{
    constexpr double secondsPerDay = 86400;

    switch (policy) {
    case QuickClearPolicy::custom:
        return customSeconds;
    case QuickClearPolicy::oneDay:
        return secondsPerDay;
    case QuickClearPolicy::never:
        break;
    }
    return std::nullopt;
}

} // namespace tessel
