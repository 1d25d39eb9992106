// Measures the panel as it is drawn, pixel by pixel, and holds it to the numbers that it was designed in.

#include <algorithm>
#include <cmath>
#include <functional>
#include <map>
#include <numbers>
#include <numeric>
#include <optional>

#include <gtest/gtest.h>

#include <QtGui/QPainter>
#include <QtGui/QWheelEvent>
#include <QtWidgets/QApplication>

#include "Panel/RowPainter.h"
#include "Panel/VisualEffectView.h"
#include "PanelMeasures.h"
#include "Support/MeasuredPicture.h"
#include "Support/MeasuringFont.h"
#include "Support/PanelDesktop.h"

namespace tessel::test {

namespace {

constexpr int white = 255;

// Places that are free of texts, in points, and safely beside what is measured there.
constexpr double cardEdge = 6;      ///< The card's outline is nearer to it, in the corners too.
constexpr double emptyColumn = 240; ///< Between the header's texts and its buttons, and right of all titles.
constexpr double endOfTexts = 230;  ///< What begins at the left ends before it.
constexpr double endOfHeader = 70;  ///< And above it there is nothing of the empty state.
constexpr double rowEdge = 20;      ///< The rows' edges are nearer to the card's.
constexpr double outlineReach = 5;  ///< No outline reaches further from the edge of a row; its contents do.

/// What has been measured of the panel at one scale.
class Measurements {
public:
    /// `place` says where, if there are several.
    void note(const std::string& name, double value, const std::string& place = {})
    {
        values_.insert({name, {value, place}});
    }

    /// Runs `measure`, which notes what it finds. Where it finds nothing it throws.
    static void take(const std::string& subject, const std::function<void()>& measure)
    {
        try {
            measure();
        } catch (const std::exception& failure) {
            ADD_FAILURE() << subject
                          << ": expected its parts to be where they can be measured: " << failure.what();
        }
    }

    void expectAsDesigned(double scale) const
    {
        for (const PanelMeasure& designed : panelMeasures) {
            const auto [first, end] = values_.equal_range(std::string(designed.name));
            EXPECT_NE(first, end) << designed.name << " has not been measured.";
            for (auto measured = first; measured != end; ++measured)
                expectAsDesigned(designed, measured->second, scale);
        }
    }

private:
    struct Value {
        double value;
        std::string place;
    };

    static void expectAsDesigned(const PanelMeasure& designed, const Value& measured, double scale)
    {
        const double difference = std::abs(measured.value - designed.value);
        EXPECT_LE(difference, tolerance(designed.unit, scale))
            << designed.name << (measured.place.empty() ? "" : " (" + measured.place + ")") << ": expected "
            << designed.value << ", measured " << measured.value << " at scale " << scale;
    }

    /// What whole device pixels and 256 levels may cost.
    static double tolerance(Unit unit, double scale)
    {
        constexpr double rounding = 1e-6;
        const bool hasWholePixels = scale == std::floor(scale);
        switch (unit) {
        case Unit::points:
            return (hasWholePixels ? 0.6 : 1) / scale + rounding; // Each edge is on the nearest pixel.
        case Unit::pen:
            return 0.3 + 0.8 / scale;
        case Unit::filled:
            return 0.4 + 0.8 / scale;
        case Unit::centre:
            return 0.5 + 0.6 / scale; // Frames lie on whole points.
        case Unit::width:
            return 0.08 + 0.1 / scale;
        case Unit::size:
            return hasWholePixels ? 0.1 : 0.5; // A view may cut off what its text has of a pixel.
        case Unit::tracking:
            return hasWholePixels ? 0.04 + 0.2 / scale : 0.5; // It is told with the size.
        case Unit::radius:
            return 0.25 + 1.1 / scale;
        case Unit::opacity:
            return 0.005;
        case Unit::shadow:
            return 0.003 + 0.016 / scale;
        case Unit::weight:
            return 20 + 30 / scale;
        case Unit::ratio:
            return 0.01 + 0.06 / scale;
        case Unit::count:
            return 0;
        }
        return 0;
    }

    std::multimap<std::string, Value> values_;
};

// Pictures

ClipboardItem textItem()
{
    return {UUID::random(), std::make_shared<const std::string>("Text"), 0};
}

SharedImage whiteImage()
{
    Thumbnail thumbnail;
    thumbnail.pixels.assign(static_cast<std::size_t>(Thumbnail::side) * Thumbnail::side, 0xFFFFFFFF);
    auto image = FakeImage::withPNG("picture");
    image->setThumbnail(std::move(thumbnail));
    return image;
}

/// The desktop with the program under a certain tint, whose panel is drawn at a certain scale.
class TintedDesktop : public PanelDesktop {
public:
    TintedDesktop(double tint, double scale)
        : scale_(scale)
    {
        defaults->setDouble(AppState::panelOpacityKey, tint);
        relaunch();
    }

