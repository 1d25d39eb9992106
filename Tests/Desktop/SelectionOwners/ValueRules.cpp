#include "ValueRules.h"

#include <algorithm>
#include <string_view>
#include <vector>

namespace tessel::owners {

namespace {

using namespace std::string_view_literals;

/// What a target's name says about its value (ICCCM sections 2.6.2 and 2.7.1).
struct Rule {
    std::string_view target;
    std::vector<std::string_view> types;
    int format;
    bool isUtf8 = false;
    std::string_view beginning = {};
    std::string_view end = {};
};

const std::vector<Rule>& rules()
{
    static const std::vector<Rule> all = {
        {"TARGETS", {"ATOM"}, 32},
        {"TIMESTAMP", {"INTEGER"}, 32},
        {"UTF8_STRING", {"UTF8_STRING"}, 8, true},
        {"text/plain;charset=utf-8", {"text/plain;charset=utf-8", "UTF8_STRING"}, 8, true},
        {"STRING", {"STRING"}, 8},
        {"COMPOUND_TEXT", {"COMPOUND_TEXT"}, 8},
        {"TEXT", {"STRING", "COMPOUND_TEXT", "UTF8_STRING", "C_STRING"}, 8},
        {"image/png", {"image/png"}, 8, false, "\x89PNG\r\n\x1A\n"sv, "IEND\xAE\x42\x60\x82"sv},
        {"image/jpeg", {"image/jpeg"}, 8, false, "\xFF\xD8\xFF"sv},
        {"image/bmp", {"image/bmp"}, 8, false, "BM"sv},
        {"image/gif", {"image/gif"}, 8, false, "GIF8"sv},
    };
    return all;
}

/// The length of the character that begins here; 0 if it is not a whole UTF-8 character.
std::size_t characterLength(std::string_view bytes)
{
    const auto at = [&](std::size_t index) { return static_cast<unsigned char>(bytes[index]); };
    const unsigned char first = at(0);
    if (first < 0x80)
        return 1;
    const std::size_t length = first >= 0xF0 ? 4 : first >= 0xE0 ? 3 : 2;
    if (first < 0xC2 || first > 0xF4 || bytes.size() < length)
        return 0;
    for (std::size_t index = 1; index < length; ++index) {
        if ((at(index) & 0xC0) != 0x80)
            return 0;
    }
    const bool isOverlong = (first == 0xE0 && at(1) < 0xA0) || (first == 0xF0 && at(1) < 0x90);
    const bool isOutside = (first == 0xED && at(1) > 0x9F) || (first == 0xF4 && at(1) > 0x8F);
    return isOverlong || isOutside ? 0 : length;
}

std::string list(const std::vector<std::string_view>& names)
{
    std::string text;
    for (const std::string_view name : names)
        text += (text.empty() ? "" : " or ") + std::string(name);
    return text;
}

} // namespace

bool isUtf8(std::string_view bytes)
{
    while (!bytes.empty()) {
        const std::size_t length = characterLength(bytes);
        if (length == 0)
            return false;
        bytes.remove_prefix(length);
    }
    return true;
}

std::optional<std::string> complaintAbout(const std::string& target, const std::string& type,
                                          const Property& value)
{
    const auto rule = std::ranges::find(rules(), target, &Rule::target);
    if (rule == rules().end())
        return std::nullopt;
    if (std::ranges::find(rule->types, type) == rule->types.end())
        return target + " is of the type " + type + ", not " + list(rule->types) + " (2.6.2)";
    if (value.format != rule->format)
        return target + " has " + std::to_string(value.format) + " bits to an item, not " +
               std::to_string(rule->format) + " (2.6.2)";
    if (rule->isUtf8 && !isUtf8(value.bytes))
        return target + " is not valid UTF-8 (2.6.2)";
    if (!value.bytes.starts_with(rule->beginning))
        return target + " does not begin as such data begins (2.6.2)";
    if (!value.bytes.ends_with(rule->end))
        return target + " does not end as such data ends (2.6.2)";
    return std::nullopt;
}

} // namespace tessel::owners
