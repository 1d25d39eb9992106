#include <cmath>
#include <numbers>
#include <optional>

#include <QtGui/QPainter>

#include "Fakes/FakeDesktop.h"
#include "Measures/MeasuredPicture.h"
#include "Measures/PanelMeasuring.h"
#include "Panel/RowPainter.h"

namespace tessel::test {

namespace {

ClipboardItem textItem()
{
    return {UUID::random(), std::make_shared<const std::string>("Text"), 0};
}

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
    RowPainter(painter, artwork).row(rectangle, textItem(), text, {});
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

} // namespace

void measureRowShadow(Measurements& measurements)
{
    const double scale = measurements.scale();
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

void measureGlyph(Measurements& measurements)
{
    const double scale = measurements.scale();
    QImage image((QSizeF(40, 40) * scale).toSize(), QImage::Format_ARGB32_Premultiplied);
    image.setDevicePixelRatio(scale);
    image.fill(Qt::black);
    QPainter painter(&image);
    PanelArtwork artwork;
    RowPainter(painter, artwork).previewIcon({4, 4}, textItem());
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

} // namespace tessel::test
