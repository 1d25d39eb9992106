#pragma once

#include <optional>
#include <string_view>

namespace tessel {

/// The case among `cases` whose `rawValue` is exactly `text`, or none.
template <class Cases>
std::optional<typename Cases::value_type> caseWithRawValue(const Cases& cases, std::string_view text)
{
    for (const auto each : cases) {
        if (rawValue(each) == text)
            return each;
    }
    return std::nullopt;
}

} // namespace tessel