    QImage drawnOver(const QColor& backdrop) const
    {
        QImage image((QSizeF(window().size()) * scale_).toSize(), QImage::Format_ARGB32_Premultiplied);
        image.setDevicePixelRatio(scale_);
        image.fill(backdrop);
        window().render(&image, {}, {}, QWidget::DrawChildren);
        return image;
    }

private:
    double scale_;
};

/// Under a tint of 1 no material shines through: the card is black.
class BlackDesktop : public TintedDesktop {
public:
    explicit BlackDesktop(double scale)
        : TintedDesktop(1, scale)
    {}

    MeasuredPicture picture() const { return MeasuredPicture(drawnOver(Qt::black)); }
    /// Scrolls the list as a touchpad does, in points.
    void scrollBy(int distance)
    {
        const QPointF place = list().rect().center();
        QWheelEvent event(place, list().mapToGlobal(place), QPoint(0, -distance), QPoint(), Qt::NoButton,
                          Qt::NoModifier, Qt::ScrollUpdate, false);
        QApplication::sendEvent(&list(), &event);
    }
};

/// Is the entry of a row pinned?
enum class ItemPin { unpinned, pinned };

// Texts

/// A line of text in the measuring font.
struct MeasuredText {
    /// In pixels, from the first letter's left edge to the last one's right edge.
    Span columns;
    Span rows;     ///< In pixels.
    double penEnd; ///< Where the pen has got to after the last letter, in pixels.
    double size;   ///< In points.
    double weight;
    double opacity;
    double tracking; ///< In points.
};

/// Measures the only text in a rectangle of plain ground.
MeasuredText measuredText(const MeasuredPicture& picture, const Span& columns, const Span& rows, int ground,
                          const std::string& text)
{
    const int ink = picture.brightest(columns, rows);
    const int edge = (ground + ink) / 2;
    const auto lines = picture.brightRows(columns, rows, edge);
    const auto letters = picture.brightColumns(columns, rows, edge);
    if (lines.empty())
        throw std::runtime_error("There is no text \"" + text + "\".");
    const auto covered = [&](const std::vector<int>& levels) {
        const double sum = std::accumulate(levels.begin(), levels.end(), 0.0);
        return picture.points((sum - static_cast<double>(levels.size()) * ground) / (ink - ground));
    };
    const Span line = {lines.front().start, lines.back().end};
    // The first letter is a capital or a digit, and as high as the line. All have ink in the line's lower
    // half.
    const double size = covered(picture.levelsOfColumn(letters.front().start + picture.pixels(2), rows));
    const auto letterCount =
        std::count_if(text.begin(), text.end(), [](char letter) { return letter != ' '; });
    const double letterWidth = covered(picture.levelsOfRow(line.end - 1 - line.length() / 4, columns)) /
                               static_cast<double>(letterCount);
    const Span inked = {letters.front().start, letters.back().end};
    const auto pitches = static_cast<double>(text.size() - 1);
    const double pitch = (picture.points(inked.length()) - letterWidth) / pitches;
    return {
        .columns = inked,
        .rows = line,
        .penEnd = inked.end + (pitch - letterWidth) * picture.scale(),
        .size = size,
        .weight = MeasuringFont::weightOf(letterWidth / size),
        .opacity = static_cast<double>(ink - ground) / (white - ground),
        .tracking = pitch - MeasuringFont::advance * size,
    };
}

void noteText(Measurements& measurements, const std::string& name, const MeasuredText& text)
{
    measurements.note(name + ".size", text.size);
    measurements.note(name + ".weight", text.weight);
    measurements.note(name + ".tracking", text.tracking);
    measurements.note(name + ".opacity", text.opacity);
}

/// The lines of text in a rectangle, from the top, with some ground above and below each.
std::vector<Span> linesOfText(const MeasuredPicture& picture, const Span& columns, const Span& rows,
                              int ground)
{
    constexpr int hint = 12; // Levels above the ground that only a text's pixels have.
    return picture.brightRows(columns, rows, ground + hint);
}

// The card and its header

void measureCard(Measurements& measurements, const MeasuredPicture& card)
{
    const int middle = card.pixels(180); // Below the empty state's texts.
    const auto outline = card.levelsOfRow(middle, {0, card.pixels(cardEdge)});
    const int full = *std::max_element(outline.begin(), outline.end());
    measurements.note("card.outlineOpacity", static_cast<double>(full) / white);
    measurements.note("card.outlineWidth",
                      card.points(std::accumulate(outline.begin(), outline.end(), 0.0) / full));
}

/// The radius of a corner that passes the diagonal at that inset: a circle's.
double radiusOf(double inset)
{
    return inset / (1 - std::numbers::sqrt2 / 2);
}

void measureCardsCorner(Measurements& measurements, BlackDesktop& desktop)
{
    QImage shape = desktop.drawnOver(Qt::transparent).convertToFormat(QImage::Format_Alpha8);
    shape.reinterpretAsFormat(QImage::Format_Grayscale8);
    const MeasuredPicture card(shape);
    measurements.note("card.cornerRadius", card.points(radiusOf(card.cornerInset(0, 0, 0, white))));
}

void measureTint(Measurements& measurements, double scale)
{
    for (const auto& [tint, name] : {std::pair{0.0, "0"}, std::pair{0.37, "0.37"}, std::pair{1.0, "1"}}) {
        TintedDesktop desktop(tint, scale);
        desktop.openPanel();
        desktop.window().findChild<VisualEffectView*>()->hide();
        const MeasuredPicture card(desktop.drawnOver(Qt::white));
        const int level = card.level(card.pixels(emptyColumn), card.pixels(180));
        measurements.note(std::string("card.tintOpacity of ") + name, 1 - static_cast<double>(level) / white);
    }
}

void measureHeaderAction(Measurements& measurements, const MeasuredPicture& picture, const Span& columns,
                         const Span& rows, const std::string& title)
{
    const int inset = picture.pixels(3); // Less than the paddings, and inside the round ends.
    const int fill = picture.level(columns.start + inset, rows.middle());
    const MeasuredText label = measuredText(picture, {columns.start + inset, columns.end - inset},
                                            {rows.start + inset, rows.end - inset}, fill, title);
    measurements.note("headerAction.fillOpacity", static_cast<double>(fill) / white, title);
    measurements.note("headerAction.leftPadding", picture.points(label.columns.start - columns.start), title);
    if (title == "Close") // The other title's width is rounded up to whole points.
        measurements.note("headerAction.rightPadding", picture.points(columns.end - label.penEnd));
    measurements.note("headerAction.topPadding", picture.points(label.rows.start - rows.start), title);
    measurements.note("headerAction.bottomPadding", picture.points(rows.end - label.rows.end), title);
    measurements.note("headerAction.cornerRadius by height",
                      radiusOf(picture.cornerInset(columns.start, rows.start, 0, fill)) / rows.length(),
                      title);
    noteText(measurements, "headerAction.label", label);
}

/// Returns where the header's texts end, in pixels.
int measureHeader(Measurements& measurements, const MeasuredPicture& picture)
{
    const Span columns = {picture.pixels(cardEdge), picture.pixels(endOfTexts)};
    const Span rows = {picture.pixels(cardEdge), picture.pixels(endOfHeader)};
    const auto lines = linesOfText(picture, columns, rows, 0);
    const MeasuredText title = measuredText(picture, columns, lines.at(0), 0, "Clipboard");
    const MeasuredText count = measuredText(picture, columns, lines.at(1), 0, "0 items");
    noteText(measurements, "header.title", title);
    noteText(measurements, "header.itemCount", count);
    measurements.note("header.leftPadding", picture.points(title.columns.start), "title");
    measurements.note("header.leftPadding", picture.points(count.columns.start), "item count");
    measurements.note("header.topPadding", picture.points(title.rows.start));
    measurements.note("header.textSpacing", picture.points(count.rows.start - title.rows.end));

    constexpr int edge = 10; // Half of the buttons' fill.
    const Span buttons = {picture.pixels(endOfTexts), picture.width() - picture.pixels(cardEdge)};
    const auto capsules = picture.brightColumns(buttons, rows, edge);
    const Span capsuleRows = picture.brightRows(capsules.at(0), rows, edge).at(0);
    measureHeaderAction(measurements, picture, capsules.at(0), capsuleRows, "Close");
    measureHeaderAction(measurements, picture, capsules.at(1), capsuleRows, "Clear all");
    measurements.note("header.spacing", picture.points(capsules.at(1).start - capsules.at(0).end));
    measurements.note("header.rightPadding", picture.points(picture.width() - capsules.at(1).end));
    const double middleOfTexts = (title.rows.start + count.rows.end) / 2.0;
    measurements.note("headerAction off the header's centre",
                      picture.points((capsuleRows.start + capsuleRows.end) / 2.0 - middleOfTexts));
    return count.rows.end;
}

/// `top` is where the header ends, in pixels.
void measureEmptyState(Measurements& measurements, const MeasuredPicture& picture, int top)
{
    const Span columns = {picture.pixels(cardEdge), picture.width() - picture.pixels(cardEdge)};
    const auto lines = linesOfText(picture, columns, {top, picture.height() - picture.pixels(cardEdge)}, 0);
    const MeasuredText title = measuredText(picture, columns, lines.at(0), 0, "Clipboard is empty");
    const MeasuredText hint =
        measuredText(picture, columns, lines.at(1), 0, "Copy something and it will appear here.");
    noteText(measurements, "emptyState.title", title);
    noteText(measurements, "emptyState.hint", hint);
    measurements.note("emptyState.spacing", picture.points(hint.rows.start - title.rows.end));
    const std::string offCentre = "emptyState off the list's centre";
    measurements.note(offCentre,
                      picture.points((title.rows.start + hint.rows.end - top - picture.height()) / 2.0),
                      "vertically");
    for (const MeasuredText* text : {&title, &hint}) {
        measurements.note(offCentre,
                          picture.points((text->columns.start + text->penEnd - picture.width()) / 2.0),
                          "horizontally");
    }
}

// The list

/// The rectangle of a row, in pixels: the shape's, from which half of the outline stands out.
struct MeasuredRow {
    Span columns;
    Span rows;
};

/// Brighter than the outline of a row on the card, darker than on the row's fill.
constexpr int insideRow = 37;

/// The rows that are neither selected nor hovered, of those that can be seen wholly.
std::vector<MeasuredRow> plainRows(const MeasuredPicture& picture, std::size_t count)
{
    const int column = picture.pixels(emptyColumn);
    const Span all = {picture.pixels(cardEdge), picture.height() - picture.pixels(cardEdge)};
    const auto edges = picture.brightRows({column, column + 1}, all, insideRow);
    std::vector<MeasuredRow> rows;
    for (std::size_t row = 0; row < count; ++row) {
        const Span vertical = {edges.at(2 * row).start, edges.at(2 * row + 1).end};
        const Span middle = {vertical.middle(), vertical.middle() + 1};
        const Span leftEdge = {picture.pixels(cardEdge), picture.pixels(rowEdge)};
        const Span rightEdge = {picture.width() - leftEdge.end, picture.width() - leftEdge.start};
        rows.push_back({{picture.brightColumns(leftEdge, middle, insideRow).at(0).start,
                         picture.brightColumns(rightEdge, middle, insideRow).back().end},
                        vertical});
    }
    return rows;
}

int fillOf(const MeasuredPicture& picture, const MeasuredRow& row)
{
    return picture.level(picture.pixels(emptyColumn), row.rows.middle());
}

/// Returns where the list begins, in pixels: where a row that is scrolled is cut off.
int topOfList(double scale)
{
    BlackDesktop desktop(scale);
    for (char letter = 'A'; letter < 'A' + 10; ++letter)
        desktop.copy(std::string(1, letter));
    desktop.openPanel();
    desktop.scrollBy(45);
    const MeasuredPicture picture = desktop.picture();
    const int column = picture.pixels(emptyColumn);
    constexpr int halfFill = 13;
    return picture.brightRows({column, column + 1}, {picture.pixels(cardEdge), picture.height()}, halfFill)
        .at(0)
        .start;
}

void measureEndOfList(Measurements& measurements, double scale)
{
    BlackDesktop desktop(scale);
    for (char letter = 'A'; letter < 'A' + 10; ++letter)
        desktop.copy(std::string(1, letter));
    desktop.openPanel();
    measurements.note("panel.height of ten entries", desktop.picture().points(desktop.picture().height()));
    desktop.scrollBy(10'000);
    const MeasuredPicture picture = desktop.picture();
    const int column = picture.pixels(emptyColumn);
    const Span all = {picture.pixels(cardEdge), picture.height() - picture.pixels(cardEdge)};
    const auto edges = picture.brightRows({column, column + 1}, all, insideRow);
    const int spacing = edges.at(edges.size() - 2).start - edges.at(edges.size() - 3).end;
    measurements.note("list.endSpacer + list.bottomPadding",
                      picture.points(picture.height() - edges.back().end - spacing));
}

void measureRowsCorner(Measurements& measurements, const MeasuredPicture& picture, const MeasuredRow& row)
{
    constexpr int halfOutline = 13;
    const Span middle = {row.rows.middle(), row.rows.middle() + 1};
    const Span beside = {row.columns.start - picture.pixels(outlineReach), row.columns.start + 1};
    const int left = picture.brightColumns(beside, middle, halfOutline).at(0).start;
    const int outside = row.columns.start - left; // Of the outline; on every side.
    const int top = row.rows.start - outside;
    const double inset =
        picture.cornerInset(left, top, 0,
                            std::min(fillOf(picture, row), picture.level(picture.pixels(emptyColumn), top))) -
        outside;
    // On the diagonal the line stands out across it.
    measurements.note("row.cornerRadius", picture.points(radiusOf(inset + outside / std::numbers::sqrt2)));
}

/// Returns the caption's lines.
Span measureCaption(Measurements& measurements, const MeasuredPicture& picture, const Span& rows,
                    const MeasuredRow& below, const std::string& title)
{
    const Span columns = {picture.pixels(cardEdge), picture.pixels(endOfTexts)};
    const MeasuredText caption = measuredText(picture, columns, rows, 0, title);
    noteText(measurements, "sectionHeader.caption", caption);
    measurements.note("sectionHeader.leftPadding",
                      picture.points(caption.columns.start - below.columns.start));
    measurements.note("list.spacing", picture.points(below.rows.start - caption.rows.end), "below " + title);
    const int upperHalf = caption.rows.start + caption.rows.length() / 4;
    constexpr int edge = 70; // Half of the caption's level.
    const auto letters = picture.brightColumns(columns, caption.rows, edge).size();
    const auto capitals = picture.brightColumns(columns, {upperHalf, upperHalf + 1}, edge).size();
    measurements.note("sectionHeader.caption's small letters", static_cast<double>(letters - capitals),
                      title);
    return caption.rows;
}

/// The rows of texts in a row, as far as they are no taller than a line.
std::vector<Span> linesInRow(const MeasuredPicture& picture, const MeasuredRow& row, int left)
{
    const int reach = picture.pixels(outlineReach);
    return linesOfText(picture, {left, picture.pixels(endOfTexts)},
                       {row.rows.start + reach, row.rows.end - reach}, fillOf(picture, row));
}

/// Returns the rows of its text.
Span measureMetadata(Measurements& measurements, const MeasuredPicture& picture, const MeasuredRow& row,
                     const Span& line, ItemPin pin)
{
    const int fill = fillOf(picture, row);
    const Span all = {row.columns.start + picture.pixels(outlineReach), picture.pixels(endOfTexts)};
    const auto parts = picture.brightColumns(all, line, fill + (picture.brightest(all, line) - fill) / 2);
    const auto before = [&](std::size_t part) { return (parts.at(part - 1).end + parts.at(part).start) / 2; };
    constexpr std::size_t kindLetters = 4;
    const MeasuredText kind = measuredText(picture, {all.start, before(kindLetters)}, line, fill, "Text");
    noteText(measurements, "row.metadata", kind);
    const std::size_t firstOfTime = pin == ItemPin::pinned ? kindLetters + 1 : kindLetters;
    const MeasuredText time = measuredText(picture, {before(firstOfTime), all.end}, line, fill, "14:05");
    noteText(measurements, "row.metadata", time);
    const double distance = time.columns.start - kind.penEnd;
    if (pin == ItemPin::unpinned) {
        measurements.note("row.metadataSpacing", picture.points(distance));
        return kind.rows;
    }

    measurements.note("row.metadataSpacing + pin + row.metadataSpacing", picture.points(distance));
    const Span symbol = parts.at(kindLetters);
    const Span symbolRows =
        picture.brightRows(symbol, line, fill + (picture.brightest(symbol, line) - fill) / 2).at(0);
    measurements.note("row.pin.height, less the drawing's margins", picture.points(symbolRows.length()));
    measurements.note("row.pin.opacity",
                      static_cast<double>(picture.brightest(symbol, line) - fill) / (white - fill));
    measurements.note(
        "row.pin off the line's centre",
        picture.points((symbolRows.start + symbolRows.end - kind.rows.start - kind.rows.end) / 2.0),
        "vertically");
    measurements.note("row.pin off the line's centre",
                      picture.points((symbol.start + symbol.end - kind.penEnd - time.columns.start) / 2.0),
                      "horizontally");
    return kind.rows;
}

void measureTextRow(Measurements& measurements, const MeasuredPicture& picture, const MeasuredRow& row,
                    ItemPin pin)
{
    const int left = row.columns.start + picture.pixels(outlineReach);
    const auto lines = linesInRow(picture, row, left);
    const MeasuredText title = measuredText(picture, {left, picture.pixels(endOfTexts)}, lines.at(0),
                                            fillOf(picture, row), "Zzzzzzz");
    noteText(measurements, "row.title", title);
    const Span metadata = measureMetadata(measurements, picture, row, lines.at(1), pin);
    measurements.note("row.leftPadding", picture.points(title.columns.start - row.columns.start), "text");
    measurements.note("row.textSpacing", picture.points(metadata.start - title.rows.end));
    measurements.note("row.bottomPadding", picture.points(row.rows.end - metadata.end), "text");
}

void measureImageRow(Measurements& measurements, const MeasuredPicture& picture, const MeasuredRow& row)
{
    const int fill = fillOf(picture, row);
    const int edge = (fill + white) / 2;
    const int reach = picture.pixels(outlineReach);
    const Span inside = {row.rows.start + reach, row.rows.end - reach};
    const Span columns =
        picture.brightColumns({row.columns.start + reach, picture.pixels(endOfTexts)}, inside, edge).at(0);
    const Span rows = picture.brightRows(columns, inside, edge).at(0);
    measurements.note("preview.width", picture.points(columns.length()));
    measurements.note("preview.height", picture.points(rows.length()));
    measurements.note("preview.cornerRadius",
                      picture.points(radiusOf(picture.cornerInset(columns.start, rows.start, fill, white))));
    measurements.note("row.leftPadding", picture.points(columns.start - row.columns.start), "preview");
    measurements.note("row.topPadding", picture.points(rows.start - row.rows.start), "preview");
    measurements.note("row.bottomPadding", picture.points(row.rows.end - rows.end), "preview");
    const Span texts = {columns.end + 1, picture.pixels(endOfTexts)};
    measurements.note("row.spacing",
                      picture.points(picture.brightColumns(texts, inside, edge).at(0).start - columns.end));
}

void measureList(Measurements& measurements, double scale)
{
    BlackDesktop desktop(scale);
    desktop.copy("Selected");
    desktop.copy(whiteImage());
    desktop.copy("Zzzzzzz");
    desktop.copy("Zzzzzzz ");
    desktop.pin("Zzzzzzz ");
    desktop.openPanel();
    desktop.view().selectItem(desktop.item("Selected").id);
    const MeasuredPicture picture = desktop.picture();
    measurements.note("panel.height of four entries", picture.points(picture.height()));

    const auto rows = plainRows(picture, 3);
    const MeasuredRow& pinned = rows[0];
    const MeasuredRow& recent = rows[1];
    const MeasuredRow& image = rows[2];
    measurements.note("list.leftPadding", picture.points(recent.columns.start));
    measurements.note("list.rightPadding", picture.points(picture.width() - recent.columns.end));
    const double spacing = picture.points(image.rows.start - recent.rows.end);
    measurements.note("list.spacing", spacing, "between rows");

    const int reach = picture.pixels(outlineReach);
    const int top = topOfList(scale);
    const Span first =
        measureCaption(measurements, picture, {top, pinned.rows.start - reach}, pinned, "PINNED");
    const Span second = measureCaption(
        measurements, picture, {pinned.rows.end + reach, recent.rows.start - reach}, recent, "RECENT");
    const double captionPadding = picture.points(second.start - pinned.rows.end) - spacing;
    measurements.note("sectionHeader.topPadding", captionPadding);
    measurements.note("list.topPadding", picture.points(first.start - top) - captionPadding);

    measureTextRow(measurements, picture, pinned, ItemPin::pinned);
    measureTextRow(measurements, picture, recent, ItemPin::unpinned);
    measureImageRow(measurements, picture, image);
    measureRowsCorner(measurements, picture, recent);
}

void measureLongTitle(Measurements& measurements, double scale)
{
    BlackDesktop desktop(scale);
    desktop.copy("Plain");
    desktop.copy(std::string(700, '|'));
    desktop.openPanel();
    desktop.view().selectItem(desktop.item("Plain").id);
    const MeasuredPicture picture = desktop.picture();
    // The title leaves a column free, inside the row's left edge, in which the caption ends before it as
    // well.
    const int column = picture.pixels(10);
    constexpr int halfFill = 13;
    const Span rows =
        picture.brightRows({column, column + 1}, {picture.pixels(cardEdge), picture.height()}, halfFill)
            .at(0);
    const Span columns = {picture.pixels(rowEdge) - picture.pixels(outlineReach),
                          picture.width() - picture.pixels(rowEdge)};
    const Span beginning = {columns.start, picture.pixels(60)}; // The ellipsis, which is tall, comes later.
    const int fill = picture.level(column, rows.middle());
    const auto lines = linesOfText(picture, beginning, rows, fill);
    measurements.note("row.title.lines", static_cast<double>(lines.size()) - 1);
    const auto letters = picture.brightColumns(columns, lines.at(0), fill + 50); // Thin letters are pale.
    const double lastGap = MeasuringFont::thinAdvance / 2 * 13.5;
    measurements.note("row.title.width",
                      picture.points(letters.back().end - letters.front().start) + lastGap);
}

// The states of a row

/// `levels` lead across an edge of a row into it: `outside` of them, and then inside.
void noteOutline(Measurements& measurements, const MeasuredPicture& picture, const std::vector<int>& levels,
                 int outside, int fill, const std::string& state, const std::string& side)
{
    const double opacity =
        static_cast<double>(levels[static_cast<std::size_t>(outside)] - fill) / (white - fill);
    double width = 0;
    for (int pixel = 0; pixel < static_cast<int>(levels.size()); ++pixel) {
        const int ground = pixel < outside ? 0 : fill;
        width += (levels[static_cast<std::size_t>(pixel)] - ground) / (opacity * (white - ground));
    }
    measurements.note("row.outlineOpacity" + state, opacity, side);
    measurements.note("row.outlineWidth" + state, picture.points(width), side);
}

void measureState(Measurements& measurements, const MeasuredPicture& picture, const MeasuredRow& row,
                  const std::string& state)
{
    const int fill = fillOf(picture, row);
    measurements.note("row.fillOpacity" + state, static_cast<double>(fill) / white);
    const int reach = picture.pixels(outlineReach);
    const int column = picture.pixels(emptyColumn);
    const auto note = [&](std::vector<int> levels, const std::string& side, bool leadsOut) {
        if (leadsOut)
            std::reverse(levels.begin(), levels.end());
        noteOutline(measurements, picture, levels, reach, fill, state, side);
    };
    const auto around = [reach](int edge) { return Span{edge - reach, edge + reach}; };
    note(picture.levelsOfColumn(column, around(row.rows.start)), "top", false);
    note(picture.levelsOfColumn(column, around(row.rows.end)), "bottom", true);
    note(picture.levelsOfRow(row.rows.middle(), around(row.columns.start)), "left", false);
    note(picture.levelsOfRow(row.rows.middle(), around(row.columns.end)), "right", true);
}

void measureStates(Measurements& measurements, double scale)
{
    BlackDesktop desktop(scale);
    desktop.copyAll({"C", "B", "A"});
    desktop.openPanel();
    const UUID first = desktop.item("A").id;
    const UUID second = desktop.item("B").id;
    desktop.view().selectItem(desktop.item("C").id);
    const auto rows = plainRows(desktop.picture(), 2);
    measureState(measurements, desktop.picture(), rows[0], "");
    desktop.view().pointerEntered(first);
    measureState(measurements, desktop.picture(), rows[0], ", hovered");
    desktop.view().selectItem(second);
    measureState(measurements, desktop.picture(), rows[1], ", selected");
    desktop.view().pointerEntered(second);
    measureState(measurements, desktop.picture(), rows[1], ", selected and hovered");
}

// What is drawn alone

/// The part of a Gaussian's weight that is below `deviations`.
double gaussianBelow(double deviations)
{
    return std::erfc(-deviations / std::numbers::sqrt2) / 2;
}

/// How dark a shadow is at a distance from the edge that it falls from, both in points.
struct ShadowSample {
    double distance;
    double darkness;
    double direction; ///< 1 below the row, -1 above it.
};

std::vector<ShadowSample> shadowSamples(double scale)
{
    constexpr QRectF rectangle(20, 20, 444, 52);
    QImage image((QSizeF(484, 92) * scale).toSize(), QImage::Format_ARGB32_Premultiplied);
    image.setDevicePixelRatio(scale);
    image.fill(Qt::white);
    QPainter painter(&image);
    PanelArtwork artwork;
    const RowText text = {RowTitle(QStringLiteral("T"), artwork.fonts(), 200), QStringLiteral("K"), {}};
    RowPainter(painter, artwork).drawRow(rectangle, textItem(), text, {});
    painter.end();
    const MeasuredPicture picture(image);
    const int top = picture.pixels(rectangle.top());
    const int bottom = picture.pixels(rectangle.bottom());
    std::vector<ShadowSample> samples;
    for (int pixel = picture.pixels(1); pixel < picture.pixels(14); ++pixel) {
        const double distance = picture.points(pixel + 0.5);
        const auto darkness = [&](int y) {
            return 1 - static_cast<double>(picture.level(picture.pixels(emptyColumn), y)) / white;
        };
        samples.push_back({distance, darkness(bottom + pixel), 1});
        samples.push_back({distance, darkness(top - 1 - pixel), -1});
    }
    return samples;
}

/// A shadow, and how far it is from what has been seen: a sum of squares.
struct FittedShadow {
    double blurRadius;
    double offset;
    double opacity;
    double error;
};

FittedShadow fittedShadow(const std::vector<ShadowSample>& samples, double blurRadius, double offset)
{
    double both = 0;
    double shapes = 0;
    double seen = 0;
    for (const ShadowSample& sample : samples) {
        const double shape = gaussianBelow((sample.direction * offset - sample.distance) / (blurRadius / 2));
        both += shape * sample.darkness;
        shapes += shape * shape;
        seen += sample.darkness * sample.darkness;
    }
    return {blurRadius, offset, both / shapes, seen - both * both / shapes};
}

void measureShadow(Measurements& measurements, double scale)
{
    const auto samples = shadowSamples(scale);
    constexpr double step = 0.05;
    std::optional<FittedShadow> best;
    for (double blurRadius = 2; blurRadius < 7; blurRadius += step) {
        for (double offset = 0; offset < 5; offset += step) {
            const FittedShadow shadow = fittedShadow(samples, blurRadius, offset);
            if (!best || shadow.error < best->error)
                best = shadow;
        }
    }
    measurements.note("row.shadowBlurRadius", best->blurRadius);
    measurements.note("row.shadowOffset", best->offset);
    measurements.note("row.shadowOpacity", best->opacity);
}

void measureGlyph(Measurements& measurements, double scale)
{
    QImage image((QSizeF(40, 40) * scale).toSize(), QImage::Format_ARGB32_Premultiplied);
    image.setDevicePixelRatio(scale);
    image.fill(Qt::black);
    QPainter painter(&image);
    PanelArtwork artwork;
    RowPainter(painter, artwork).drawPreviewIcon({4, 4}, textItem());
    painter.end();
    const MeasuredPicture picture(image);

    constexpr int halfFill = 15;
    const Span whole = {0, picture.width()};
    const Span columns = picture.brightColumns(whole, whole, halfFill).at(0);
    const Span rows = picture.brightRows(whole, whole, halfFill).at(0);
    measurements.note("preview.width", picture.points(columns.length()), "glyph");
    measurements.note("preview.height", picture.points(rows.length()), "glyph");
    const int fill = picture.level(columns.start + picture.pixels(2), rows.middle());
    measurements.note("preview.fillOpacity", static_cast<double>(fill) / white);
    measurements.note("preview.cornerRadius",
                      picture.points(radiusOf(picture.cornerInset(columns.start, rows.start, 0, fill))),
                      "glyph");

    const int ink = picture.brightest(columns, rows);
    const Span glyph = picture.brightRows(columns, rows, (fill + ink) / 2).at(0);
    measurements.note("preview.glyphSide, less the drawing's margins", picture.points(glyph.length()));
    measurements.note("preview.glyphPadding and the drawing's margin",
                      picture.points(glyph.start - rows.start));
    measurements.note("preview.glyphOpacity", static_cast<double>(ink - fill) / (white - fill));
}

void measureEmptyPanel(Measurements& measurements, double scale)
{
    BlackDesktop desktop(scale);
    desktop.openPanel();
    const MeasuredPicture picture = desktop.picture();
    measurements.note("panel.width", picture.points(picture.width()));
    measurements.note("panel.height of no entry", picture.points(picture.height()));
    measureCard(measurements, picture);
    measureCardsCorner(measurements, desktop);
    const int top = topOfList(scale);
    const int endOfHeadersTexts = measureHeader(measurements, picture);
    measurements.note("header.bottomPadding", picture.points(top - endOfHeadersTexts));
    measureEmptyState(measurements, picture, top);
}

class PanelMeasures : public testing::TestWithParam<double> {
protected:
    MeasuringFont font_;
};

TEST_P(PanelMeasures, AreThoseOfTheDesign)
{
    const double scale = GetParam();
    Measurements measurements;
    measurements.take("the empty panel", [&] { measureEmptyPanel(measurements, scale); });
    measurements.take("the tint", [&] { measureTint(measurements, scale); });
    measurements.take("the list", [&] { measureList(measurements, scale); });
    measurements.take("the list's end", [&] { measureEndOfList(measurements, scale); });
    measurements.take("a long title", [&] { measureLongTitle(measurements, scale); });
    measurements.take("a row's states", [&] { measureStates(measurements, scale); });
    measurements.take("the shadow", [&] { measureShadow(measurements, scale); });
    measurements.take("the glyph", [&] { measureGlyph(measurements, scale); });
    measurements.expectAsDesigned(scale);
}

INSTANTIATE_TEST_SUITE_P(AtScale, PanelMeasures, testing::Values(1.0, 1.25, 1.5, 2.0, 4.0),
                         [](const testing::TestParamInfo<double>& scale) {
                             return std::to_string(std::lround(scale.param * 100)) + "Percent";
                         });

} // namespace

} // namespace tessel::test
