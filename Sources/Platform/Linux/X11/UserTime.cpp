#include "X11/UserTime.h"

#include <charconv>

namespace tessel {

void UserTime::note(xcb_timestamp_t time)
{
    if (time == XCB_CURRENT_TIME)
        return;
    const bool isLater = static_cast<std::int32_t>(time - last_) > 0;
    if (last_ == XCB_CURRENT_TIME || isLater)
        last_ = time;
}

void UserTime::noteStartupIdentifier(std::string_view identifier)
{
    if (const auto time = timeOfStartupIdentifier(identifier))
        note(*time);
    else
        last_ = XCB_CURRENT_TIME;
}

std::optional<xcb_timestamp_t> timeOfStartupIdentifier(std::string_view identifier)
{
    constexpr std::string_view mark = "_TIME";
    const auto found = identifier.rfind(mark);
    if (found == std::string_view::npos)
        return std::nullopt;
    const std::string_view digits = identifier.substr(found + mark.size());
    xcb_timestamp_t time = 0;
    const auto [end, error] = std::from_chars(digits.data(), digits.data() + digits.size(), time);
    const bool isWhole = error == std::errc{} && end == digits.data() + digits.size();
    if (!isWhole || time == XCB_CURRENT_TIME)
        return std::nullopt;
    return time;
}

} // namespace tessel
