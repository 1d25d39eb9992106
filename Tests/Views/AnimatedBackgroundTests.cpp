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
    QColor purple;
};
const Scheme darkScheme = {ColorScheme::dark, {0.16, 0.11}, {191, 90, 242}};
const Scheme lightScheme = {ColorScheme::light, {0.12, 0.09}, {175, 82, 222}};

/// Told apart from purple by its green.
constexpr SystemColor accent = {0.0, 1.0, 0.0};
const QColor accentColor(0, 255, 0);

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

/// How far a picture lies beside its design, by least squares. Many pixels tell it more exactly than a level
/// of each could.
class Displacement {
public:
    void add(double difference, double slope)
    {
        product_ -= difference * slope;
        square_ += slope * slope;
    }
    double points() const { return product_ / square_; }

private:
    double product_ = 0;
    double square_ = 0;
};

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
    void expectCircles(const Scheme& scheme, double phase, int scale = 1, double tolerance = 1.8)
    {
        SCOPED_TRACE(::testing::Message() << "phase " << phase << ", scale " << scale);
        const QImage image = picture(scale);
        const QColor ground = theme.colors().windowBackground;
        const std::array<Plane, 2> coverage = {designedCoverage(designedCircles[0], phase),
                                               designedCoverage(designedCircles[1], phase)};
        const auto level = [&](int below, int first, int second, QPoint place) {
            double result = below;
            for (const auto& [circle, color] : {std::pair{0U, first}, std::pair{1U, second}}) {
                const QPoint inPlane = place + QPoint(rootSize.width(), rootSize.height()) / 2;
                const double share = static_cast<double>(coverage[circle].row(inPlane.y())[inPlane.x()]) *
                                     scheme.opacities[circle];
                result = color * share + result * (1 - share);
            }
            return result;
        };
        // By red and green: whichever tells a circle best counts most.
        Displacement across;
        Displacement down;
        constexpr int margin = 20;
        constexpr int step = 5;
        for (int y = margin; y < rootSize.height() - margin; y += step) {
            for (int x = margin; x < rootSize.width() - margin; x += step) {
                const QRgb pixel = image.pixel(x * scale, y * scale);
                const std::array<int, 2> seen = {qRed(pixel), qGreen(pixel)};
                for (std::size_t channel = 0; channel < seen.size(); ++channel) {
                    const auto designed = [&](int right, int below) {
                        return channel == 0 ? level(ground.red(), accentColor.red(), scheme.purple.red(),
                                                    {x + right, y + below})
                                            : level(ground.green(), accentColor.green(),
                                                    scheme.purple.green(), {x + right, y + below});
                    };
                    constexpr double levels = 2.6; // Two dithers, and the roundings of two mixtures.
                    const double difference = seen[channel] - designed(0, 0);
                    ASSERT_NEAR(difference, 0, levels) << "at " << x << ", " << y;
                    across.add(difference, (designed(1, 0) - designed(-1, 0)) / 2);
                    down.add(difference, (designed(0, 1) - designed(0, -1)) / 2);
                }
            }
        }
        EXPECT_NEAR(across.points(), 0, tolerance);
        EXPECT_NEAR(down.points(), 0, tolerance);
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
    // A quarter of the time is less than that of the way on the curve 0.42, 0, 0.58, 1.
    constexpr double eased = 0.129;
    constexpr double andHalfAStep = 3.2;
    background.driftTo(1.5);
    expectCircles(darkScheme, eased, 1, andHalfAStep);
    background.driftTo(4.5);
    expectCircles(darkScheme, 1 - eased, 1, andHalfAStep);
    background.driftTo(7.5);
    expectCircles(darkScheme, 1 - eased, 1, andHalfAStep);
    background.driftTo(12);
    expectCircles(darkScheme, 0);
    background.driftTo(12'000 + 6);
    expectCircles(darkScheme, 1);
}

TEST_F(AnimatedBackgroundTest, ChangesNoPixelByMoreThanALevelWithOneStep)
{
    choose(darkScheme);
    QImage before = picture();
    double largest = 0;
    constexpr double tick = 0.02;
    for (int frame = 1; frame * tick <= 6; ++frame) {
        background.driftTo(frame * tick);
        const QImage now = picture();
        for (int x = 30; x < rootSize.width() - 30; x += 7) {
            // A mean over the dither's square tells how bright it looks.
            double change = 0;
            for (int y = 100; y < 108; ++y) {
                for (int dx = 0; dx < 8; ++dx)
                    change += qGreen(now.pixel(x + dx, y)) - qGreen(before.pixel(x + dx, y));
            }
            largest = std::max(largest, std::abs(change) / 64);
        }
        before = now;
    }
    EXPECT_LE(largest, 1);
    EXPECT_GT(largest, 0);
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

TEST(WindowColors, HaveThePurpleOfTheirScheme)
{
    for (const Scheme& scheme : {darkScheme, lightScheme}) {
        QColor purple = windowColors({scheme.scheme, std::nullopt, false}, {}).secondCircle;
        EXPECT_NEAR(purple.alphaF(), scheme.opacities[1], 0.001);
        purple.setAlpha(255);
        EXPECT_EQ(purple, scheme.purple);
    }
}

} // namespace tessel::test
