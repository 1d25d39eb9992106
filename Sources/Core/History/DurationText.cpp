#include "History/DurationText.h"

#include <cstdint>

#include "Support/WholeNumber.h"

namespace tessel {

namespace {

// In seconds.
constexpr std::int64_t minute = 60;
constexpr std::int64_t hour = 3600;

} // namespace

std::string durationText(double seconds)
{
    const std::int64_t whole = roundedToWhole(seconds);
    if (whole < minute)
        return std::to_string(whole) + "s";
    if (whole < hour)
        return std::to_string(whole / minute) + "m";

    std::string hours = std::to_string(whole / hour) + "h";
    const std::int64_t rest = whole % hour;
    if (rest < minute)
        return hours;
    return hours + " " + std::to_string(rest / minute) + "m";
}

std::string shortDurationLabel(double seconds)
{
    const std::int64_t whole = truncatedToWhole(seconds);
    if (whole < minute)
        return std::to_string(whole) + "s";
    if (whole < hour)
        return std::to_string(whole / minute) + "m";
    return std::to_string(whole / hour) + "h";
}

} // namespace tessel
