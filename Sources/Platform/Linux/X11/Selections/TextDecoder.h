#pragma once

#include <cstddef>
#include <string>
#include <string_view>

#include "X11/Selections/TextForms.h"

namespace tessel {

/// Makes valid UTF-8 of what an owner sends, piece by piece as it comes: a large text is there once, and no
/// piece of work on it is long.
///
/// Never loses the value: each byte that cannot be read becomes U+FFFD. Zero bytes at the end, which C
/// programs send along, are cut off; others stay, because a text may hold them. A UTF-16 byte order mark is
/// believed whatever the form. Without one, a text counts as UTF-16 when nearly every second byte of its
/// beginning is zero and none of the others is, which no other text looks like; that is how Latin letters
/// look. UTF-16 of other scripts cannot be told from bytes of any other meaning, and is not.
class TextDecoder {
public:
    explicit TextDecoder(TextForm form);

    /// Makes room for a text of about so many bytes on the wire. Room that is never written to costs no
    /// memory.
    void expect(std::size_t bytes) { expectedBytes_ = bytes; }
    void append(std::string_view piece);
    /// Of what has been made so far.
    std::size_t size() const { return text_.size() + head_.size(); }
    /// The whole text; nothing is appended afterwards.
    std::string finish();

private:
    enum class Coding { undecided, utf8, latin1, compoundText, utf16LittleEndian, utf16BigEndian };
    enum class More { follows, no };

    void decide();
    void decode(std::string_view piece, More more);
    /// These read as much as can be read, and return how much that was: what is cut off at the end stays.
    std::size_t read(std::string_view bytes, More more);
    std::size_t readUTF8(std::string_view bytes, More more);
    std::size_t readLatin1(std::string_view bytes);
    std::size_t readUTF16(std::string_view bytes, More more);
    std::size_t readCompoundText(std::string_view bytes, More more);
    std::size_t readEscape(std::string_view bytes, More more);

    TextForm form_;
    Coding coding_ = Coding::undecided;
    std::size_t expectedBytes_ = 0;
    std::string head_;              ///< The beginning, until it is clear what it is.
    std::string cut_;               ///< The beginning of a character that the next piece goes on with.
    bool isInUTF8Segment_ = false;  ///< Of compound text.
    bool isRightHalfLatin1_ = true; ///< Of compound text: what bytes from 128 on are.
    std::string text_;
};

/// All of it at once.
std::string textFromWire(std::string_view bytes, TextForm form);

} // namespace tessel
