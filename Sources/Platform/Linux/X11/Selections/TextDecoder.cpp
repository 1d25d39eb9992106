#include "X11/Selections/TextDecoder.h"

#include <algorithm>
#include <utility>

#include "X11/Selections/UTF8.h"

namespace tessel {

using namespace UTF8;

namespace {

/// So much of the beginning is looked at to see what the text is.
constexpr std::size_t headBytes = 4096;
/// No character and no escape sequence is longer.
constexpr std::size_t longestUnit = 8;

// Compound Text (X Consortium standard, version 1.1).
constexpr char escape = '\x1B';
constexpr std::string_view utf8Begin = "\x1B%G";
constexpr std::string_view utf8End = "\x1B%@";
constexpr std::string_view latin1RightHalf = "\x1B-A";

constexpr std::string_view littleEndianMark = "\xFF\xFE";
constexpr std::string_view bigEndianMark = "\xFE\xFF";

std::string_view withoutTrailingZeroBytes(std::string_view bytes)
{
    return bytes.substr(0, bytes.find_last_not_of('\0') + 1);
}

/// Whether nearly all bytes at `zeroes` (0: the even places, 1: the odd ones) are zero and none of the others
/// is.
bool looksLikeLatinUTF16(std::string_view bytes, std::size_t zeroes)
{
    std::size_t zeroCount = 0;
    const std::size_t unitCount = bytes.size() / 2;
    for (std::size_t index = 0; index < 2 * unitCount; ++index) {
        const bool isZero = bytes[index] == 0;
        if (isZero && index % 2 != zeroes)
            return false;
        zeroCount += isZero ? 1 : 0;
    }
    // Four zero bytes of five: a list of short words with a zero byte behind each has fewer.
    return unitCount > 1 && zeroCount * 5 >= unitCount * 4;
}

bool isHighSurrogate(std::uint32_t unit)
{
    return unit >= 0xD800 && unit < 0xDC00;
}

bool isLowSurrogate(std::uint32_t unit)
{
    return unit >= 0xDC00 && unit < 0xE000;
}

} // namespace

TextDecoder::TextDecoder(TextForm form)
    : form_(form)
{}

void TextDecoder::append(std::string_view piece)
{
    if (coding_ == Coding::undecided) {
        const std::size_t length = std::min(headBytes - head_.size(), piece.size());
        head_.append(piece.substr(0, length));
        piece.remove_prefix(length);
        if (head_.size() < headBytes)
            return;
        decide();
    }
    decode(piece, More::follows);
}

std::string TextDecoder::finish()
{
    if (coding_ == Coding::undecided)
        decide();
    decode({}, More::no);
    text_.resize(withoutTrailingZeroBytes(text_).size());
    return std::move(text_);
}

void TextDecoder::decide()
{
    std::string head = std::exchange(head_, {});
    const bool isMarked = head.starts_with(littleEndianMark) || head.starts_with(bigEndianMark);
    // Behind an UTF-16 text stands a zero of two bytes, of which one may be its last letter's.
    const std::string_view text = withoutTrailingZeroBytes(head);
    const std::string_view withLastZero = std::string_view(head).substr(0, text.size() + text.size() % 2);
    if (head.starts_with(littleEndianMark) || looksLikeLatinUTF16(withLastZero, 1))
        coding_ = Coding::utf16LittleEndian;
    else if (head.starts_with(bigEndianMark) || looksLikeLatinUTF16(withLastZero, 0))
        coding_ = Coding::utf16BigEndian;
    else
        coding_ = form_ == TextForm::utf8     ? Coding::utf8
                  : form_ == TextForm::latin1 ? Coding::latin1
                                              : Coding::compoundText;
    // Latin-1 takes up to two bytes for one, and UTF-16 three for two.
    text_.reserve(coding_ == Coding::utf8 ? expectedBytes_ : 2 * expectedBytes_);
    decode(std::string_view(head).substr(isMarked ? littleEndianMark.size() : 0), More::follows);
}

void TextDecoder::decode(std::string_view piece, More more)
{
    if (!cut_.empty()) {
        const std::size_t present = cut_.size();
        cut_.append(piece.substr(0, longestUnit));
        const bool isAll = piece.size() <= longestUnit;
        const std::size_t length = read(cut_, isAll ? more : More::follows);
        if (length < present) {
            cut_.erase(0, length); // Too short still; the piece is in it.
            return;
        }
        piece.remove_prefix(length - present);
        cut_.clear();
    }
    cut_ = piece.substr(read(piece, more));
}

std::size_t TextDecoder::read(std::string_view bytes, More more)
{
    switch (coding_) {
    case Coding::undecided:
    case Coding::utf8:
        return readUTF8(bytes, more);
    case Coding::latin1:
        return readLatin1(bytes);
    case Coding::compoundText:
        return readCompoundText(bytes, more);
    case Coding::utf16LittleEndian:
    case Coding::utf16BigEndian:
        return readUTF16(bytes, more);
    }
    return bytes.size();
}

std::size_t TextDecoder::readUTF8(std::string_view bytes, More more)
{
    std::string_view rest = bytes;
    while (true) {
        const std::size_t good = validPrefix(rest);
        text_.append(rest.substr(0, good));
        rest.remove_prefix(good);
        if (rest.empty())
            return bytes.size();
        const Sequence broken = leadingSequence(rest);
        if (broken.isCutOff && more == More::follows)
            return bytes.size() - rest.size();
        text_.append(replacementCharacter);
        rest.remove_prefix(broken.length);
    }
}

std::size_t TextDecoder::readLatin1(std::string_view bytes)
{
    for (std::string_view rest = bytes; !rest.empty(); rest.remove_prefix(1)) {
        const std::size_t plain = asciiPrefix(rest);
        text_.append(rest.substr(0, plain));
        rest.remove_prefix(plain);
        if (rest.empty())
            break;
        appendCodePoint(text_, byteAt(rest, 0));
    }
    return bytes.size();
}

std::size_t TextDecoder::readUTF16(std::string_view bytes, More more)
{
    constexpr std::uint32_t replacement = 0xFFFD;
    const auto unitAt = [&](std::size_t index) -> std::uint32_t {
        const std::uint32_t first = byteAt(bytes, index);
        const std::uint32_t second = byteAt(bytes, index + 1);
        return coding_ == Coding::utf16LittleEndian ? first | (second << 8) : (first << 8) | second;
    };
    std::size_t index = 0;
    for (; index + 1 < bytes.size(); index += 2) {
        const std::uint32_t unit = unitAt(index);
        const bool hasNext = index + 3 < bytes.size();
        if (isHighSurrogate(unit) && !hasNext && more == More::follows)
            return index;
        const std::uint32_t next = hasNext ? unitAt(index + 2) : 0;
        if (isHighSurrogate(unit) && isLowSurrogate(next)) {
            appendCodePoint(text_, 0x10000 + ((unit - 0xD800) << 10) + (next - 0xDC00));
            index += 2;
        } else {
            appendCodePoint(text_, isHighSurrogate(unit) || isLowSurrogate(unit) ? replacement : unit);
        }
    }
    const bool hasOddByte = index < bytes.size();
    if (!hasOddByte || more == More::follows)
        return index;
    if (bytes[index] != 0)
        appendCodePoint(text_, replacement);
    return bytes.size();
}

/// Reads the parts of Compound Text that are in use: ASCII and Latin-1, and the UTF-8 segments between ESC %
/// G and ESC % @. A segment in another character set comes out as U+FFFD for each byte.
std::size_t TextDecoder::readCompoundText(std::string_view bytes, More more)
{
    std::string_view rest = bytes;
    while (!rest.empty()) {
        const std::size_t runLength = std::min(rest.find(escape), rest.size());
        const std::string_view run = rest.substr(0, runLength);
        std::size_t length = run.size();
        if (isInUTF8Segment_) {
            length = readUTF8(run, runLength < rest.size() ? More::no : more);
        } else if (isRightHalfLatin1_) {
            readLatin1(run);
        } else {
            for (const char byte : run)
                text_.append(static_cast<std::uint8_t>(byte) < 0x80 ? std::string_view(&byte, 1)
                                                                    : replacementCharacter);
        }
        rest.remove_prefix(length);
        if (length < run.size() || rest.empty())
            break;
        const std::size_t escapeLength = readEscape(rest, more);
        if (escapeLength == 0)
            break;
        rest.remove_prefix(escapeLength);
    }
    return bytes.size() - rest.size();
}

/// 0: it is cut off.
std::size_t TextDecoder::readEscape(std::string_view bytes, More more)
{
    if (isInUTF8Segment_ && !utf8End.starts_with(bytes.substr(0, utf8End.size()))) {
        text_.push_back(escape); // A character of the text.
        return 1;
    }
    // A designation: intermediates from 0x20 to 0x2F, then one final byte (ISO 2022).
    std::size_t length = 1;
    while (length < std::min(bytes.size(), longestUnit) && byteAt(bytes, length) >= 0x20 &&
           byteAt(bytes, length) <= 0x2F)
        ++length;
    if (length == bytes.size() && length < longestUnit)
        return more == More::follows ? 0 : length;
    isInUTF8Segment_ = bytes.starts_with(utf8Begin);
    isRightHalfLatin1_ = isInUTF8Segment_ || bytes.starts_with(utf8End) ? isRightHalfLatin1_
                                                                        : bytes.starts_with(latin1RightHalf);
    return length == longestUnit ? length : length + 1;
}

std::string textFromWire(std::string_view bytes, TextForm form)
{
    TextDecoder decoder(form);
    decoder.expect(bytes.size());
    decoder.append(bytes);
    return decoder.finish();
}

} // namespace tessel
