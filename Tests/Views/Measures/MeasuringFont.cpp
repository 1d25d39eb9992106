#include "Measures/MeasuringFont.h"

#include <array>
#include <stdexcept>
#include <utility>
#include <vector>

#include <QtCore/QByteArray>
#include <QtCore/QtEndian>
#include <QtGui/QFontDatabase>
#include <QtGui/QFontInfo>
#include <QtGui/QGuiApplication>

namespace tessel::test {

namespace {

constexpr int unitsPerEm = 1000;
constexpr auto familyName = "Tessel Measuring";

/// A letter's width in units of the font is `widthOfNoWeight` and `widthPerWeight` for each step of its
/// weight.
constexpr double widthOfNoWeight = 360;
constexpr double widthPerWeight = 0.6;

struct NamedWeight {
    int weight;
    const char* name;
};
/// The panel's weights, with one step to either side of them.
constexpr std::array weights = {NamedWeight{300, "Light"}, NamedWeight{400, "Regular"},
                                NamedWeight{500, "Medium"}, NamedWeight{600, "SemiBold"},
                                NamedWeight{700, "Bold"}};

enum Glyph : quint16 { missing, space, capital, small, thin, glyphCount };

/// The big-endian numbers that font files (OpenType, ISO/IEC 14496-22) are made of.
class Bytes {
public:
    Bytes& u16(std::initializer_list<int> values)
    {
        for (const int value : values)
            append(static_cast<quint16>(value));
        return *this;
    }
    Bytes& u32(std::initializer_list<quint32> values)
    {
        for (const quint32 value : values)
            append(value);
        return *this;
    }
    Bytes& raw(const QByteArray& bytes)
    {
        bytes_ += bytes;
        return *this;
    }
    Bytes& zeros(qsizetype count) { return raw(QByteArray(count, '\0')); }

    operator QByteArray() const { return bytes_; }

private:
    template <class Number>
    void append(Number number)
    {
        const Number bigEndian = qToBigEndian(number);
        bytes_.append(reinterpret_cast<const char*>(&bigEndian), sizeof bigEndian);
    }

