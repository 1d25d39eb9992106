#include <cmath>

#include <gtest/gtest.h>

#include <QtGui/QImage>
#include <QtGui/QPainter>

#include "Panel/RowPainter.h"
#include "Support/ContinuousCorners.h"
#include "Support/PanelDesktop.h"

namespace tessel::test {

namespace {

constexpr int backdrop = 100; // The grey that the rows are drawn on.

/// White at an opacity over the backdrop.
int whiteOver(double opacity)
{
    return static_cast<int>(std::lround(backdrop + (255 - backdrop) * opacity));
}

class DrawnRow {
public:
    DrawnRow(const ClipboardItem& item, const RowAppearance& appearance, double scale,
             const QString& title = QStringLiteral("Title"))
        : scale_(scale)
        , image_(static_cast<int>(500 * scale), static_cast<int>(100 * scale),
                 QImage::Format_ARGB32_Premultiplied)
    {
        image_.setDevicePixelRatio(scale);
        image_.fill(qRgb(backdrop, backdrop, backdrop));
        QPainter painter(&image_);
        const RowText text = {RowTitle(title, artwork_.fonts(), 200), QStringLiteral("Kind"),
                              QStringLiteral("14:05")};
        RowPainter(painter, artwork_).row(rectangle, item, text, appearance);
    }

    /// The grey of a device pixel whose top left corner is that many pixels from the row's top left corner.
    int greyAt(double x, double y) const
    {
        return qGreen(image_.pixel(static_cast<int>(rectangle.x() * scale_ + x),
                                   static_cast<int>(rectangle.y() * scale_ + y)));
    }
    QColor colorAt(double x, double y) const
    {
        return image_.pixelColor(static_cast<int>((rectangle.x() + x) * scale_),
                                 static_cast<int>((rectangle.y() + y) * scale_));
    }

    /// The part of the picture that is not the row.
    QImage surroundings() const
    {
        QImage image = image_;
        QPainter(&image).fillRect(rectangle, Qt::black);
        return image;
    }

