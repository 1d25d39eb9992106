#include <array>
#include <cmath>

#include <gtest/gtest.h>

#include <QtGui/QImage>
#include <QtGui/QPainter>
#include <QtGui/QWindow>

#include "Support/FakeAppearance.h"
#include "Support/GaussianBlur.h"
#include "Support/PaintCounter.h"
#include "Support/PanelDesktop.h"
#include "Windows/AnimatedBackground.h"
#include "Windows/WindowTheme.h"

namespace tessel::test {

namespace {

constexpr QSize rootSize(420, 500);

/// A circle as it was designed. Lengths are points, places from the middle of the root.
struct DesignedCircle {
    double diameter;
    double blurDeviation;
    QPointF start;
    QPointF end;
};
constexpr std::array designedCircles = {
    DesignedCircle{220, 42, {96, -96}, {132, -132}},
    DesignedCircle{180, 40, {-92, 82}, {-132, 112}},
};

struct Scheme {
    ColorScheme scheme;
    std::array<double, 2> opacities;
};
constexpr Scheme darkScheme = {ColorScheme::dark, {0.16, 0.11}};
constexpr Scheme lightScheme = {ColorScheme::light, {0.12, 0.09}};

constexpr SystemColor accent = {0.2, 0.8, 0.4};
const QColor accentColor = QColor::fromRgbF(0.2F, 0.8F, 0.4F);
const QColor purple(175, 82, 222);

/// How much of a circle there is in each pixel of the root, one to a point.
Plane designedCoverage(const DesignedCircle& circle, double phase)
{
    // Twice as large, so that the circle and its blur are inside.
    const QSize size = rootSize * 2;
    QImage shape(size, QImage::Format_Alpha8);
    shape.fill(0);
    QPainter painter(&shape);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setBrush(Qt::black);
    painter.setPen(Qt::NoPen);
    const QPointF center =
        QRectF(QPointF(), size).center() + circle.start + (circle.end - circle.start) * phase;
    painter.drawEllipse(center, circle.diameter / 2, circle.diameter / 2);
    painter.end();
    Plane plane{size.width(), size.height(), {}};
    for (int y = 0; y < size.height(); ++y) {
        for (int x = 0; x < size.width(); ++x)
            plane.values.push_back(static_cast<float>(shape.constScanLine(y)[x]) / 255);
    }
    return blurred(plane, circle.blurDeviation, BeyondEdges::nothing);
}

class AnimatedBackgroundTest : public testing::Test {
protected:
    AnimatedBackgroundTest() { background.setFixedSize(rootSize); }

    void choose(const Scheme& scheme, bool reducesMotion = false)
    {
        appearance.change({scheme.scheme, accent, reducesMotion});
    }

    QImage picture(int scale = 1)
    {
        QImage image(rootSize * scale, QImage::Format_ARGB32_Premultiplied);
        image.setDevicePixelRatio(scale);
        image.fill(Qt::transparent);
        background.render(&image, {}, {}, QWidget::DrawChildren);
        return image;
    }

    /// Compares with the design on a grid of pixels, away from the edges.
    void expectCircles(const Scheme& scheme, double phase, int scale = 1)
    {
        const QImage image = picture(scale);
        const QColor ground = theme.colors().windowBackground;
        std::array<Plane, 2> coverage = {designedCoverage(designedCircles[0], phase),
                                         designedCoverage(designedCircles[1], phase)};
        constexpr int margin = 20;
        constexpr int step = 13;
        for (int y = margin; y < rootSize.height() - margin; y += step) {
            for (int x = margin; x < rootSize.width() - margin; x += step) {
                const auto share = [&](std::size_t circle) {
                    const float covered =
                        coverage[circle].row(y + rootSize.height() / 2)[x + rootSize.width() / 2];
                    return static_cast<double>(covered) * scheme.opacities[circle];
                };
                const auto over = [](double below, double above, double opacity) {
                    return above * opacity + below * (1 - opacity);
                };
                const auto level = [&](int below, int first, int second) {
                    return over(over(below, first, share(0)), second, share(1));
                };
                const QRgb seen = image.pixel(x * scale, y * scale);
                constexpr double tolerance = 2.6; // Two dithers, and the roundings of two mixtures.
                const auto place = ::testing::Message() << "at " << x << ", " << y << ", phase " << phase;
                EXPECT_NEAR(qRed(seen), level(ground.red(), accentColor.red(), purple.red()), tolerance)
                    << place;
                EXPECT_NEAR(qGreen(seen), level(ground.green(), accentColor.green(), purple.green()),
                            tolerance)
                    << place;
                EXPECT_NEAR(qBlue(seen), level(ground.blue(), accentColor.blue(), purple.blue()), tolerance)
                    << place;
            }
        }
    }

