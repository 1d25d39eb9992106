#pragma once

#include <chrono>
#include <cstddef>
#include <optional>
#include <string>

namespace tessel::owners {

/// What the caller has asked for beside a name.
struct Options {
    std::string selection = "CLIPBOARD";
    /// Owners stay so long, and hostile requestors keep up what they do; none: the owner stays until it is
    /// asked to end, the requestor for its own usual time.
    std::optional<std::chrono::milliseconds> duration;

    // For owners.
    std::string text = "text of selection-owners";
    std::string file;
    std::string mime;
    std::optional<std::size_t> megabytes;

    // For requestors.
    std::optional<std::string> target;
    /// Each requestor ends after this time, whatever the owner does.
    std::chrono::milliseconds patience{60'000};
    std::optional<std::size_t> count;
    std::optional<std::chrono::milliseconds> interval;
    std::string output;
};

} // namespace tessel::owners
