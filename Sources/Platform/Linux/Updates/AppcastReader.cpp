#include "Updates/AppcastReader.h"

#include <QtCore/QUrl>
#include <QtCore/QXmlStreamReader>

#include "Updates/PlainText.h"

namespace tessel {

namespace {

constexpr int deepestNesting = 32;
constexpr std::size_t mostItems = 1000;
constexpr qsizetype longestVersion = 100; ///< Characters, as the others.
constexpr qsizetype longestAddress = 2000;
constexpr qsizetype longestNotes = 20'000;

/// What an item's elements say, before anybody has looked whether it makes sense.
struct RawItem {
    QString version;
    QString displayVersion;
    QString minimumSystemVersion;
    QString channel;
    QString link;
    QString system; ///< The one that it is for. Empty: any.
    QString notes;
};

QString downloadPage(const QString& link)
{
    const QUrl address(link, QUrl::StrictMode);
    const bool isUsable = link.size() <= longestAddress && address.isValid() && !address.host().isEmpty() &&
                          address.scheme() == QLatin1String("https") && address.userInfo().isEmpty();
    return isUsable ? address.toString(QUrl::FullyEncoded) : QString();
}

std::optional<UpdateItem> itemOf(const RawItem& raw)
{
    const bool isForThisSystem =
        raw.system.isEmpty() || raw.system.compare(QLatin1String("linux"), Qt::CaseInsensitive) == 0;
    const QString display = raw.displayVersion.isEmpty() ? raw.version : raw.displayVersion;
    for (const QString& text : {raw.version, display, raw.minimumSystemVersion, raw.channel}) {
        if (text.size() > longestVersion)
            return std::nullopt;
    }
    if (raw.version.isEmpty() || !isForThisSystem)
        return std::nullopt;
    return UpdateItem{
        raw.version.toStdString(), display.toStdString(),   raw.minimumSystemVersion.toStdString(),
        raw.channel.toStdString(), raw.notes.toStdString(), downloadPage(raw.link).toStdString()};
}

class AppcastReader {
public:
    explicit AppcastReader(const QByteArray& feed)
        : xml_(feed)
    {}

    std::optional<std::vector<UpdateItem>> read()
    {
        bool isFeed = false;
        while (enterElement()) {
            if (isPlain("rss"))
                isFeed = readRoot();
            else
                skip();
        }
        if (xml_.hasError() || !isFeed)
            return std::nullopt;
        return std::move(items_);
    }

private:
    /// The next token. Nothing that a feed does not need comes through.
    QXmlStreamReader::TokenType next()
    {
        const auto token = xml_.readNext();
        if (token == QXmlStreamReader::StartElement)
            ++depth_;
        if (token == QXmlStreamReader::EndElement)
            --depth_;
        if (token == QXmlStreamReader::DTD || token == QXmlStreamReader::EntityReference ||
            depth_ > deepestNesting || items_.size() > mostItems)
            xml_.raiseError();
        return xml_.hasError() ? QXmlStreamReader::Invalid : token;
    }

    /// Goes on to the next element inside the current one. False: there is none, and the current one has been
    /// left.
    bool enterElement()
    {
        while (!xml_.atEnd()) {
            const auto token = next();
            if (token == QXmlStreamReader::StartElement)
                return true;
            if (token == QXmlStreamReader::EndElement)
                return false;
        }
        return false;
    }

    void skip()
    {
        while (enterElement())
            skip();
    }

    /// All text in the current element, which is left.
    QString readText()
    {
        QString text;
        while (!xml_.atEnd()) {
            switch (next()) {
            case QXmlStreamReader::Characters:
                text += xml_.text();
                break;
            case QXmlStreamReader::StartElement:
                text += readText();
                break;
            case QXmlStreamReader::EndElement:
                return text;
            default:
                break;
            }
        }
        return text;
    }

    QString readWord() { return readText().simplified(); }

    bool isPlain(const char* name) const
    {
        return xml_.namespaceUri().isEmpty() && xml_.name() == QLatin1String(name);
    }
    static QString ownNamespace()
    {
        return QStringLiteral("http://www.andymatuschak.org/xml-namespaces/sparkle");
    }
    bool isOwn(const char* name) const
    {
        return xml_.namespaceUri() == ownNamespace() && xml_.name() == QLatin1String(name);
    }
    QString ownAttribute(const char* name) const
    {
        return xml_.attributes().value(ownNamespace(), QLatin1String(name)).toString().simplified();
    }

    /// True: it has a channel.
    bool readRoot()
    {
        bool hasChannel = false;
        while (enterElement()) {
            if (isPlain("channel")) {
                hasChannel = true;
                readChannel();
            } else {
                skip();
            }
        }
        return hasChannel;
    }

    void readChannel()
    {
        while (enterElement()) {
            if (!isPlain("item")) {
                skip();
                continue;
            }
            if (auto item = itemOf(readItem()))
                items_.push_back(std::move(*item));
        }
    }

    RawItem readItem()
    {
        RawItem raw;
        RawItem fallback;
        while (enterElement()) {
            if (isOwn("version"))
                raw.version = readWord();
            else if (isOwn("shortVersionString"))
                raw.displayVersion = readWord();
            else if (isOwn("minimumSystemVersion"))
                raw.minimumSystemVersion = readWord();
            else if (isOwn("channel"))
                raw.channel = readWord();
            else if (isPlain("link"))
                raw.link = readWord();
            else if (isPlain("description"))
                raw.notes = readNotes();
            else if (isPlain("enclosure"))
                readEnclosure(raw, fallback);
            else
                skip();
        }
        if (raw.version.isEmpty())
            raw.version = fallback.version;
        if (raw.displayVersion.isEmpty())
            raw.displayVersion = fallback.displayVersion;
        return raw;
    }

    QString readNotes()
    {
        const bool isHTML = ownAttribute("format").isEmpty() ||
                            ownAttribute("format").compare(QLatin1String("html"), Qt::CaseInsensitive) == 0;
        const QString text = readText();
        return tidiedText(isHTML ? textOfHTML(text) : text, longestNotes);
    }

    /// Feeds of old have the versions there.
    void readEnclosure(RawItem& raw, RawItem& fallback)
    {
        fallback.version = ownAttribute("version");
        fallback.displayVersion = ownAttribute("shortVersionString");
        raw.system = ownAttribute("os");
        skip();
    }

    QXmlStreamReader xml_;
    int depth_ = 0;
    std::vector<UpdateItem> items_;
};

} // namespace

std::optional<std::vector<UpdateItem>> readAppcast(const QByteArray& feed)
{
    return AppcastReader(feed).read();
}

} // namespace tessel