    FakeAppearance appearance;
    WindowTheme theme{appearance};
    AnimatedBackground background{new QWidget, theme};
};

} // namespace

TEST_F(AnimatedBackgroundTest, BeginsWithTheCirclesInTheirFirstPlaces)
{
    for (const Scheme& scheme : {darkScheme, lightScheme}) {
        choose(scheme);
        expectCircles(scheme, 0);
        expectCircles(scheme, 0, 2);
    }
}

TEST_F(AnimatedBackgroundTest, HasTheCirclesInTheirLastPlacesAfterSixSeconds)
{
    for (const Scheme& scheme : {darkScheme, lightScheme}) {
        choose(scheme);
        background.driftTo(6);
        expectCircles(scheme, 1);
        expectCircles(scheme, 1, 2);
    }
}

TEST_F(AnimatedBackgroundTest, EasesInAndOutAndComesBackForEver)
{
    choose(darkScheme);
    background.driftTo(3);
    expectCircles(darkScheme, 0.5);
    // A quarter of the time is an eighth of the way on the curve 0.42, 0, 0.58, 1.
    background.driftTo(1.5);
    expectCircles(darkScheme, 0.125);
    background.driftTo(4.5);
    expectCircles(darkScheme, 0.875);
    background.driftTo(7.5);
    expectCircles(darkScheme, 0.875);
    background.driftTo(12);
    expectCircles(darkScheme, 0);
    background.driftTo(12'000 + 6);
    expectCircles(darkScheme, 1);
}

TEST_F(AnimatedBackgroundTest, ChangesNoPixelByMoreThanALevelWithOneStep)
{
    choose(darkScheme);
    QImage before = picture();
    int largest = 0;
    constexpr double tick = 0.02;
    for (int frame = 1; frame * tick <= 6; ++frame) {
        background.driftTo(frame * tick);
        const QImage now = picture();
        for (int x = 30; x < rootSize.width() - 30; x += 7) {
            // A mean over the dither's square tells how bright it looks.
            double change = 0;
            for (int y = 100; y < 108; ++y) {
                for (int dx = 0; dx < 8; ++dx)
                    change += qGray(now.pixel(x + dx, y)) - qGray(before.pixel(x + dx, y));
            }
            largest = std::max(largest, static_cast<int>(std::floor(std::abs(change) / 64)));
        }
        before = now;
    }
    EXPECT_LE(largest, 1);
}

TEST_F(AnimatedBackgroundTest, IsPaintedAnewOnlyWhereACircleHasTakenAStep)
{
    choose(darkScheme, true); // Nothing but the test moves it.
    background.show();
    ASSERT_TRUE(waitUntil([&] { return background.windowHandle()->isExposed(); }));
    runMainLoop();
    PaintCounter paints(background);
    background.driftTo(0.1);
    runMainLoop();
    EXPECT_EQ(paints.count(), 0);
    background.driftTo(3);
    runMainLoop();
    EXPECT_TRUE(waitUntil([&] { return paints.count() == 1; }));
}

TEST_F(AnimatedBackgroundTest, DriftsWhileItCanBeSeen)
{
    choose(darkScheme);
    EXPECT_FALSE(background.isDrifting());
    const QImage first = picture();
    background.show();
    EXPECT_TRUE(waitUntil([&] { return background.isDrifting(); }));
    EXPECT_TRUE(waitUntil([&] { return picture() != first; }));
    background.hide();
    EXPECT_FALSE(background.isDrifting());
    background.show();
    EXPECT_TRUE(waitUntil([&] { return background.isDrifting(); }));
}

TEST_F(AnimatedBackgroundTest, StandsStillWhereTheUserWantsLittleMotion)
{
    choose(darkScheme, true);
    background.show();
    ASSERT_TRUE(waitUntil([&] { return background.windowHandle()->isExposed(); }));
    runMainLoop();
    EXPECT_FALSE(background.isDrifting());
    expectCircles(darkScheme, 0);
    choose(darkScheme, false);
    EXPECT_TRUE(background.isDrifting());
    choose(darkScheme, true);
    EXPECT_FALSE(background.isDrifting());
}

TEST_F(AnimatedBackgroundTest, FollowsTheThemeAtOnce)
{
    choose(lightScheme);
    background.show();
    ASSERT_TRUE(waitUntil([&] { return background.windowHandle()->isExposed(); }));
    runMainLoop();
    choose(darkScheme, true);
    PaintCounter paints(background);
    choose(lightScheme, true);
    runMainLoop();
    EXPECT_TRUE(waitUntil([&] { return paints.count() == 1; }));
}

} // namespace tessel::test
