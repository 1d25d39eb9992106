#include "Updates/PlainText.h"

#include <QtCore/QStringList>
#include <QtCore/QStringView>

#include <algorithm>
#include <array>
#include <optional>

namespace tessel {

namespace {

struct Tag {
    QString name; ///< In lower case.
    bool isClosing = false;
    qsizetype end = 0; ///< Behind it.
};

struct NamedCharacter {
    const char* name;
    char32_t character;
};
constexpr std::array<NamedCharacter, 18> namedCharacters = {{
    {"amp", U'&'},
    {"lt", U'<'},
    {"gt", U'>'},
    {"quot", U'"'},
    {"apos", U'\''},
    {"nbsp", U' '},
    {"ndash", U'–'},
    {"mdash", U'—'},
    {"hellip", U'…'},
    {"bull", U'•'},
    {"copy", U'©'},
    {"reg", U'®'},
    {"trade", U'™'},
    {"lsquo", U'‘'},
    {"rsquo", U'’'},
    {"ldquo", U'“'},
    {"rdquo", U'”'},
    {"times", U'×'},
}};

/// Of the text between "&" and ";". None: nothing that a character is written as.
std::optional<char32_t> characterOf(QStringView reference)
{
    if (reference.startsWith(u'#')) {
        const bool isHexadecimal = reference.size() > 1 && reference[1].toLower() == u'x';
        bool isNumber = false;
        const uint code = reference.sliced(isHexadecimal ? 2 : 1).toUInt(&isNumber, isHexadecimal ? 16 : 10);
        const bool isCharacter = code != 0 && code <= QChar::LastValidCodePoint && !QChar::isSurrogate(code);
        return isNumber && isCharacter ? std::optional<char32_t>(code) : std::nullopt;
    }
    const auto* const found = std::find_if(
        namedCharacters.begin(), namedCharacters.end(),
        [reference](const NamedCharacter& named) { return reference == QLatin1String(named.name); });
    return found == namedCharacters.end() ? std::nullopt : std::optional(found->character);
}

class HTMLReducer {
public:
    explicit HTMLReducer(QStringView html)
        : html_(html)
    {}

    QString reduce()
    {
        while (place_ < html_.size()) {
            if (html_[place_] == u'<' && skipMarkup())
                continue;
            if (html_[place_] == u'&' && addReference())
                continue;
            addCharacter(html_[place_++]);
        }
        return text_;
    }

private:
    /// False: what is here only looks like markup.
    bool skipMarkup()
    {
        const QStringView rest = html_.sliced(place_);
        if (rest.startsWith(QLatin1String("<!--"))) {
            skipBehind(QLatin1String("-->"));
            return true;
        }
        if (rest.startsWith(QLatin1String("<!")) || rest.startsWith(QLatin1String("<?"))) {
            skipBehind(QLatin1String(">"));
            return true;
        }
        const auto tag = tagHere();
        if (!tag)
            return false;
        place_ = tag->end;
        obey(*tag);
        return true;
    }

    void skipBehind(QLatin1String end)
    {
        const qsizetype found = html_.indexOf(end, place_, Qt::CaseInsensitive);
        place_ = found < 0 ? html_.size() : found + end.size();
    }

    std::optional<Tag> tagHere() const
    {
        Tag tag;
        qsizetype place = place_ + 1;
        if (place < html_.size() && html_[place] == u'/') {
            tag.isClosing = true;
            ++place;
        }
        const qsizetype start = place;
        while (place < html_.size() && html_[place].isLetterOrNumber())
            ++place;
        if (place == start || !html_[start].isLetter())
            return std::nullopt;
        tag.name = html_.sliced(start, place - start).toString().toLower();
        const auto end = tagEnd(place);
        tag.end = end;
        return tag;
    }

