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

/// `text` (valid UTF-8) in ISO Latin-1; a character outside of it becomes "?".
std::string latin1FromUTF8(std::string_view text);

} // namespace tessel
