#include <algorithm>
#include <numbers>

#include "Measures/MeasuredDesktop.h"
#include "Measures/MeasuredRow.h"
#include "Measures/MeasuredText.h"
#include "Measures/MeasuringFont.h"
#include "Measures/PanelMeasuring.h"

namespace tessel::test {

namespace {

SharedImage whiteImage()
{
    Thumbnail thumbnail;
    thumbnail.pixels.assign(static_cast<std::size_t>(Thumbnail::side) * Thumbnail::side, 0xFFFFFFFF);
    auto image = FakeImage::withPNG("picture");
    image->setThumbnail(std::move(thumbnail));
    return image;
}

/// Is the entry of a row pinned?
enum class ItemPin { unpinned, pinned };

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

} // namespace

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

void measureEndOfList(Measurements& measurements)
{
    const double scale = measurements.scale();
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

void measureList(Measurements& measurements)
{
    const double scale = measurements.scale();
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

void measureLongTitles(Measurements& measurements)
{
    BlackDesktop desktop(measurements.scale());
    desktop.copy("Plain");
    desktop.copy(std::string(500, 'h'));
    desktop.copy(std::string(700, '|'));
    desktop.openPanel();
    desktop.view().selectItem(desktop.item("Plain").id);
    const MeasuredPicture picture = desktop.picture();
    // The titles leave a column free, just inside the rows' left edge. The caption begins right of it.
    const int column = picture.pixels(10);
    constexpr int halfFill = 13;
    const auto rows =
        picture.brightRows({column, column + 1}, {picture.pixels(cardEdge), picture.height()}, halfFill);
    const int fill = picture.level(column, rows.at(0).middle());
    const Span columns = {picture.pixels(rowEdge - outlineReach), picture.width() - picture.pixels(rowEdge)};
    const Span beginning = {columns.start, picture.pixels(60)}; // The ellipsis, which is tall, comes later.
    measurements.note("row.title.lines",
                      static_cast<double>(linesOfText(picture, beginning, rows.at(1), fill).size()) - 1);

    const Span thin = linesOfText(picture, beginning, rows.at(0), fill).at(0);
    const auto letters = picture.brightColumns(columns, thin, fill + 50); // Thin letters are pale.
    constexpr double lastGap = MeasuringFont::thinAdvance / 2 * 13.5;
    measurements.note("row.title.width",
                      picture.points(letters.back().end - letters.front().start) + lastGap);
}

} // namespace tessel::test
