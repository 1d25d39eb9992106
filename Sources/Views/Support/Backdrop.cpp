#include "Support/Backdrop.h"

#include <algorithm>
#include <bit>
#include <cmath>
#include <utility>
#include <vector>

#include "Support/OrderedDither.h"

namespace tessel {

namespace {

/// What is left of the difference between a colour and the grey of its brightness. That is more than what is
/// left of the brightness: it is by colours that what is behind is seen in the dark.
constexpr float colourfulness = 0.17F;
constexpr float brightest = 255;

/// Rec. 709, which sRGB shares.
float greyOf(float red, float green, float blue)
{
    return 0.2126F * red + 0.7152F * green + 0.0722F * blue;
}

/// One channel of a material over a grey. At black and at white its opacity alone decides; in between, where
/// photographs are, more is seen.
float materialOver(float behind, float base, float opacity)
{
    const float light = std::sqrt(behind / brightest);
    const float lifted = light * std::sqrt(light);
    return base * opacity + (1 - opacity) * brightest * lifted;
}

std::array<float, 3> channelsOf(const QColor& color)
{
    return {static_cast<float>(color.red()), static_cast<float>(color.green()),
            static_cast<float>(color.blue())};
}

std::array<Plane, 3> channelsOf(const QImage& picture)
{
    std::array<Plane, 3> channels;
    for (Plane& channel : channels)
        channel = {picture.width(), picture.height(), {}};
    const QImage image = picture.convertToFormat(QImage::Format_RGB32);
    for (int y = 0; y < image.height(); ++y) {
        const auto* line = reinterpret_cast<const QRgb*>(image.constScanLine(y));
        for (int x = 0; x < image.width(); ++x) {
            channels[0].values.push_back(static_cast<float>(qRed(line[x])));
            channels[1].values.push_back(static_cast<float>(qGreen(line[x])));
            channels[2].values.push_back(static_cast<float>(qBlue(line[x])));
        }
    }
    return channels;
}

/// Two neighbours of a small picture and how much of the second one a pixel between them has.
struct Between {
    int first;
    int second;
    float share;
};

/// Where a device pixel lies along an axis of the small picture.
Between between(int pixel, int corner, int reduction, int count)
{
    const double place = (pixel - corner + 0.5) / reduction - 0.5;
    const double inside = std::clamp(place, 0.0, static_cast<double>(count - 1));
    const int first = static_cast<int>(inside);
    return {first, std::min(first + 1, count - 1), static_cast<float>(inside - first)};
}

/// A row of a small picture drawn out to its full width.
void stretch(const float* row, const std::vector<Between>& columns, float* target)
{
    for (const Between& column : columns)
        *target++ = row[column.first] + (row[column.second] - row[column.first]) * column.share;
}

/// What is added before the fraction is cut off, so that a slow transition between two levels is a mixture of
/// both and not a step: the ordered dither of Bayer's 8 x 8 matrix.
std::vector<float> ditherRow(int y, int width)
{
    std::vector<float> row;
    for (int x = 0; x < width; ++x)
        row.push_back(orderedDither(x, y));
    return row;
}

/// The rows of the three channels above and below a pixel row, at full width.
class StretchedRows {
public:
    StretchedRows(const std::array<Plane, 3>& channels, std::vector<Between> columns)
        : channels_(channels)
        , columns_(std::move(columns))
    {
        for (auto& rows : rows_)
            rows.values.resize(3 * columns_.size());
    }

    const float* row(int y)
    {
        for (const Row& known : rows_) {
            if (known.y == y)
                return known.values.data();
        }
        Row& oldest = rows_[0].y < rows_[1].y ? rows_[0] : rows_[1];
        oldest.y = y;
        for (std::size_t channel = 0; channel < channels_.size(); ++channel)
            stretch(channels_[channel].row(y), columns_, oldest.values.data() + channel * columns_.size());
        return oldest.values.data();
    }

private:
    struct Row {
        int y = -1;
        std::vector<float> values; ///< All of red, all of green, all of blue.
    };
    const std::array<Plane, 3>& channels_;
    std::vector<Between> columns_;
    std::array<Row, 2> rows_;
};

void mix(QRgb* target, const float* above, const float* below, float share, const float* dither, int width)
{
    const auto level = [&](int channel, int x) {
        const int place = channel * width + x;
        return static_cast<unsigned int>(
            static_cast<int>(above[place] + (below[place] - above[place]) * share + dither[x]));
    };
    for (int x = 0; x < width; ++x)
        target[x] = 0xFF000000U | level(0, x) << 16 | level(1, x) << 8 | level(2, x);
}

} // namespace

QColor MaterialColor::translucent() const
{
    QColor color = base;
    color.setAlphaF(opacity);
    return color;
}

QColor MaterialColor::opaque() const
{
    constexpr float middlingGrey = 128;
    const auto channels = channelsOf(base);
    const auto over = [&](float channel) {
        return static_cast<int>(std::lround(materialOver(middlingGrey, channel, opacity)));
    };
    return {over(channels[0]), over(channels[1]), over(channels[2])};
}

int backdropReduction(double devicePixelRatio)
{
    constexpr unsigned int points = 8;
    return static_cast<int>(std::bit_floor(static_cast<unsigned int>(points * devicePixelRatio)));
}

Backdrop::Backdrop(const QImage& reduced, QPoint corner, int reduction, double blurDeviation)
    : channels_(channelsOf(reduced))
    , corner_(corner)
    , reduction_(reduction)
{
    for (Plane& channel : channels_)
        channel = blurred(channel, blurDeviation / reduction, BeyondEdges::continued);
}

QImage Backdrop::under(const MaterialColor& material, const QRect& rectangle) const
{
    std::array<Plane, 3> shown = channels_;
    const auto base = channelsOf(material.base);
    for (std::size_t cell = 0; cell < shown[0].values.size(); ++cell) {
        const float grey = greyOf(shown[0].values[cell], shown[1].values[cell], shown[2].values[cell]);
        for (std::size_t channel = 0; channel < shown.size(); ++channel) {
            float& value = shown[channel].values[cell];
            value = materialOver(grey, base[channel], material.opacity) + (value - grey) * colourfulness;
            value = std::clamp(value, 0.0F, brightest - 1);
        }
    }

    std::vector<Between> columns;
    for (int x = rectangle.left(); x <= rectangle.right(); ++x)
        columns.push_back(between(x, corner_.x(), reduction_, shown[0].width));
    StretchedRows rows(shown, std::move(columns));
    constexpr int ditherSide = 8;
    std::array<std::vector<float>, ditherSide> dither;
    for (int y = 0; y < ditherSide; ++y)
        dither[static_cast<std::size_t>(y)] = ditherRow(y, rectangle.width());

    QImage image(rectangle.size(), QImage::Format_RGB32);
    for (int y = 0; y < image.height(); ++y) {
        const Between place = between(rectangle.top() + y, corner_.y(), reduction_, shown[0].height);
        const float* above = rows.row(place.first);
        const float* below = rows.row(place.second);
        mix(reinterpret_cast<QRgb*>(image.scanLine(y)), above, below, place.share,
            dither[static_cast<std::size_t>(y % ditherSide)].data(), image.width());
    }
    return image;
}

} // namespace tessel