    static constexpr QRectF rectangle{20, 20, 444, 52};

private:
    double scale_;
    PanelArtwork artwork_;
    QImage image_;
};

ClipboardItem textItem()
{
    return {UUID::random(), std::make_shared<const std::string>("Title"), 0};
}

/// The grey levels of one device pixel may differ by what rounding in each of three layers makes of them.
constexpr int rounding = 2;

} // namespace

TEST(RowDrawing, FillsByHoverAndOutlinesBySelection)
{
    struct Case {
        RowAppearance appearance;
        double fill;
        double outline;
    };
    const std::vector<Case> cases = {
        {{}, 0.10, 0.10},
        {{.isHovered = true}, 0.14, 0.10},
        {{.isSelected = true}, 0.10, 0.55},
        {{.isSelected = true, .isHovered = true}, 0.14, 0.55},
    };
    for (const auto& [appearance, fill, outline] : cases) {
        const DrawnRow row(textItem(), appearance, 2);
        const double fillGrey = whiteOver(fill);
        const double outlineGrey = fillGrey + (255 - fillGrey) * outline;
        EXPECT_NEAR(row.greyAt(500, 60), fillGrey, rounding);
        EXPECT_NEAR(row.greyAt(500, 0), outlineGrey, rounding);
        EXPECT_NEAR(row.greyAt(500, 3), fillGrey, rounding);
    }
}

TEST(RowDrawing, OutlinesSharplyAtEveryScale)
{
    // Device pixels inside the edge that the selected outline covers wholly, and that it leaves alone.
    struct Case {
        double scale;
        int covered;
        int free;
    };
    for (const auto& [scale, covered, free] : std::vector<Case>{{1, 1, 2}, {1.5, 1, 3}, {2, 2, 3}}) {
        const DrawnRow row(textItem(), {.isSelected = true}, scale);
        const int fillGrey = whiteOver(0.10);
        const double outlineGrey = fillGrey + (255 - fillGrey) * 0.55;
        for (int pixel = 0; pixel < covered; ++pixel)
            EXPECT_NEAR(row.greyAt(250 * scale, pixel), outlineGrey, rounding) << scale;
        EXPECT_NEAR(row.greyAt(250 * scale, free), fillGrey, rounding) << scale;
    }
}

TEST(RowDrawing, ThrowsItsShadowDownwardsAndNotUnderItself)
{
    const DrawnRow row(textItem(), {}, 1);
    const int below = row.greyAt(250, 53);
    const int above = row.greyAt(250, -3);
    EXPECT_LT(below, backdrop - 8);
    EXPECT_LT(below, above);
    EXPECT_NEAR(row.greyAt(250, 62), backdrop, 1);
    EXPECT_NEAR(row.greyAt(250, 40), whiteOver(0.10), rounding);
}

TEST(RowDrawing, KeepsItsTextsToItself)
{
    const QString stacked = QChar(u'a') + QString(40, QChar(0x0301));
    for (const double scale : {1.0, 1.25, 2.0}) {
        const DrawnRow plain(textItem(), {}, scale);
        EXPECT_EQ(DrawnRow(textItem(), {}, scale, stacked).surroundings(), plain.surroundings()) << scale;
    }
}

TEST(RowDrawing, ShowsAnImagesThumbnailInItsFrame)
{
    Thumbnail thumbnail;
    for (int y = 0; y < Thumbnail::side; ++y) {
        for (int x = 0; x < Thumbnail::side; ++x)
            thumbnail.pixels.push_back(x < Thumbnail::side / 2 ? 0xFFFF0000U : 0xFF0000FFU);
    }
    const auto image = FakeImage::withPNG("picture");
    image->setThumbnail(std::move(thumbnail));
    for (const double scale : {1.0, 2.0}) {
        const DrawnRow row({UUID::random(), image, 0}, {}, scale);
        EXPECT_EQ(row.colorAt(10 + 8, 9 + 16), QColor(255, 0, 0));
        EXPECT_EQ(row.colorAt(10 + 24, 9 + 16), QColor(0, 0, 255));
        EXPECT_EQ(row.colorAt(10 + 15.5, 9 + 1), QColor(255, 0, 0));
        EXPECT_NE(row.colorAt(10, 9), QColor(255, 0, 0)); // The corner is round,
        EXPECT_NEAR(row.colorAt(9, 25).red(), whiteOver(0.10),
                    rounding); // and nothing lies outside the frame.
        EXPECT_NEAR(row.colorAt(42.5, 25).red(), whiteOver(0.10), rounding);
    }
}

TEST(RowDrawing, ShowsEachPixelOfAThumbnailAtTwiceTheScale)
{
    Thumbnail stripes;
    for (int pixel = 0; pixel < Thumbnail::side * Thumbnail::side; ++pixel)
        stripes.pixels.push_back(pixel % 2 == 0 ? 0xFF000000U : 0xFFFFFFFFU);
    const auto image = FakeImage::withPNG("picture");
    image->setThumbnail(std::move(stripes));
    const DrawnRow large({UUID::random(), image, 0}, {}, 2);
    for (int column = 0; column < Thumbnail::side; ++column)
        EXPECT_EQ(large.greyAt(20 + column, 18 + 32), column % 2 == 0 ? 0 : 255) << column;
    const DrawnRow small({UUID::random(), image, 0}, {}, 1);
    for (int column = 1; column < 31; ++column)
        EXPECT_NEAR(small.greyAt(10 + column, 9 + 16), 128, rounding) << column;
}

TEST(RowDrawing, FillsTheFrameOfAnImageWithoutAPicture)
{
    const DrawnRow row({UUID::random(), FakeImage::withPNG("picture"), 0}, {}, 1);
    const int fillGrey = whiteOver(0.10);
    EXPECT_NEAR(row.colorAt(26, 25).red(), fillGrey + (255 - fillGrey) * 0.12, rounding);
}

TEST(RowDrawing, ProvidesAGlyphForTexts)
{
    PanelArtwork artwork;
    QImage image(32, 32, QImage::Format_ARGB32_Premultiplied);
    image.fill(Qt::black);
    QPainter painter(&image);
    RowPainter(painter, artwork).previewIcon({0, 0}, textItem());
    painter.end();
    EXPECT_EQ(image.pixelColor(0, 0), QColor(Qt::black));
    EXPECT_NEAR(image.pixelColor(3, 16).red(), 255 * 0.12, rounding);
    EXPECT_NEAR(image.pixelColor(16, 23).red(), 255 * (0.12 + 0.88 * 0.75), rounding);
}

TEST(RowDrawing, ShowsThePinBetweenKindAndTime)
{
    const DrawnRow plain(textItem(), {}, 1);
    const DrawnRow pinned(textItem(), {.isPinned = true}, 1);
    const double middle = DrawnRow::rectangle.height() - 9 - 6;
    int kindEnd = 0;
    int firstDifference = 0;
    for (int x = 10; x < 200 && firstDifference == 0; ++x) {
        for (double y = middle - 8; y < middle + 6; ++y) {
            if (plain.greyAt(x, y) != pinned.greyAt(x, y))
                firstDifference = x;
            else if (plain.greyAt(x, y) > whiteOver(0.10) + 20)
                kindEnd = x;
        }
    }
    EXPECT_GT(firstDifference, 20);
    EXPECT_GT(firstDifference, kindEnd);
}

TEST(RowDrawing, WritesSectionTitlesInCapitals)
{
    const auto header = [](const QString& title) {
        QImage image(200, 40, QImage::Format_ARGB32_Premultiplied);
        image.fill(qRgb(backdrop, backdrop, backdrop));
        QPainter painter(&image);
        PanelArtwork artwork;
        RowPainter(painter, artwork).sectionHeader(QRectF(image.rect()), title);
        return image;
    };
    for (const auto& [title, capitals] : {std::pair{"Pinned", "PINNED"}, std::pair{"Recent", "RECENT"}})
        EXPECT_EQ(header(QString::fromLatin1(title)), header(QString::fromLatin1(capitals)));
    EXPECT_NE(header(QStringLiteral("Pinned")), header(QStringLiteral("Recent")));
}

TEST(ContinuousCorners, PassTheCirclesPointOnTheDiagonal)
{
    const QRectF square(0, 0, 100, 100);
    const double inset = 20 * (1 - std::sqrt(0.5));
    const QPainterPath path = continuousRoundedRectangle(square, 20);
    EXPECT_TRUE(path.contains(QPointF(inset + 0.05, inset + 0.05)));
    EXPECT_FALSE(path.contains(QPointF(inset - 0.05, inset - 0.05)));
    EXPECT_EQ(path.boundingRect(), square);
}

TEST(ContinuousCorners, LeaveTheEdgeEarlierThanACircle)
{
    const QPainterPath path = continuousRoundedRectangle({0, 0, 100, 100}, 20);
    EXPECT_FALSE(path.contains(QPointF(20, 0.1)));
    EXPECT_TRUE(path.contains(QPointF(continuousCornerExtent(20) + 0.1, 0.1)));
}

TEST(ContinuousCorners, HaveNoJumpInTheirCurvature)
{
    const QPainterPath path = continuousRoundedRectangle({0, 0, 100, 100}, 20);
    const double length = path.length();
    constexpr double step = 0.25;
    double sharpest = 0;
    double curvatureBefore = 0;
    const auto angleAt = [&](double distance) { return path.angleAtPercent(path.percentAtLength(distance)); };
    for (double distance = step; distance < length / 4; distance += step) {
        const double turn = std::remainder(angleAt(distance) - angleAt(distance - step), 360);
        const double curvature = std::abs(turn) * std::acos(-1.0) / 180 / step;
        EXPECT_NEAR(curvature, curvatureBefore, 0.012) << "at " << distance; // A circle's is 0.05.
        curvatureBefore = curvature;
        sharpest = std::max(sharpest, curvature);
    }
    EXPECT_LT(sharpest, 1.4 / 20);
}

TEST(ContinuousCorners, MakeACapsuleOfHalfTheHeight)
{
    const QPainterPath capsule = continuousRoundedRectangle({0, 0, 60, 20}, 10);
    for (int degrees = 0; degrees <= 90; degrees += 10) {
        const double angle = degrees * std::acos(-1.0) / 180;
        const QPointF onCircle(10 - std::cos(angle) * 10, 10 - std::sin(angle) * 10);
        EXPECT_TRUE(capsule.contains(onCircle + QPointF(0.05, 0.05))) << degrees;
        EXPECT_FALSE(capsule.contains(onCircle - QPointF(0.05, 0.05))) << degrees;
    }
}

TEST(CardDrawing, HasRoundTransparentCornersAndAnOutline)
{
    PanelDesktop desktop;
    desktop.defaults->setDouble(AppState::panelOpacityKey, 1);
    desktop.relaunch();
    desktop.openPanel();
    const QImage image = drawn(desktop.window());
    EXPECT_EQ(image.pixelColor(0, 0).alpha(), 0);
    EXPECT_EQ(image.pixelColor(459, 219).alpha(), 0);
    EXPECT_EQ(image.pixelColor(230, 100), QColor(Qt::black));
    EXPECT_NEAR(image.pixelColor(230, 0).red(), 255 * 0.14, rounding);
    EXPECT_NEAR(image.pixelColor(0, 110).red(), 255 * 0.14, rounding);
    EXPECT_EQ(image.pixelColor(230, 1), QColor(Qt::black));
}

} // namespace tessel::test
