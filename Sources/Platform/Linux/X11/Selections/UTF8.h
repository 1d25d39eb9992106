#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

namespace tessel {

/// The bytes of UTF-8 (RFC 3629: no surrogates, no overlong forms).
namespace UTF8 {

constexpr std::string_view replacementCharacter = "\xEF\xBF\xBD"; // U+FFFD

constexpr std::uint8_t byteAt(std::string_view bytes, std::size_t index)
{
    return static_cast<std::uint8_t>(bytes[index]);
}

struct Sequence {
    /// Bytes that belong together: the character, or the longest broken beginning of one.
    std::size_t length;
    bool isWellFormed;
    /// Whether only the end of the bytes has broken it.
    bool isCutOff = false;
};

/// The sequence at the start of `bytes`, which begins with a byte of 128 or more.
Sequence leadingSequence(std::string_view bytes);

/// How many of the leading bytes are ASCII.
std::size_t asciiPrefix(std::string_view bytes);
/// The length of the well-formed beginning of `bytes`.
std::size_t validPrefix(std::string_view bytes);

/// Whether every byte is below 128.
bool isASCII(std::string_view bytes);
bool isValid(std::string_view bytes);

void appendCodePoint(std::string& text, std::uint32_t codePoint);

} // namespace UTF8

} // namespace tessel
