#include "X11/Selections/TextForms.h"

#include <cstdint>
#include <cstring>
#include <optional>

namespace tessel {

namespace {

constexpr std::string_view replacementCharacter = "\xEF\xBF\xBD"; // U+FFFD

constexpr std::uint8_t byteAt(std::string_view bytes, std::size_t index)
{
    return static_cast<std::uint8_t>(bytes[index]);
}

/// How many of the leading bytes are ASCII, eight at a time.
std::size_t asciiPrefix(std::string_view bytes)
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

struct Sequence {
    std::size_t
        length; ///< Bytes that belong together: the character, or the longest broken beginning of one.
    bool isWellFormed;
};

/// The sequence at the start of `bytes`, which begins with a byte of 128 or more.
Sequence leadingSequence(std::string_view bytes)
{
    const auto rule = sequenceRule(byteAt(bytes, 0));
    if (!rule)
        return {1, false};
    for (std::size_t index = 1; index < rule->length; ++index) {
        const std::uint8_t lowest = index == 1 ? rule->secondLowest : 0x80;
        const std::uint8_t highest = index == 1 ? rule->secondHighest : 0xBF;
        if (index >= bytes.size() || byteAt(bytes, index) < lowest || byteAt(bytes, index) > highest)
            return {index, false};
    }
    return {rule->length, true};
}

/// The length of the well-formed beginning of `bytes`.
std::size_t validPrefix(std::string_view bytes)
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

std::string repairedUTF8(std::string bytes)
{
    std::size_t good = validPrefix(bytes);
    if (good == bytes.size())
        return bytes;
    std::string repaired;
    repaired.reserve(bytes.size() + replacementCharacter.size());
    std::string_view rest = bytes;
    while (!rest.empty()) {
        repaired.append(rest.substr(0, good));
        rest.remove_prefix(good);
        if (rest.empty())
            break;
        repaired.append(replacementCharacter);
        rest.remove_prefix(leadingSequence(rest).length);
        good = validPrefix(rest);
    }
    return repaired;
}

void appendCodePoint(std::string& text, std::uint32_t codePoint)
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

std::string utf8FromLatin1(std::string bytes)
{
    const std::size_t plain = asciiPrefix(bytes);
    if (plain == bytes.size())
        return bytes;
    std::string text;
    text.reserve(bytes.size() + bytes.size() / 8);
    for (const char byte : bytes)
        appendCodePoint(text, static_cast<std::uint8_t>(byte));
    return text;
}

enum class ByteOrder { littleEndian, bigEndian };

std::optional<ByteOrder> utf16Mark(std::string_view bytes)
{
    if (bytes.starts_with("\xFF\xFE"))
        return ByteOrder::littleEndian;
    if (bytes.starts_with("\xFE\xFF"))
        return ByteOrder::bigEndian;
    return std::nullopt;
}

std::string utf8FromUTF16(std::string_view bytes, ByteOrder order)
{
    constexpr std::uint32_t replacement = 0xFFFD;
    const auto unitAt = [&](std::size_t index) -> std::uint32_t {
        const std::uint32_t first = byteAt(bytes, index);
        const std::uint32_t second = byteAt(bytes, index + 1);
        return order == ByteOrder::littleEndian ? first | (second << 8) : (first << 8) | second;
    };
    std::string text;
    text.reserve(bytes.size());
    for (std::size_t index = 2; index + 1 < bytes.size(); index += 2) {
        const std::uint32_t unit = unitAt(index);
        const bool isHighSurrogate = unit >= 0xD800 && unit < 0xDC00;
        const std::uint32_t next = isHighSurrogate && index + 3 < bytes.size() ? unitAt(index + 2) : 0;
        if (isHighSurrogate && next >= 0xDC00 && next < 0xE000) {
            appendCodePoint(text, 0x10000 + ((unit - 0xD800) << 10) + (next - 0xDC00));
            index += 2;
        } else {
            appendCodePoint(text, unit >= 0xD800 && unit < 0xE000 ? replacement : unit);
        }
    }
    return text;
}

/// Reads the parts of Compound Text (X Consortium standard, version 1.1) that are in use: ASCII and Latin-1,
/// and the UTF-8 segments between ESC % G and ESC % @. A segment in another character set comes out as U+FFFD
/// for each byte.
std::string utf8FromCompoundText(std::string_view bytes)
{
    constexpr std::string_view utf8Begin = "\x1B%G";
    constexpr std::string_view utf8End = "\x1B%@";
    constexpr std::string_view latin1RightHalf = "\x1B-A";
    std::string text;
    bool rightHalfIsLatin1 = true;
    while (!bytes.empty()) {
        if (bytes.starts_with(utf8Begin)) {
            bytes.remove_prefix(utf8Begin.size());
            const std::size_t end = bytes.find(utf8End);
            text += repairedUTF8(std::string(bytes.substr(0, end)));
            bytes.remove_prefix(end == std::string_view::npos ? bytes.size() : end + utf8End.size());
            continue;
        }
        if (bytes[0] == '\x1B') {
            // A designation: intermediates from 0x20 to 0x2F, then one final byte (ISO 2022).
            rightHalfIsLatin1 = bytes.starts_with(latin1RightHalf);
            std::size_t length = 1;
            while (length < bytes.size() && byteAt(bytes, length) >= 0x20 && byteAt(bytes, length) <= 0x2F)
                ++length;
            bytes.remove_prefix(std::min(length + 1, bytes.size()));
            continue;
        }
        const std::uint8_t byte = byteAt(bytes, 0);
        if (byte < 0x80 || rightHalfIsLatin1)
            appendCodePoint(text, byte);
        else
            text.append(replacementCharacter);
        bytes.remove_prefix(1);
    }
    return text;
}

void trimTrailingZeroBytes(std::string& bytes)
{
    const std::size_t last = bytes.find_last_not_of('\0');
    bytes.resize(last == std::string::npos ? 0 : last + 1);
}

} // namespace

std::string textFromWire(std::string bytes, TextForm form)
{
    if (const auto order = utf16Mark(bytes)) {
        std::string text = utf8FromUTF16(bytes, *order);
        trimTrailingZeroBytes(text);
        return text;
    }
    trimTrailingZeroBytes(bytes);
    switch (form) {
    case TextForm::utf8:
        return repairedUTF8(std::move(bytes));
    case TextForm::latin1:
        return utf8FromLatin1(std::move(bytes));
    case TextForm::compoundText:
        return utf8FromCompoundText(bytes);
    }
    return bytes;
}

std::string latin1FromUTF8(std::string_view text)
{
    std::string bytes;
    bytes.reserve(text.size());
    while (!text.empty()) {
        const std::size_t plain = asciiPrefix(text);
        bytes.append(text.substr(0, plain));
        text.remove_prefix(plain);
        if (text.empty())
            break;
        const std::size_t length = leadingSequence(text).length;
        const std::uint8_t lead = byteAt(text, 0);
        const bool fits = length == 2 && lead <= 0xC3;
        bytes.push_back(fits ? static_cast<char>(((lead & 0x03) << 6) | (byteAt(text, 1) & 0x3F)) : '?');
        text.remove_prefix(length);
    }
    return bytes;
}

bool isASCII(std::string_view bytes)
{
    return asciiPrefix(bytes) == bytes.size();
}

bool isValidUTF8(std::string_view bytes)
{
    return validPrefix(bytes) == bytes.size();
}

} // namespace tessel
