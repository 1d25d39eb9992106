#include "Panel/RowTitle.h"

#include <QtCore/QTextBoundaryFinder>
#include <QtGui/QFontMetricsF>
#include <QtGui/QPainter>
#include <QtGui/QTextLayout>
#include <QtWidgets/QStyle>

#include "Panel/PanelFonts.h"
#include "Panel/PanelStyle.h"

namespace tessel {

namespace {

/// More than two lines can show of any ordinary text, in UTF-16 units; keeps the layout of a long text cheap.
constexpr qsizetype longestLaidOut = 600;

constexpr QChar ellipsis(0x2026);

/// More pictures than two lines can show. A font of colour pictures decodes each one whenever it is measured.
constexpr int mostPictures = 70;

/// Does the text begin with an emoji or another pictograph, flags among them?
bool beginsWithPicture(QStringView text)
{
    constexpr char16_t firstOfPictures = 0xD83C; // High surrogates: from U+1F000
    constexpr char16_t lastOfPictures = 0xD83E;  // to U+1FBFF.
    return text.front() >= firstOfPictures && text.front() <= lastOfPictures;
}

/// The length of the part that may show. It ends between two characters as their reader sees them; only one
/// that is longer than all of it is cut.
qsizetype boundedLength(const QString& title)
{
    constexpr qsizetype nextCharacter = 2; // It decides whether the one before it is complete.
    const QStringView beginning =
        QStringView(title).first(std::min(title.size(), longestLaidOut + nextCharacter));
    QTextBoundaryFinder finder(QTextBoundaryFinder::Grapheme, beginning.data(), beginning.size());
    qsizetype length = 0;
    int pictures = 0;
    for (qsizetype end = finder.toNextBoundary(); end > 0 && end <= longestLaidOut && pictures < mostPictures;
         end = finder.toNextBoundary()) {
        pictures += beginsWithPicture(beginning.sliced(length)) ? 1 : 0;
        length = end;
    }
    if (length > 0 || beginning.size() <= longestLaidOut)
        return length;
    return beginning[longestLaidOut - 1].isHighSurrogate() ? longestLaidOut - 1 : longestLaidOut;
}

/// That part, with an ellipsis where more follows.
QString boundedTitle(const QString& title)
{
    const qsizetype length = boundedLength(title);
    return length == title.size() ? title : title.first(length) + ellipsis;
}

/// Text from either direction begins where the interface's lines begin.
QTextOption textOption(Qt::LayoutDirection textDirection, Qt::LayoutDirection interfaceDirection)
{
    QTextOption option(QStyle::visualAlignment(interfaceDirection, Qt::AlignLeft) | Qt::AlignAbsolute);
    option.setTextDirection(textDirection);
    option.setWrapMode(QTextOption::WrapAtWordBoundaryOrAnywhere);
    return option;
}

/// As much of a text as fits with an ellipsis after it; all of it where that fits.
QString elidedText(const QString& text, const QFont& font, double width)
{
    QString elided = QFontMetricsF(font).elidedText(text, Qt::ElideRight, width);
    // The toolkit repeats the marks of direction that it left out behind the ellipsis, which they would move.
    if (elided != text)
        elided.truncate(elided.lastIndexOf(ellipsis) + 1);
    return elided;
}

/// Lays out up to `lines` lines. Returns the number of characters that they show.
qsizetype layOut(QTextLayout& layout, int lines, double width)
{
    qsizetype shown = 0;
    layout.beginLayout();
    for (int number = 0; number < lines; ++number) {
        QTextLine line = layout.createLine();
        if (!line.isValid())
            break;
        line.setLineWidth(width);
        shown = line.textStart() + line.textLength();
    }
    layout.endLayout();
    return shown;
}

std::unique_ptr<QTextLayout> makeLayout(const QString& text, const QFont& font, const QTextOption& option)
{
    auto layout = std::make_unique<QTextLayout>(text, font);
    layout->setTextOption(option);
    layout->setCacheEnabled(true);
    return layout;
}

bool isVisible(QChar character)
{
    switch (character.category()) {
    case QChar::Other_Control:
    case QChar::Separator_Line:
    case QChar::Separator_Paragraph:
        return false;
    default:
        return character != QChar::ObjectReplacementCharacter;
    }
}

/// Does it embed, override or isolate what follows it, or end that?
bool isDirectionControl(QChar character)
{
    constexpr char16_t firstEmbedding = 0x202A;
    constexpr char16_t lastOverride = 0x202E;
    constexpr char16_t firstIsolate = 0x2066;
    constexpr char16_t lastIsolate = 0x2069;
    return (character >= firstEmbedding && character <= lastOverride) ||
           (character >= firstIsolate && character <= lastIsolate);
}

} // namespace

RowTitle::RowTitle(const QString& title, const PanelFonts& fonts, double width,
                   Qt::LayoutDirection interfaceDirection)
    : width_(width)
    , scale_(fonts.rowTitle.scale)
{
    const QString text = drawableTitle(boundedTitle(title));
    const QFont& font = fonts.rowTitle.font;
    const double layoutWidth = width / scale_;
    QTextOption option =
        textOption(text.isRightToLeft() ? Qt::RightToLeft : Qt::LeftToRight, interfaceDirection);
    text_ = makeLayout(text, font, option);
    const qsizetype shown = layOut(*text_, panelStyle::row::titleLines, layoutWidth);
    if (shown >= text.size())
        return;

    // The last line takes as much of the rest as fits, not only whole words.
    const qsizetype lastLineStart = text_->lineAt(text_->lineCount() - 1).textStart();
    const QString rest = text.sliced(lastLineStart);
    const QString elided = elidedText(rest, font, layoutWidth);
    option.setWrapMode(QTextOption::NoWrap); // A rounding error must not wrap it.
    elidedLine_ = makeLayout(elided, font, option);
    layOut(*elidedLine_, 1, layoutWidth);
}

RowTitle::~RowTitle() = default;
RowTitle::RowTitle(RowTitle&&) noexcept = default;
RowTitle& RowTitle::operator=(RowTitle&&) noexcept = default;

int RowTitle::lineCount() const
{
    return std::max(1, text_->lineCount());
}

std::pair<const QTextLayout&, int> RowTitle::shownLine(int number) const
{
    const bool isElided = elidedLine_ && number == text_->lineCount() - 1;
    return {isElided ? *elidedLine_ : *text_, isElided ? 0 : number};
}

QString RowTitle::line(int number) const
{
    const auto [layout, lineNumber] = shownLine(number);
    const QTextLine line = layout.lineAt(lineNumber);
    return layout.text().sliced(line.textStart(), line.textLength());
}

void RowTitle::draw(QPainter& painter, const QPointF& baseline, double lineHeight) const
{
    painter.save();
    painter.translate(baseline);
    painter.scale(scale_, scale_);
    for (int number = 0; number < text_->lineCount(); ++number) {
        const auto [layout, lineNumber] = shownLine(number);
        const QTextLine line = layout.lineAt(lineNumber);
        // Lines stand at one distance, whatever other fonts they borrow characters from.
        const QPointF lineBaseline(0, number * lineHeight / scale_);
        line.draw(&painter, lineBaseline - QPointF(line.x(), line.y() + line.ascent()));
    }
    painter.restore();
}

QString drawableTitle(const QString& title)
{
    QString drawable;
    drawable.reserve(title.size());
    for (qsizetype position = 0; position < title.size(); ++position) {
        const QChar character = title[position];
        const bool endsLine = character == QChar::CarriageReturn && position + 1 < title.size() &&
                              title[position + 1] == QChar::Space;
        // A carriage return before what was a line feed is nothing to see.
        if (!endsLine && !isDirectionControl(character))
            drawable += isVisible(character) ? character : QChar(QChar::Space);
    }
    return drawable;
}

std::optional<int> quickLineCount(std::string_view title, const PanelFonts& fonts, double width)
{
    // Kerning moves letters together by a few hundredths, and a line breaks before its end by a word at most:
    // between these bounds only a layout can tell.
    constexpr double surelyFits = 0.92;
    constexpr double surelyDoesNot = 1.2;
    double advance = 0;
    for (const char character : title) {
        const auto byte = static_cast<unsigned char>(character);
        if (byte >= fonts.rowTitleAdvances.size())
            return std::nullopt;
        advance += fonts.rowTitleAdvances[byte];
        if (advance > width * surelyDoesNot)
            return 2;
    }
    return advance <= width * surelyFits ? std::optional(1) : std::nullopt;
}

} // namespace tessel
