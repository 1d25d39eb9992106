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

std::optional<Date> expiryCutoff(QuickClearPolicy policy, double customSeconds, Date now)
{
    constexpr double secondsPerDay = 86400;

    switch (policy) {
    case QuickClearPolicy::custom:
        return now - customSeconds;
    case QuickClearPolicy::oneDay:
        return now - secondsPerDay;
    case QuickClearPolicy::never:
        break;
    }
    return std::nullopt;
}

} // namespace tessel
