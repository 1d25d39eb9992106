#include <random>

#include <gtest/gtest.h>

#include <QtCore/QTextBoundaryFinder>
#include <QtGui/QImage>
#include <QtGui/QPainter>
#include <QtGui/QRawFont>

#include "Panel/PanelFonts.h"
#include "Panel/RowText.h"
#include "Panel/RowTitle.h"
#include "Support/InkExtent.h"

namespace tessel::test {

namespace {

constexpr double width = 414;
constexpr QChar ellipsis(0x2026);

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

/// `shown` is the beginning of `text` up to the end of a character as its reader sees it, and an ellipsis.
void expectBeginning(const QString& text, QString shown)
{
    ASSERT_TRUE(shown.endsWith(ellipsis)) << shown.toStdString();
    shown.chop(1);
    if (shown.endsWith(QChar(0x200D)) && !text.startsWith(shown))
        shown.chop(1); // It keeps the shape that a letter has within a word.
    ASSERT_TRUE(text.startsWith(shown)) << shown.toStdString();
    QTextBoundaryFinder finder(QTextBoundaryFinder::Grapheme, text);
    finder.setPosition(shown.size());
    EXPECT_TRUE(finder.isAtBoundary()) << shown.toStdString();
}

void expectElidedAtAGrapheme(const QString& text, const RowTitle& title)
{
    ASSERT_EQ(title.lineCount(), 2);
    expectBeginning(text, title.line(0) + title.line(1));
}

/// A title in white on black, as large as it is on a screen.
struct DrawnTitle {
    static constexpr int margin = 10;
    enum class Side { left, right };

    DrawnTitle(const RowTitle& title, const PanelFonts& fonts)
        : image(static_cast<int>(width) + 2 * margin, 60, QImage::Format_RGB32)
        , lineHeight(fonts.rowTitle.lineHeight)
    {
        image.fill(Qt::black);
        QPainter painter(&image);
        painter.setPen(Qt::white);
        title.draw(painter, QPointF(margin, margin + fonts.rowTitle.ascent), lineHeight);
    }

    QRect line(int number) const { return {0, margin + number * lineHeight, image.width(), lineHeight}; }

    /// Is there nothing but an ellipsis at that end of the second line?
    bool endsInDots(Side side) const
    {
        constexpr int dotsWidth = 9;
        const QRect second = line(1);
        const Extent ink = inkExtent(image, second);
        const int left = side == Side::left ? ink.left : ink.right - dotsWidth + 1;
        const QRect upperPart(left, second.top(), dotsWidth, lineHeight / 2);
        return inkExtent(image, upperPart).isEmpty();
    }

