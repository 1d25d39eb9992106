#pragma once

#include <charconv>
#include <string>
#include <string_view>

namespace tessel::desktop {

/// A text as one word of a line: every byte except letters and digits becomes a percent sign and two
/// hexadecimal digits.
inline std::string escaped(std::string_view text)
{
    constexpr std::string_view digits = "0123456789abcdef";
    std::string word;
    for (const char character : text) {
        const auto byte = static_cast<unsigned char>(character);
        const bool isPlain =
            (byte >= '0' && byte <= '9') || (byte >= 'A' && byte <= 'Z') || (byte >= 'a' && byte <= 'z');
        if (isPlain)
            word += character;
        else
            (word += '%') += {digits[byte >> 4], digits[byte & 15]};
    }
    return word;
}

/// The text that `escaped` made a word of.
inline std::string unescaped(std::string_view word)
{
    std::string text;
    for (std::size_t index = 0; index < word.size(); ++index) {
        if (word[index] != '%' || index + 2 >= word.size()) {
            text += word[index];
            continue;
        }
        unsigned byte = 0;
        std::from_chars(word.data() + index + 1, word.data() + index + 3, byte, 16);
        text += static_cast<char>(byte);
        index += 2;
    }
    return text;
}

/// The part of a line up to its first space, and the rest after it.
struct SplitLine {
    std::string_view word;
    std::string_view rest;
};

inline SplitLine splitLine(std::string_view line)
{
    const auto space = line.find(' ');
    if (space == std::string_view::npos)
        return {line, {}};
    return {line.substr(0, space), line.substr(space + 1)};
}

} // namespace tessel::desktop
