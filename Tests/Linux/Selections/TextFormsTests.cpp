#include <gtest/gtest.h>

#include "PeakMemory.h"
#include "X11/Selections/TextDecoder.h"
#include "X11/Selections/UTF8.h"

namespace tessel {
namespace {

using namespace std::string_literals;

TEST(TextForms, ValidUTF8StaysAsItIs)
{
    const std::string text = "Grüße, 世界 🙂, and a tail that is longer than a short string";
    EXPECT_EQ(textFromWire(text, TextForm::utf8), text);
}

TEST(TextForms, TheWayATextIsCutIntoPiecesMakesNoDifference)
{
    const std::pair<std::string, TextForm> texts[] = {
        {"Grüße, 世界 🙂 a\xFF\xE4\xB8-\xF0\x9F\x99", TextForm::utf8},
        {"\xF0\x9F\x99\xE4\xF0\x9F\xC3\xC3\xA4\xED\xA0\x80\xF4\x90", TextForm::utf8},
        {"Gr\xFC\xDF", TextForm::latin1},
        {"\xFF\xFEG\0r\0\x3D\xD8\x3D\xD8\x42\xDE\x42\xDE\x3D\xD8x"s, TextForm::utf8},
        {"\xFE\xFF\0G\xD8\x3D\xDE\x42\xD8"s, TextForm::utf8},
        {"l\0o\0n\0g\0"s, TextForm::latin1},
        {"\x1B-AGr\xFC \x1B%G世\xE4\xB8\x1B%界\x1B%@! \x1B-B\xE1\x1B%G\xE4\xB8\x1B%@\x1B$(((((((((A",
         TextForm::compoundText},
    };
    for (const auto& [bytes, form] : texts) {
        const std::string whole = textFromWire(bytes, form);
        // Behind a long beginning, where nothing is held back any more, and without one.
        for (const std::string& beginning : {std::string(), std::string(5000, 'x')}) {
            const std::string expected = textFromWire(beginning + bytes, form);
            for (std::size_t first = 0; first <= bytes.size(); ++first) {
                for (std::size_t second = first; second <= bytes.size(); ++second) {
                    TextDecoder decoder(form);
                    decoder.append(beginning + bytes.substr(0, first));
                    decoder.append(bytes.substr(first, second - first));
                    decoder.append(bytes.substr(second));
                    ASSERT_EQ(decoder.finish(), expected) << whole << " " << first << " " << second;
                }
            }
            TextDecoder byteByByte(form);
            for (const char byte : beginning + bytes)
                byteByByte.append({&byte, 1});
            ASSERT_EQ(byteByByte.finish(), expected) << whole;
        }
    }
}

TEST(TextForms, AHugeTextIsThereOnce)
{
    // Every letter takes two bytes as UTF-8, so that the result is twice as large.
    constexpr std::size_t megabyte = std::size_t{1} << 20;
    const std::string piece(megabyte, '\xFC');
    for (const TextForm form : {TextForm::latin1, TextForm::compoundText}) {
        const PeakMemory memory;
        TextDecoder decoder(form);
        decoder.expect(40 * megabyte);
        for (int number = 0; number < 40; ++number)
            decoder.append(piece);
        EXPECT_EQ(decoder.finish().size(), 80 * megabyte);
        EXPECT_LE(memory.growth(), 82 * megabyte);
    }
}

TEST(TextForms, EachBrokenSequenceBecomesOneReplacementCharacter)
{
    EXPECT_EQ(textFromWire("a\xFF"
                           "b",
                           TextForm::utf8),
              "a\uFFFDb");
    EXPECT_EQ(textFromWire("cut \xE4\xB8", TextForm::utf8), "cut \uFFFD");
    EXPECT_EQ(textFromWire("\xC0\xAF", TextForm::utf8), "\uFFFD\uFFFD");           // Overlong.
    EXPECT_EQ(textFromWire("\xED\xA0\x80", TextForm::utf8), "\uFFFD\uFFFD\uFFFD"); // A surrogate.
    EXPECT_EQ(textFromWire("\xF4\x90\x80\x80", TextForm::utf8),
              "\uFFFD\uFFFD\uFFFD\uFFFD"); // Beyond U+10FFFF.
    EXPECT_TRUE(UTF8::isValid(textFromWire("\xF0\x9F\x99 mixed \x80 up \xC3", TextForm::utf8)));
}

TEST(TextForms, RepairAlwaysGivesValidUTF8)
{
    // Every pair of bytes between two characters.
    for (int first = 1; first < 256; ++first) {
        for (int second = 1; second < 256; ++second) {
            const std::string bytes = {'x', static_cast<char>(first), static_cast<char>(second), 'y'};
            const std::string text = textFromWire(bytes, TextForm::utf8);
            if (first == 0xFF && second == 0xFE)
                continue;
            ASSERT_TRUE(UTF8::isValid(text)) << first << " " << second;
            ASSERT_EQ(text.front(), 'x');
            ASSERT_EQ(text.back(), 'y');
        }
    }
}

TEST(TextForms, Latin1CoversEveryByte)
{
    EXPECT_EQ(textFromWire("Gr\xFC\xDF"
                           "e \xA9",
                           TextForm::latin1),
              "Grüße ©");
    std::string bytes;
    for (int byte = 1; byte < 256; ++byte)
        bytes.push_back(static_cast<char>(byte));
    const std::string text = textFromWire(bytes, TextForm::latin1);
    EXPECT_TRUE(UTF8::isValid(text));
    EXPECT_EQ(latin1FromUTF8(text), bytes);
}

TEST(TextForms, WhatLatin1LacksBecomesAQuestionMark)
{
    EXPECT_EQ(latin1FromUTF8("ä 世 € 🙂."), "\xE4 ? ? ?.");
}

TEST(TextForms, ZeroBytesAtTheEndAreCutOff)
{
    EXPECT_EQ(textFromWire("text\0\0"s, TextForm::utf8), "text");
    EXPECT_EQ(textFromWire("ab\0cd\0"s, TextForm::utf8), "ab\0cd"s) << "those inside were lost";
    EXPECT_EQ(textFromWire("\0"s, TextForm::utf8), "");
    EXPECT_EQ(textFromWire(" \n ", TextForm::utf8), " \n ");
}

TEST(TextForms, AByteOrderMarkTellsUTF16)
{
    EXPECT_EQ(textFromWire("\xFF\xFEG\0r\0\xFC\0\x3D\xD8\x42\xDE"s, TextForm::utf8), "Grü🙂");
    EXPECT_EQ(textFromWire("\xFE\xFF\0G\0r\0\xFC"s, TextForm::utf8), "Grü");
    EXPECT_EQ(textFromWire("\xFF\xFE\x3D\xD8G\0"s, TextForm::utf8), "\uFFFDG"); // Half a surrogate pair.
    EXPECT_EQ(textFromWire("\xFF\xFEodd"s, TextForm::utf8), "\u646F\uFFFD"); // The last byte has no partner.
}

TEST(TextForms, UTF16WithoutAMarkIsSeenByItsZeroBytes)
{
    for (const TextForm form : {TextForm::utf8, TextForm::latin1, TextForm::compoundText}) {
        EXPECT_EQ(textFromWire("G\0r\0\xFC\0n\0"s, form), "Grün");
        EXPECT_EQ(textFromWire("\0G\0r\0\xFC\0n"s, form), "Grün");
        EXPECT_EQ(textFromWire("h\0i\0\0\0"s, form), "hi") << "with a zero behind it";
        EXPECT_EQ(textFromWire("\0h\0i\0\0"s, form), "hi");
        EXPECT_EQ(textFromWire("I\0t\0\x19\x20s\0 \0o\0k\0"s, form), "It’s ok");
    }
    std::string large;
    for (int unit = 0; unit < 10000; ++unit)
        large += "x\0"s;
    EXPECT_EQ(textFromWire(large, TextForm::utf8), std::string(10000, 'x'));
}

TEST(TextForms, ZeroBytesAloneMakeNoUTF16)
{
    for (const std::string& text : {"abc\0def\0ghi"s, "one\0two\0six\0"s, "a\0\0b"s, "a\0bc"s, "\0x"s,
                                    "x\0y"s, "ab\0\0cd"s, "word\0another word\0and some more"s}) {
        const std::string expected = text.substr(0, text.find_last_not_of('\0') + 1);
        EXPECT_EQ(textFromWire(text, TextForm::utf8), expected);
        EXPECT_EQ(textFromWire(text, TextForm::latin1), expected);
    }
    EXPECT_EQ(textFromWire("世界世界", TextForm::utf8), "世界世界");
}

TEST(TextForms, CompoundTextIsReadAsFarAsItIsUsed)
{
    EXPECT_EQ(textFromWire("Gr\xFC\xDF"
                           "e",
                           TextForm::compoundText),
              "Grüße");
    EXPECT_EQ(textFromWire("\x1B-AGr\xFC \x1B%G世界\x1B%@!", TextForm::compoundText), "Grü 世界!");
    EXPECT_EQ(textFromWire("\x1B-B\xE1", TextForm::compoundText), "\uFFFD"); // Latin-2 is not read.
    EXPECT_EQ(textFromWire("\x1B%G\xE4", TextForm::compoundText), "\uFFFD");
    EXPECT_EQ(textFromWire("a\x1B", TextForm::compoundText), "a");
}

} // namespace
} // namespace tessel
