#pragma once

#include <algorithm>
#include <cstdint>
#include <span>
#include <string_view>

#include <xcb/xcb.h>

namespace tessel {

/// The 32-bit units of a property. Empty: the property is missing or has another format.
inline std::span<const std::uint32_t> unitsOf(const xcb_get_property_reply_t* reply)
{
    constexpr std::uint8_t bitsPerUnit = 32;
    if (reply == nullptr || reply->format != bitsPerUnit)
        return {};
    return {static_cast<const std::uint32_t*>(xcb_get_property_value(reply)), reply->value_len};
}

/// The first unit of a property, which for a window or a number is its value. 0: the property is missing.
inline std::uint32_t firstUnitOf(const xcb_get_property_reply_t* reply)
{
    const auto units = unitsOf(reply);
    return units.empty() ? 0 : units.front();
}

/// The bytes of a property. Empty: the property is missing or has another format.
inline std::string_view bytesOf(const xcb_get_property_reply_t* reply)
{
    constexpr std::uint8_t bitsPerUnit = 8;
    if (reply == nullptr || reply->format != bitsPerUnit)
        return {};
    return {static_cast<const char*>(xcb_get_property_value(reply)), reply->value_len};
}

} // namespace tessel
