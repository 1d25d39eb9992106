#pragma once

#include <string>
#include <string_view>

namespace tessel {

/// How the bytes of a text target are written (ICCCM section 2.6.2).
enum class TextForm {
    utf8,         ///< UTF8_STRING and text/plain;charset=utf-8.
    latin1,       ///< STRING: ISO Latin-1.
    compoundText, ///< COMPOUND_TEXT: ISO 2022 with the UTF-8 and Latin-1 segments that today's clients write.
};

/// Makes valid UTF-8 of what an owner sent. Never loses the value: each byte that cannot be read becomes
/// U+FFFD. Zero bytes at the end, which C programs send along, are cut off; a UTF-16 byte order mark is
/// believed whatever the form. Valid UTF-8 is returned in its own buffer, without a copy.
std::string textFromWire(std::string bytes, TextForm form);

/// `text` (valid UTF-8) in ISO Latin-1; a character outside of it becomes "?".
std::string latin1FromUTF8(std::string_view text);

/// Whether every byte is below 128.
bool isASCII(std::string_view bytes);

/// Whether `bytes` is well-formed UTF-8 (RFC 3629: no surrogates, no overlong forms).
bool isValidUTF8(std::string_view bytes);

} // namespace tessel
