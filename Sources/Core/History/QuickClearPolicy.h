#pragma once

#include <array>
#include <optional>
#include <string_view>

namespace tessel {

/// How long an entry is kept. The declaration order is the order in which a chooser lists the policies.
enum class QuickClearPolicy {
    custom, ///< For the user's own number of seconds.
    oneDay, ///< For 86400 seconds.
    never,  ///< Without limit.
};

inline constexpr std::array allQuickClearPolicies = {QuickClearPolicy::custom, QuickClearPolicy::oneDay,
                                                     QuickClearPolicy::never};

/// The stored form, equal to the case name.
std::string_view rawValue(QuickClearPolicy policy);
/// None: `rawValue` is the stored form of no policy. Letter case counts.
std::optional<QuickClearPolicy> quickClearPolicy(std::string_view rawValue);

/// Seconds; older entries have expired. None: entries never expire.
std::optional<double> maximumAge(QuickClearPolicy policy, double customSeconds);

} // namespace tessel
