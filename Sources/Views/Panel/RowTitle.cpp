#include "Panel/RowTitle.h"

#include <QtGui/QFontMetricsF>
#include <QtGui/QPainter>
#include <QtGui/QTextLayout>

#include "Panel/PanelFonts.h"
#include "Panel/PanelStyle.h"

namespace tessel {

namespace {

/// More than two lines can show of any ordinary text, in UTF-16 units; keeps the layout of a long text cheap.
constexpr qsizetype longestLaidOut = 600;

constexpr QChar ellipsis(0x2026);

/// The part that may show, with an ellipsis where more follows.
QString boundedTitle(const QString& title)
{
    if (title.size() <= longestLaidOut)
        return title;
    const bool splitsPair = title[longestLaidOut - 1].isHighSurrogate();
    return title.first(longestLaidOut - (splitsPair ? 1 : 0)) + ellipsis;
}

QTextOption textOption(Qt::LayoutDirection direction)
{
    QTextOption option(Qt::AlignLeft | Qt::AlignAbsolute);
    option.setTextDirection(direction);
    option.setWrapMode(QTextOption::WrapAtWordBoundaryOrAnywhere);
    return option;
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

std::unique_ptr<QTextLayout> makeLayout(const QString& text, const QFont& font, Qt::LayoutDirection direction)
{
    auto layout = std::make_unique<QTextLayout>(text, font);
    layout->setTextOption(textOption(direction));
    layout->setCacheEnabled(true);
    return layout;
}

bool isHarmless(QChar character)
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

} // namespace

RowTitle::RowTitle(const QString& title, const PanelFonts& fonts, double widthInPoints)
    : scale_(fonts.rowTitle.scale)
{
    const QString text = boundedTitle(drawableTitle(title));
    const QFont& font = fonts.rowTitle.font;
    const double width = widthInPoints / scale_;
    const Qt::LayoutDirection direction = text.isRightToLeft() ? Qt::RightToLeft : Qt::LeftToRight;
    text_ = makeLayout(text, font, direction);
    const qsizetype shown = layOut(*text_, panelStyle::row::titleLines, width);
    if (shown >= text.size())
        return;

    // The last line takes as much of the rest as fits, not only whole words.
    const qsizetype lastLineStart = text_->lineAt(text_->lineCount() - 1).textStart();
    const QString rest = text.sliced(lastLineStart);
    elidedLine_ = makeLayout(QFontMetricsF(font).elidedText(rest, Qt::ElideRight, width), font, direction);
    layOut(*elidedLine_, 1, width + 1); // A rounding error must not wrap it.
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

QString drawableTitle(QString title)
{
    for (qsizetype position = 0; position < title.size(); ++position) {
        if (isHarmless(title[position]))
            continue;
        const bool endsLine = title[position] == QChar::CarriageReturn && position + 1 < title.size() &&
                              title[position + 1] == QChar::Space;
        // A carriage return before what was a line feed is nothing to see.
        title[position] = endsLine ? QChar(0x200B) : QChar(QChar::Space);
    }
    return title;
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