    /// Behind the ">" that is not inside quotes.
    qsizetype tagEnd(qsizetype place) const
    {
        QChar quote;
        for (; place < html_.size(); ++place) {
            const QChar character = html_[place];
            if (!quote.isNull()) {
                if (character == quote)
                    quote = QChar();
            } else if (character == u'"' || character == u'\'') {
                quote = character;
            } else if (character == u'>') {
                return place + 1;
            }
        }
        return html_.size();
    }

    void obey(const Tag& tag)
    {
        static const QStringList unseen = {QStringLiteral("script"), QStringLiteral("style"),
                                           QStringLiteral("title")};
        static const QStringList paragraphs = {
            QStringLiteral("p"),  QStringLiteral("h1"), QStringLiteral("h2"),  QStringLiteral("h3"),
            QStringLiteral("h4"), QStringLiteral("h5"), QStringLiteral("h6"),  QStringLiteral("blockquote"),
            QStringLiteral("ul"), QStringLiteral("ol"), QStringLiteral("pre"), QStringLiteral("table"),
            QStringLiteral("hr")};
        static const QStringList lines = {QStringLiteral("div"),     QStringLiteral("tr"),
                                          QStringLiteral("dt"),      QStringLiteral("dd"),
                                          QStringLiteral("section"), QStringLiteral("li")};
        if (unseen.contains(tag.name) && !tag.isClosing)
            skipElement(tag.name);
        else if (tag.name == QLatin1String("br"))
            text_ += u'\n';
        else if (paragraphs.contains(tag.name))
            endLine(2);
        else if (lines.contains(tag.name))
            endLine(1);
        if (tag.name == QLatin1String("li") && !tag.isClosing)
            text_ += QStringLiteral("• ");
        if (tag.name == QLatin1String("td") && tag.isClosing)
            addCharacter(u' ');
    }

    void skipElement(const QString& name)
    {
        const qsizetype end = html_.indexOf(QStringLiteral("</") + name, place_, Qt::CaseInsensitive);
        place_ = end < 0 ? html_.size() : tagEnd(end);
    }

    /// So many line feeds follow what there is so far.
    void endLine(qsizetype wanted)
    {
        while (text_.endsWith(u' '))
            text_.chop(1);
        qsizetype there = 0;
        while (there < wanted && there < text_.size() && text_[text_.size() - 1 - there] == u'\n')
            ++there;
        if (!text_.isEmpty())
            text_ += QString(wanted - there, u'\n');
    }

    bool addReference()
    {
        constexpr qsizetype longest = 10; // Characters.
        const QStringView rest = html_.sliced(place_ + 1);
        const qsizetype end = rest.first(std::min(rest.size(), longest)).indexOf(u';');
        const auto character = end < 0 ? std::nullopt : characterOf(rest.first(end));
        if (!character)
            return false;
        text_ += QString::fromUcs4(&*character, 1);
        place_ += end + 2;
        return true;
    }

    /// White space is one blank, and none at the beginning of a line.
    void addCharacter(QChar character)
    {
        if (!character.isSpace())
            text_ += character;
        else if (!text_.isEmpty() && !text_.back().isSpace())
            text_ += u' ';
    }

    QStringView html_;
    qsizetype place_ = 0;
    QString text_;
};

bool isSeen(QChar character)
{
    return character == u'\n' || character == u'\t' || character.category() != QChar::Other_Control;
}

} // namespace

QString textOfHTML(const QString& html)
{
    return HTMLReducer(html).reduce();
}

QString tidiedText(const QString& text, qsizetype longest)
{
    QString tidied;
    qsizetype lineFeeds = 2; // None at the beginning.
    for (const QChar character : text) {
        if (!isSeen(character))
            continue;
        lineFeeds = character == u'\n' ? lineFeeds + 1 : 0;
        if (lineFeeds <= 2)
            tidied += character;
    }
    tidied = tidied.trimmed();
    if (tidied.size() <= longest)
        return tidied;
    tidied.truncate(longest - 1);
    if (tidied.back().isHighSurrogate())
        tidied.chop(1);
    return tidied + u'…';
}

} // namespace tessel