    QByteArray bytes_;
};

QByteArray boxGlyph(int width, int height)
{
    constexpr char onCurve = 1;
    return Bytes()
        .u16({1, 0, 0, width, height}) // One contour, and its extent.
        .u16({3, 0})                   // Its last point; no instructions.
        .raw(QByteArray(4, onCurve))
        .u16({0, 0, width, 0})        // From each point to the next, to the right,
        .u16({0, height, 0, -height}) // and upwards.
        .zeros(2);                    // Up to whole words.
}

QByteArray header(bool isBold)
{
    return Bytes()
        .u32({0x00010000, 0x00010000, 0, 0x5F0F3CF5})
        .u16({0, unitsPerEm})
        .zeros(16) // Created and modified.
        .u16({0, 0, unitsPerEm, unitsPerEm})
        .u16({isBold ? 1 : 0, 8, 2, 0, 0});
}

QByteArray horizontalHeader(int advance)
{
    return Bytes()
        .u32({0x00010000})
        .u16({unitsPerEm, 0, 0, advance, 0, 0, unitsPerEm, 1, 0, 0})
        .zeros(10)
        .u16({glyphCount});
}

QByteArray maximumProfile()
{
    return Bytes().u32({0x00010000}).u16({glyphCount, 4, 1, 0, 0, 2, 0, 0, 0, 0, 0, 0, 0, 0});
}

QByteArray systemMetrics(int weight, int advance)
{
    return Bytes()
        .u16({4, advance, weight, 5, 0})
        .zeros(22) // Subscripts, superscripts, strikeout, the family's class.
        .zeros(10)
        .u32({1, 0, 0, 0}) // Basic Latin.
        .raw("TSSL")
        .u16({weight >= 700 ? 0x20 : 0x40, u' ', 0x2026})
        .u16({unitsPerEm, 0, 0, unitsPerEm, 0})
        .u32({1, 0}) // Code page 1252.
        .u16({unitsPerEm / 2, unitsPerEm, 0, u' ', 1});
}

/// From characters to glyphs: all of Latin, and the ellipsis.
QByteArray characterMap()
{
    constexpr int lastLatin = 0x24F;
    constexpr int latinCount = lastLatin - u' ' + 1;
    constexpr int segments = 3;
    Bytes glyphs;
    for (int character = u' '; character <= lastLatin; ++character) {
        const bool isSmall = character >= u'a' && character <= u'z';
        glyphs.u16({character == u' ' ? space : character == u'|' ? thin : isSmall ? small : capital});
    }
    const int length = 16 + 8 * segments + 2 * latinCount;
    return Bytes()
        .u16({0, 1, 3, 1})
        .u32({12})
        .u16({4, length, 0, 2 * segments, 4, 1, 2})
        .u16({lastLatin, 0x2026, 0xFFFF, 0}) // The segments' ends,
        .u16({u' ', 0x2026, 0xFFFF})         // starts,
        .u16({0, capital - 0x2026, 1})       // distances to the glyphs' numbers,
        .u16({2 * segments, 0, 0})           // and the first one's table.
        .raw(glyphs);
}

QByteArray names(const char* style)
{
    constexpr auto version = "1";
    const QString full = QString::fromLatin1(familyName) + u' ' + QString::fromLatin1(style);
    const std::array<QString, 6> texts = {
        QString::fromLatin1(familyName), QString::fromLatin1(style), full, full,
        QString::fromLatin1(version),    QString(full).remove(u' ')};
    Bytes records;
    Bytes strings;
    int offset = 0;
    for (int number = 0; number < static_cast<int>(texts.size()); ++number) {
        const QString& text = texts[static_cast<std::size_t>(number)];
        const int length = 2 * static_cast<int>(text.size());
        records.u16({3, 1, 0x409, number + 1, length, offset});
        for (const QChar character : text)
            strings.u16({character.unicode()});
        offset += length;
    }
    const int count = static_cast<int>(texts.size());
    return Bytes().u16({0, count, 6 + 12 * count}).raw(records).raw(strings);
}

QByteArray fontFile(const NamedWeight& weight)
{
    constexpr int advance = static_cast<int>(MeasuringFont::advance * unitsPerEm);
    constexpr int thinAdvance = static_cast<int>(MeasuringFont::thinAdvance * unitsPerEm);
    const int width = static_cast<int>(widthOfNoWeight + widthPerWeight * weight.weight);
    const QByteArray capitalBox = boxGlyph(width, unitsPerEm);
    const int box = static_cast<int>(capitalBox.size()) / 2;
    const std::array<std::pair<const char*, QByteArray>, 10> tables = {{
        {"OS/2", systemMetrics(weight.weight, advance)},
        {"cmap", characterMap()},
        {"glyf", capitalBox + boxGlyph(width, unitsPerEm / 2) + boxGlyph(thinAdvance / 2, unitsPerEm / 2)},
        {"head", header(weight.weight >= 700)},
        {"hhea", horizontalHeader(advance)},
        {"hmtx", Bytes().u16({advance, 0, advance, 0, advance, 0, advance, 0, thinAdvance, 0})},
        {"loca",
         Bytes().u16({0, 0, 0, box, 2 * box, 3 * box})}, // Nothing for the missing glyph and the space.
        {"maxp", maximumProfile()},
        {"name", names(weight.name)},
        {"post", Bytes().u32({0x00030000, 0}).zeros(24)},
    }};
    constexpr int tableCount = static_cast<int>(tables.size());
    Bytes directory;
    directory.u32({0x00010000}).u16({tableCount, 128, 3, 16 * tableCount - 128});
    Bytes contents;
    quint32 offset = 12 + 16 * tableCount;
    for (const auto& [tag, table] : tables) {
        const qsizetype padding = (4 - table.size() % 4) % 4;
        directory.raw(tag).u32({0, offset, static_cast<quint32>(table.size())});
        contents.raw(table).zeros(padding);
        offset += static_cast<quint32>(table.size() + padding);
    }
    return directory.raw(contents);
}

} // namespace

double MeasuringFont::weightOf(double width)
{
    return (width * unitsPerEm - widthOfNoWeight) / widthPerWeight;
}

MeasuringFont::MeasuringFont()
    : before_(QGuiApplication::font())
{
    for (const NamedWeight& weight : weights) {
        fonts_.push_back(QFontDatabase::addApplicationFontFromData(fontFile(weight)));
        if (fonts_.back() < 0)
            throw std::runtime_error("The measuring font is not taken as a font.");
    }
    QFont font(QString::fromLatin1(familyName));
    font.setHintingPreference(QFont::PreferNoHinting); // Hints would move the boxes' edges.
    if (QFontInfo(font).family() != QString::fromLatin1(familyName))
        throw std::runtime_error("Another font takes the place of the measuring font.");
    QGuiApplication::setFont(font);
}

MeasuringFont::~MeasuringFont()
{
    QGuiApplication::setFont(before_);
    for (const int font : fonts_)
        QFontDatabase::removeApplicationFont(font);
}

} // namespace tessel::test
