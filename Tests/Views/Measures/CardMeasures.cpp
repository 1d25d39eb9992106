#include <algorithm>
#include <numeric>

#include "Measures/MeasuredDesktop.h"
#include "Measures/MeasuredText.h"
#include "Measures/PanelMeasuring.h"
#include "Panel/VisualEffectView.h"

namespace tessel::test {

namespace {

void measureCard(Measurements& measurements, const MeasuredPicture& card)
{
    const int middle = card.pixels(180); // Below the empty state's texts.
    const auto outline = card.levelsOfRow(middle, {0, card.pixels(cardEdge)});
    const int full = *std::max_element(outline.begin(), outline.end());
    measurements.note("card.outlineOpacity", static_cast<double>(full) / white);
    measurements.note("card.outlineWidth",
                      card.points(std::accumulate(outline.begin(), outline.end(), 0.0) / full));
}

void measureCardsCorner(Measurements& measurements, BlackDesktop& desktop)
{
    QImage shape = desktop.drawnOver(Qt::transparent).convertToFormat(QImage::Format_Alpha8);
    shape.reinterpretAsFormat(QImage::Format_Grayscale8);
    const MeasuredPicture card(shape);
    measurements.note("card.cornerRadius", card.points(radiusOf(card.cornerInset(0, 0, 0, white))));
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

} // namespace

void measureTint(Measurements& measurements)
{
    const double scale = measurements.scale();
    for (const auto& [tint, name] : {std::pair{0.0, "0"}, std::pair{0.37, "0.37"}, std::pair{1.0, "1"}}) {
        TintedDesktop desktop(tint, scale);
        desktop.openPanel();
        desktop.window().findChild<VisualEffectView*>()->hide();
        const MeasuredPicture card(desktop.drawnOver(Qt::white));
        const int level = card.level(card.pixels(emptyColumn), card.pixels(180));
        measurements.note(std::string("card.tintOpacity of ") + name, 1 - static_cast<double>(level) / white);
    }
}

void measureEmptyPanel(Measurements& measurements)
{
    const double scale = measurements.scale();
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

} // namespace tessel::test
