#include "History/DurationText.h"

#include <cstdint>

#include "Support/WholeNumber.h"

namespace tessel {

std::string durationText(double seconds)
{
    constexpr std::int64_t minute = 60;
    constexpr std::int64_t hour = 3600;

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

} // namespace tessel
