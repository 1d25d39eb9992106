#include "X11/Selections/UTF8.h"

#include <cstring>
#include <optional>

namespace tessel {

namespace {

struct SequenceRule {
    std::size_t length;
    std::uint8_t secondLowest;
    std::uint8_t secondHighest;
};

/// The shape of the sequence that `lead` begins (RFC 3629, section 4). None: no sequence begins so.
std::optional<SequenceRule> sequenceRule(std::uint8_t lead)
{
    if (lead >= 0xC2 && lead <= 0xDF)
        return SequenceRule{2, 0x80, 0xBF};
    if (lead >= 0xE0 && lead <= 0xEF)
        return SequenceRule{3, static_cast<std::uint8_t>(lead == 0xE0 ? 0xA0 : 0x80),
                            static_cast<std::uint8_t>(lead == 0xED ? 0x9F : 0xBF)};
    if (lead >= 0xF0 && lead <= 0xF4)
        return SequenceRule{4, static_cast<std::uint8_t>(lead == 0xF0 ? 0x90 : 0x80),
                            static_cast<std::uint8_t>(lead == 0xF4 ? 0x8F : 0xBF)};
    return std::nullopt;
}

} // namespace

/// Eight at a time.
std::size_t UTF8::asciiPrefix(std::string_view bytes)
{
    constexpr std::uint64_t highBits = 0x8080808080808080;
    std::size_t index = 0;
    for (; index + sizeof(std::uint64_t) <= bytes.size(); index += sizeof(std::uint64_t)) {
        std::uint64_t block = 0;
        std::memcpy(&block, bytes.data() + index, sizeof block);
        if ((block & highBits) != 0)
            break;
    }
    while (index < bytes.size() && byteAt(bytes, index) < 0x80)
        ++index;
    return index;
}

UTF8::Sequence UTF8::leadingSequence(std::string_view bytes)
{
    const auto rule = sequenceRule(UTF8::byteAt(bytes, 0));
    if (!rule)
        return {1, false};
    for (std::size_t index = 1; index < rule->length; ++index) {
        const std::uint8_t lowest = index == 1 ? rule->secondLowest : 0x80;
        const std::uint8_t highest = index == 1 ? rule->secondHighest : 0xBF;
        if (index >= bytes.size())
            return {index, false, true};
        if (UTF8::byteAt(bytes, index) < lowest || UTF8::byteAt(bytes, index) > highest)
            return {index, false};
    }
    return {rule->length, true};
}

std::size_t UTF8::validPrefix(std::string_view bytes)
{
    std::size_t index = 0;
    while (index < bytes.size()) {
        index += asciiPrefix(bytes.substr(index));
        if (index == bytes.size())
            break;
        const Sequence sequence = leadingSequence(bytes.substr(index));
        if (!sequence.isWellFormed)
            break;
        index += sequence.length;
    }
    return index;
}

bool UTF8::isASCII(std::string_view bytes)
{
    return asciiPrefix(bytes) == bytes.size();
}

bool UTF8::isValid(std::string_view bytes)
{
    return validPrefix(bytes) == bytes.size();
}

void UTF8::appendCodePoint(std::string& text, std::uint32_t codePoint)
{
    const auto append = [&](std::uint32_t byte) { text.push_back(static_cast<char>(byte)); };
    if (codePoint < 0x80) {
        append(codePoint);
    } else if (codePoint < 0x800) {
        append(0xC0 | (codePoint >> 6));
        append(0x80 | (codePoint & 0x3F));
    } else if (codePoint < 0x10000) {
        append(0xE0 | (codePoint >> 12));
        append(0x80 | ((codePoint >> 6) & 0x3F));
        append(0x80 | (codePoint & 0x3F));
    } else {
        append(0xF0 | (codePoint >> 18));
        append(0x80 | ((codePoint >> 12) & 0x3F));
        append(0x80 | ((codePoint >> 6) & 0x3F));
        append(0x80 | (codePoint & 0x3F));
    }
}

} // namespace tessel