    QImage image;
    int lineHeight;
};

/// Characters that join, reorder, break or hide what is beside them.
QString randomMixture(std::mt19937& random)
{
    using namespace std::string_literals;
    const std::u32string alphabet =
        U"ab .,-(\u00AD\t\r\n\u0000\u0301\u0323\u200B\u200C\u200D\u200E\u200F\u202B\u202E\u2067\u2069\uFE0F"
        U"\uFEFF\u2028\uFFFC\uFFFD\u05D0\u05D1\u0627\u0628\u0644\u0640\u0915\u094D\u0937\u093F\u0E01\u0E33"
        U"\u1100\u1161\u11A8\uAC00\u6F22\U0001F468\U0001F3FD\U0001F1E9\U0001F1EA\U000E0067"s;
    std::u32string text(random() % 700, U' ');
    for (char32_t& character : text)
        character = alphabet[random() % alphabet.size()];
    return QString::fromUcs4(text.data(), static_cast<qsizetype>(text.size()));
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

TEST_F(RowTitles, AreCutBetweenGraphemesHoweverManyMarksALetterHas)
{
    const QString letter = QChar(u'a') + QString(46, QChar(0x0301));
    const RowTitle title = titleOf(letter.repeated(100));
    QString shown = title.line(0);
    ASSERT_TRUE(shown.endsWith(ellipsis)) << shown.size();
    shown.chop(1);
    EXPECT_GT(shown.size(), 0);
    EXPECT_EQ(shown.size() % letter.size(), 0) << shown.size();
}

TEST_F(RowTitles, AreCutBetweenCharactersInAGraphemeWithoutEnd)
{
    const QString mark = QString::fromUcs4(U"\U000E0100");
    QString shown = titleOf(QChar(u'a') + mark.repeated(1000)).line(0);
    ASSERT_TRUE(shown.endsWith(ellipsis));
    shown.chop(1);
    EXPECT_GT(shown.size(), 1);
    EXPECT_TRUE(shown.back().isLowSurrogate());
}

TEST_F(RowTitles, MeasureFewMorePicturesThanCanShow)
{
    constexpr double widerThanAnyText = 10000;
    const QString picture = QString::fromUtf8("🎉");
    const RowTitle title(repeated(picture), fonts, widerThanAnyText);
    EXPECT_EQ(title.line(0), picture.repeated(70) + ellipsis);
    EXPECT_EQ(RowTitle(picture.repeated(70), fonts, widerThanAnyText).line(0), picture.repeated(70));
}

TEST_F(RowTitles, KeepTheirLineDistanceWithEmoji)
{
    const RowTitle title = titleOf(repeated(QString::fromUtf8("🎉")));
    const DrawnTitle drawn(title, fonts);
    const QRect firstLine(0, DrawnTitle::margin, 100, fonts.rowTitle.lineHeight);
    const QImage first = drawn.image.copy(firstLine);
    const QImage second = drawn.image.copy(firstLine.translated(0, fonts.rowTitle.lineHeight));
    EXPECT_GT(inkExtent(drawn.image, firstLine).right, 50); // There is something to see.
    EXPECT_EQ(first, second);
}

TEST_F(RowTitles, BeginWhereTheInterfacesLinesBegin)
{
    for (const char* text : {"Hello", "مرحبا"}) {
        for (const auto direction : {Qt::LeftToRight, Qt::RightToLeft}) {
            const DrawnTitle drawn(RowTitle(QString::fromUtf8(text), fonts, width, direction), fonts);
            const Extent ink = inkExtent(drawn.image, drawn.line(0));
            const double gap = direction == Qt::RightToLeft ? DrawnTitle::margin + width - ink.right
                                                            : ink.left - DrawnTitle::margin;
            EXPECT_NEAR(gap, 1, 2) << text
                                   << (direction == Qt::RightToLeft ? " to the left" : " to the right");
        }
    }
}

TEST_F(RowTitles, HaveTheirEllipsisWhereTheTextWouldGoOn)
{
    for (const auto direction : {Qt::LeftToRight, Qt::RightToLeft}) {
        const DrawnTitle latin(RowTitle(repeated(QStringLiteral("MHM")), fonts, width, direction), fonts);
        EXPECT_TRUE(latin.endsInDots(DrawnTitle::Side::right));
        EXPECT_FALSE(latin.endsInDots(DrawnTitle::Side::left));
        const DrawnTitle hebrew(RowTitle(repeated(QString::fromUtf8("שםש")), fonts, width, direction), fonts);
        EXPECT_TRUE(hebrew.endsInDots(DrawnTitle::Side::left));
        EXPECT_FALSE(hebrew.endsInDots(DrawnTitle::Side::right));
    }
}

TEST_F(RowTitles, LeaveOutControlsThatTurnTheDirectionAround)
{
    for (const int control : {0x202A, 0x202B, 0x202C, 0x202D, 0x202E, 0x2066, 0x2067, 0x2068, 0x2069})
        EXPECT_EQ(drawableTitle(QStringLiteral("a ") + QChar(control) + u'b'), QStringLiteral("a b"));
    // Marks have no reach, and joiners belong to words.
    const QString harmless = QStringLiteral("a\u200E\u200F\u200B\u200C\u200D\uFEFFb");
    EXPECT_EQ(drawableTitle(harmless), harmless);
}

TEST_F(RowTitles, SaySoWhereNothingOfTheirBeginningShows)
{
    EXPECT_EQ(titleOf(QString(700, QChar(0x202E)) + QStringLiteral("text")).line(0), ellipsis);
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
    EXPECT_EQ(drawableTitle(QString::fromUtf8("a\0b", 3)), QStringLiteral("a b"));
    EXPECT_EQ(drawableTitle(QStringLiteral("a\r\rb")), QStringLiteral("a  b"));
    EXPECT_EQ(drawableTitle(QString::fromUtf8("è 👩‍💻")), QString::fromUtf8("è 👩‍💻"));
}

TEST_F(RowTitles, StayOnOneLineWithSeparatorsInThem)
{
    EXPECT_EQ(titleOf(QStringLiteral("a\rb\u2028c\u2029d\u000Be\u0085f")).lineCount(), 1);
}

TEST_F(RowTitles, ShowTheBeginningOfAnyText)
{
    std::mt19937 random(20261121);
    for (int round = 0; round < 300; ++round) {
        const QString text = randomMixture(random);
        const QString drawable = drawableTitle(text);
        const RowTitle title = titleOf(text);
        ASSERT_LE(title.lineCount(), 2);
        if (drawable.isEmpty())
            continue;
        const QString shown = title.line(0) + (title.lineCount() == 2 ? title.line(1) : QString());
        if (shown == drawable)
            continue;
        expectBeginning(drawable, shown);
    }
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
