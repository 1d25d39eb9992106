#include "Updates/PlainText.h"

#include <gtest/gtest.h>

namespace tessel::test {
namespace {

std::string reduced(const char* html)
{
    return tidiedText(textOfHTML(QString::fromUtf8(html)), 1000).toStdString();
}

TEST(TextOfHTML, KeepsPlainText)
{
    EXPECT_EQ(reduced("Just words"), "Just words");
    EXPECT_EQ(reduced("1 < 2, 3 > 2 & so on; A&B <3"), "1 < 2, 3 > 2 & so on; A&B <3");
    EXPECT_EQ(reduced(""), "");
}

TEST(TextOfHTML, BreaksLinesWhereHTMLDoes)
{
    EXPECT_EQ(reduced("<p>One</p><p>Two</p>"), "One\n\nTwo");
    EXPECT_EQ(reduced("<h2>New</h2>\n<ul>\n <li>One</li>\n <li>Two</li>\n</ul>\nEnd"),
              "New\n\n• One\n• Two\n\nEnd");
    EXPECT_EQ(reduced("one<br>two<BR/>three"), "one\ntwo\nthree");
    EXPECT_EQ(reduced("<div>one</div><div>two</div>"), "one\ntwo");
}

TEST(TextOfHTML, TakesWhiteSpaceAsOneBlank)
{
    EXPECT_EQ(reduced("one\n   two\t\tthree <b> four </b> five"), "one two three four five");
}

TEST(TextOfHTML, HidesWhatIsNotSeen)
{
    EXPECT_EQ(
        reduced("a<script>if (1<2) alert('x')</script>b<style>p { color: red }</style>c<!-- <p>d</p> -->e"),
        "abce");
    EXPECT_EQ(reduced("<!DOCTYPE html><head><title>T</title></head><body>text</body>"), "text");
    EXPECT_EQ(reduced("<a href=\"https://x.example/?a>b\" title='>'>link</a>"), "link");
    EXPECT_EQ(reduced("<img src=\"https://x.example/\" onerror=\"alert(1)\">text"), "text");
}

TEST(TextOfHTML, KnowsCharacterReferences)
{
    EXPECT_EQ(reduced("&lt;b&gt; &amp; &quot;&#65;&#x42;&#x1F600;&quot; &ndash; &hellip;"),
              "<b> & \"AB😀\" – …");
    EXPECT_EQ(reduced("&unknown; &#0; &#xD800; &#x110000; &# &; &"),
              "&unknown; &#0; &#xD800; &#x110000; &# &; &");
}

TEST(TextOfHTML, EndsWhereSomethingDoesNot)
{
    EXPECT_EQ(reduced("text<a href=\"x"), "text");
    EXPECT_EQ(reduced("text<!-- more"), "text");
    EXPECT_EQ(reduced("text<script>more"), "text");
    EXPECT_EQ(reduced("text<"), "text<");
}

TEST(TidiedText, HasNoControlCharactersAndNoGaps)
{
    EXPECT_EQ(tidiedText(QString::fromUtf8("\n\n one\x01\x1B[1m\r\n\n\n\ntwo\tthree \n "), 100).toStdString(),
              "one[1m\n\ntwo\tthree");
}

TEST(TidiedText, IsBoundedAtTheEndOfACharacter)
{
    EXPECT_EQ(tidiedText(QStringLiteral("12345"), 5), QStringLiteral("12345"));
    EXPECT_EQ(tidiedText(QStringLiteral("123456"), 5), QStringLiteral("1234…"));
    EXPECT_EQ(tidiedText(QStringLiteral("123😀😀"), 5), QStringLiteral("123…"));
}

} // namespace
} // namespace tessel::test
