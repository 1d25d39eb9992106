#pragma once

#include <optional>
#include <string>

namespace tessel::owners {

/// What a requestor saw of an owner.
struct Observation {
    bool isGood = true; ///< Whether the owner did what the ICCCM asks of it.
    std::string seen;   ///< In words, in one line.
    /// What the caller asked for, beside the verdict.
    std::optional<std::string> value = std::nullopt;
};

inline Observation good(std::string seen)
{
    return {true, std::move(seen)};
}

inline Observation bad(std::string seen)
{
    return {false, std::move(seen)};
}

} // namespace tessel::owners
