#include <gtest/gtest.h>

#include "X11/Selections/TextForms.h"

namespace tessel {
namespace {

using namespace std::string_literals;

TEST(TextForms, ValidUTF8IsKeptInItsOwnBuffer)
{
    std::string text = "Grüße, 世界 🙂, and a tail that is longer than a short string";
    const char* buffer = text.data();
    const std::string result = textFromWire(std::move(text), TextForm::utf8);
    EXPECT_EQ(result, "Grüße, 世界 🙂, and a tail that is longer than a short string");
    EXPECT_EQ(result.data(), buffer);
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
    EXPECT_TRUE(isValidUTF8(textFromWire("\xF0\x9F\x99 mixed \x80 up \xC3", TextForm::utf8)));
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
            ASSERT_TRUE(isValidUTF8(text)) << first << " " << second;
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
    EXPECT_TRUE(isValidUTF8(text));
    EXPECT_EQ(latin1FromUTF8(text), bytes);
}

TEST(TextForms, WhatLatin1LacksBecomesAQuestionMark)
{
    EXPECT_EQ(latin1FromUTF8("ä 世 € 🙂."), "\xE4 ? ? ?.");
}

TEST(TextForms, ZeroBytesAtTheEndAreCutOff)
{
    EXPECT_EQ(textFromWire("text\0\0"s, TextForm::utf8), "text");
    EXPECT_EQ(textFromWire("a\0b\0"s, TextForm::utf8), "a\0b"s);
    EXPECT_EQ(textFromWire("\0"s, TextForm::utf8), "");
    EXPECT_EQ(textFromWire(" \n ", TextForm::utf8), " \n ");
}

TEST(TextForms, AByteOrderMarkTellsUTF16)
{
    EXPECT_EQ(textFromWire("\xFF\xFEG\0r\0\xFC\0\x3D\xD8\x42\xDE"s, TextForm::utf8), "Grü🙂");
    EXPECT_EQ(textFromWire("\xFE\xFF\0G\0r\0\xFC"s, TextForm::utf8), "Grü");
    EXPECT_EQ(textFromWire("\xFF\xFE\x3D\xD8G\0"s, TextForm::utf8), "\uFFFDG"); // Half a surrogate pair.
    EXPECT_EQ(textFromWire("\xFF\xFEodd"s, TextForm::utf8), "\u646F"); // The last byte has no partner.
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
