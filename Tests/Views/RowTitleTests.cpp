#include <random>

#include <gtest/gtest.h>

#include <QtCore/QTextBoundaryFinder>
#include <QtGui/QRawFont>

#include "Panel/PanelFonts.h"
#include "Panel/RowText.h"
#include "Panel/RowTitle.h"

namespace tessel::test {

namespace {

constexpr double width = 414;

class RowTitles : public testing::Test {
protected:
    RowTitle titleOf(const QString& text) const { return RowTitle(text, fonts, width); }

    PanelFonts fonts;
};

/// Two lines' worth of repetitions and more.
QString repeated(const QString& text)
{
    return text.repeated(200);
}

void expectElidedAtAGrapheme(const QString& text, const RowTitle& title)
{
    ASSERT_EQ(title.lineCount(), 2);
    QString shown = title.line(0) + title.line(1);
    ASSERT_TRUE(shown.endsWith(QChar(0x2026))) << shown.toStdString();
    shown.chop(1);
    if (shown.endsWith(QChar(0x200D)) && !text.startsWith(shown))
        shown.chop(1); // It keeps the shape that a letter has within a word.
    ASSERT_TRUE(text.startsWith(shown)) << shown.toStdString();
    QTextBoundaryFinder finder(QTextBoundaryFinder::Grapheme, text);
    finder.setPosition(shown.size());
    EXPECT_TRUE(finder.isAtBoundary()) << shown.toStdString();
}

std::string randomText(std::mt19937& random)
{
    const std::string alphabet = "iljt ,.WMQAVATo-abcdefghij \t0123456789/:{}()";
    std::string text(random() % 180, ' ');
    for (char& character : text)
        character = alphabet[random() % alphabet.size()];
    return text;
}

} // namespace

TEST_F(RowTitles, AreThirteenAndAHalfPointsHigh)
{
    const auto drawnSize = [](const TextStyle& style) {
        return QRawFont::fromFont(style.font).pixelSize() * style.scale;
    };
    EXPECT_EQ(drawnSize(fonts.rowTitle), 13.5);
    EXPECT_EQ(drawnSize(fonts.title), 17);
    EXPECT_EQ(drawnSize(fonts.rowMetadata), 10);
}

TEST_F(RowTitles, ShowShortTextsOnOneLine)
{
    const RowTitle title = titleOf(QStringLiteral("a b c"));
    EXPECT_EQ(title.lineCount(), 1);
    EXPECT_EQ(title.line(0), QStringLiteral("a b c"));
}

TEST_F(RowTitles, TakeALineEvenWithoutText)
{
    EXPECT_EQ(titleOf({}).lineCount(), 1);
}

TEST_F(RowTitles, ShowLongTextsOnTwoElidedLines)
{
    const QString text = repeated(QStringLiteral("word "));
    expectElidedAtAGrapheme(text, titleOf(text));
}

TEST_F(RowTitles, BreakLongWords)
{
    const QString text = repeated(QStringLiteral("unbreakable"));
    expectElidedAtAGrapheme(text, titleOf(text));
}

TEST_F(RowTitles, KeepGraphemesTogether)
{
    for (const char* grapheme : {"👩‍💻", "👨‍👩‍👧‍👦", "👍🏽", "e\xCC\x81", "🇩🇪",
                                 "ก็", "각", "नि", "क्षि"}) {
        const QString text = repeated(QString::fromUtf8(grapheme));
        expectElidedAtAGrapheme(text, titleOf(text));
    }
}

TEST_F(RowTitles, FillTheSecondLineBeforeTheyElideIt)
{
    const QString text = repeated(QStringLiteral("M"));
    const RowTitle title = titleOf(text);
    EXPECT_GE(title.line(1).size(), title.line(0).size() - 2);
}

TEST_F(RowTitles, ElideTextsFromRightToLeft)
{
    const QString text = repeated(QString::fromUtf8("مرحبا "));
    expectElidedAtAGrapheme(text, titleOf(text));
}

TEST_F(RowTitles, MakeControlCharactersHarmless)
{
    EXPECT_EQ(drawableTitle(QStringLiteral("a\tb")), QStringLiteral("a b"));
    EXPECT_EQ(drawableTitle(QStringLiteral("a\rb")), QStringLiteral("a b"));
    EXPECT_EQ(drawableTitle(QStringLiteral("a\r b")), QStringLiteral("a b"));
    EXPECT_EQ(drawableTitle(QStringLiteral("a\u0007\u000B\u2028\u2029\uFFFCb")), QStringLiteral("a     b"));
    EXPECT_EQ(drawableTitle(QString::fromUtf8("è 👩‍💻")), QString::fromUtf8("è 👩‍💻"));
}

TEST_F(RowTitles, StayOnOneLineWithSeparatorsInThem)
{
    EXPECT_EQ(titleOf(QStringLiteral("a\rb\u2028c\u2029d\u000Be\u0085f")).lineCount(), 1);
}

TEST_F(RowTitles, AreCountedQuicklyAndRightly)
{
    std::mt19937 random(20240607);
    int decided = 0;
    for (int round = 0; round < 2000; ++round) {
        const std::string text = randomText(random);
        const auto count = quickLineCount(text, fonts, width);
        if (!count)
            continue;
        ++decided;
        ASSERT_EQ(*count, titleOf(QString::fromStdString(text)).lineCount()) << text;
    }
    EXPECT_GT(decided, 1000);
}

TEST_F(RowTitles, AreNotCountedQuicklyBeyondASCII)
{
    EXPECT_FALSE(quickLineCount("é", fonts, width));
    EXPECT_EQ(quickLineCount(std::string(1000, 'm') + "é", fonts, width), 2);
}

} // namespace tessel::test
