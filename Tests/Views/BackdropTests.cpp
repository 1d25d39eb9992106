// What is behind a material: how it is blurred and darkened, and where the panel has it from.

#include <algorithm>
#include <cmath>
#include <cstdlib>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <QtGui/QPaintEvent>
#include <QtGui/QPainter>
#include <QtGui/QRegion>
#include <QtGui/QWindow>

#include "Panel/ColorView.h"
#include "Panel/PanelStyle.h"
#include "Panel/VisualEffectBlurView.h"
#include "Support/Backdrop.h"
#include "Support/ContinuousCorners.h"
#include "Support/PanelDesktop.h"
#include "Support/RoundedRegion.h"

namespace tessel::test {

namespace {

constexpr int reduction = 8;
constexpr double deviation = 20;
const MaterialColor dark = {QColor(19, 19, 22), 0.87F};

/// A reduced picture whose left half has one colour and whose right half another.
QImage halves(const QColor& left, const QColor& right, const QSize& size = {60, 40})
{
    QImage image(size, QImage::Format_RGB32);
    image.fill(left);
    QPainter painter(&image);
    painter.fillRect(size.width() / 2, 0, size.width() / 2, size.height(), right);
    return image;
}

QImage under(const QImage& reduced, const QRect& rectangle, const MaterialColor& material = dark)
{
    return Backdrop(reduced, {0, 0}, reduction, deviation).under(material, rectangle);
}

int difference(QRgb one, QRgb other)
{
    return std::max({std::abs(qRed(one) - qRed(other)), std::abs(qGreen(one) - qGreen(other)),
                     std::abs(qBlue(one) - qBlue(other))});
}

/// The average of one channel, which dithering leaves as it is.
double average(const QImage& image, const QRect& part, int (*channel)(QRgb))
{
    double sum = 0;
    for (int y = part.top(); y <= part.bottom(); ++y) {
        for (int x = part.left(); x <= part.right(); ++x)
            sum += channel(image.pixel(x, y));
    }
    return sum / (part.width() * part.height());
}

std::uint32_t redThenGreen(int x, int)
{
    return x < 230 ? 0xFFFF0000 : 0xFF00FF00;
}

} // namespace

TEST(Backdrop, IsTheMaterialsOwnColourOverBlack)
{
    const QImage image = under(halves(Qt::black, Qt::black), {0, 0, 480, 320});
    EXPECT_NEAR(average(image, image.rect(), qRed), 19 * 0.87, 0.1);
    EXPECT_NEAR(average(image, image.rect(), qBlue), 22 * 0.87, 0.1);
}

TEST(Backdrop, LetsWhiteThroughAsTheMaterialsOpacitySays)
{
    const QImage image = under(halves(Qt::white, Qt::white), {0, 0, 480, 320});
    EXPECT_NEAR(average(image, image.rect(), qGreen), 19 * 0.87 + 255 * 0.13, 0.1);
}

TEST(Backdrop, ShowsMoreOfAPhotographsMiddleThanItsOpacitySays)
{
    const QImage image = under(halves(QColor(64, 64, 64), QColor(64, 64, 64)), {0, 0, 480, 320});
    EXPECT_GT(average(image, image.rect(), qGreen), 19 * 0.87 + 64 * 0.13 + 3);
}

TEST(Backdrop, IsLessColourfulThanWhatIsBehind)
{
    const QImage image = under(halves(Qt::red, Qt::red), {0, 0, 480, 320});
    const QColor colour = image.pixelColor(240, 160);
    EXPECT_LT(colour.hsvSaturationF(), 0.85F);
    EXPECT_GT(colour.hsvSaturationF(), 0.4F);
    EXPECT_GT(colour.red(), colour.green() + 10);
}

TEST(Backdrop, HasNoEdgesAndIsWhatIsBehindOnTheLargeScale)
{
    const QImage image = under(halves(Qt::red, Qt::green), {0, 0, 480, 320});
    for (int y = 1; y < image.height(); ++y) {
        for (int x = 1; x < image.width(); ++x) {
            ASSERT_LE(difference(image.pixel(x, y), image.pixel(x - 1, y)), 2) << x << ',' << y;
            ASSERT_LE(difference(image.pixel(x, y), image.pixel(x, y - 1)), 2) << x << ',' << y;
        }
    }
    EXPECT_GT(image.pixelColor(100, 160).red(), image.pixelColor(100, 160).green() + 10);
    EXPECT_GT(image.pixelColor(380, 160).green(), image.pixelColor(380, 160).red() + 10);
}

TEST(Backdrop, BlursAsFarAsItsDeviationSays)
{
    // Across an edge between black and white a Gaussian blur has 84.1 and 15.9 per cent of white one
    // deviation away from it, and half on it.
    const QImage image = under(halves(Qt::black, Qt::white), {0, 0, 480, 320});
    const auto lightAt = [&](int x) {
        const double shown = average(image, {x - 1, 0, 2, image.height()}, qGreen);
        return std::pow((shown - 19 * 0.87) / (255 * 0.13), 1 / 0.75);
    };
    EXPECT_NEAR(lightAt(240), 0.5, 0.02);
    EXPECT_NEAR(lightAt(240 + 20), 0.841, 0.03);
    EXPECT_NEAR(lightAt(240 - 20), 0.159, 0.03);
}

TEST(Backdrop, HasNoStepsWhereItChangesSlowly)
{
    // Black and a dark grey are a few levels apart; between them each level is mixed with the next.
    const QImage image = under(halves(Qt::black, QColor(12, 12, 12)), {0, 0, 480, 320});
    int mixedColumns = 0;
    for (int x = 200; x < 280; ++x) {
        const double level = average(image, {x, 0, 1, 320}, qGreen);
        mixedColumns += std::abs(level - std::round(level)) > 0.1 ? 1 : 0;
    }
    EXPECT_GE(mixedColumns, 40);
}

TEST(Backdrop, ContinuesBeyondWhatIsKnown)
{
    const Backdrop backdrop(halves(Qt::red, Qt::green), {30, 0}, reduction, deviation);
    const QImage image = backdrop.under(dark, {0, 0, 800, 600});
    EXPECT_LE(difference(image.pixel(0, 100), image.pixel(32, 100)), 2);
    EXPECT_LE(difference(image.pixel(799, 599), image.pixel(500, 310)), 2);
}

TEST(Backdrop, IsReducedByAboutEightPointsAtEveryScale)
{
    EXPECT_EQ(backdropReduction(1), 8);
    EXPECT_EQ(backdropReduction(1.25), 8);
    EXPECT_EQ(backdropReduction(1.5), 8);
    EXPECT_EQ(backdropReduction(2), 16);
    EXPECT_EQ(backdropReduction(3), 16);
}

TEST(RoundedRegion, HasTheCoveredPixelsAndNoOthers)
{
    for (const int leastCoverage : {1, 128, 255}) {
        QRegion region;
        for (const auto& part : roundedRegion({101, 80}, 21, leastCoverage)) {
            const QRect rectangle(part.x, part.y, part.width, part.height);
            EXPECT_FALSE(region.intersects(rectangle));
            region += rectangle;
        }
        QImage shape(101, 80, QImage::Format_ARGB32_Premultiplied);
        shape.fill(Qt::transparent);
        QPainter painter(&shape);
        painter.setRenderHint(QPainter::Antialiasing);
        painter.fillPath(continuousRoundedRectangle(shape.rect(), 21), Qt::black);
        for (int y = 0; y < 80; ++y) {
            for (int x = 0; x < 101; ++x) {
                const int coverage = qAlpha(shape.pixel(x, y));
                // The painter may round the two sides of a shape apart, by a level.
                if (coverage > 0 && std::abs(coverage - leastCoverage) <= 1)
                    continue;
                ASSERT_EQ(region.contains(QPoint(x, y)), coverage >= leastCoverage)
                    << x << ',' << y << ' ' << leastCoverage;
            }
        }
    }
}

// The panel

TEST(PanelBackdrop, ShowsThePictureOfTheScreenWhereNobodyBlurs)
{
    for (const bool blends : {true, false}) {
        PanelDesktop desktop;
        desktop.nativeWindows.blends = blends;
        desktop.nativeWindows.screen = redThenGreen;
        desktop.openPanel();
        const QImage panel = drawn(desktop.window());
        const QColor left = panel.pixelColor(40, 190);
        const QColor right = panel.pixelColor(420, 190);
        EXPECT_GT(left.red(), left.green() + 8);
        EXPECT_GT(right.green(), right.red() + 8);
        EXPECT_EQ(left.alpha(), 255);
        EXPECT_TRUE(desktop.nativeWindows.blurred.empty());
    }
}

TEST(PanelBackdrop, LeavesTheBlurToACompositorThatOffersIt)
{
    PanelDesktop desktop;
    desktop.nativeWindows.blurs = true;
    desktop.nativeWindows.screen = redThenGreen;
    desktop.openPanel();
    EXPECT_EQ(desktop.nativeWindows.picturesTaken, 0);
    EXPECT_EQ(desktop.nativeWindows.blurred, roundedRegion({460, 220}, 14, 128));
    EXPECT_LT(drawn(desktop.window()).pixelColor(40, 190).alpha(), 255);

    desktop.copyAll({"A", "B", "C"});
    runMainLoop();
    EXPECT_EQ(desktop.nativeWindows.blurred, roundedRegion({460, 334}, 14, 128));

    // The next opening is without it.
    desktop.application->setActive(false);
    desktop.nativeWindows.blurs = false;
    desktop.openPanel();
    EXPECT_TRUE(desktop.nativeWindows.blurred.empty());
    EXPECT_GT(desktop.nativeWindows.picturesTaken, 0);
}

TEST(PanelBackdrop, IsAPlainFillWhereTheScreenCannotBeSeen)
{
    PanelDesktop desktop;
    desktop.openPanel();
    const QColor translucent = drawn(desktop.window()).pixelColor(40, 190);
    EXPECT_LT(translucent.alpha(), 255);
    EXPECT_GT(translucent.alpha(), 200);
    desktop.application->setActive(false);
    desktop.nativeWindows.blends = false;
    desktop.openPanel();
    const QColor opaque = drawn(desktop.window()).pixelColor(40, 190);
    EXPECT_EQ(opaque.alpha(), 255);
    EXPECT_LE(opaque.lightness(), 40);
}

TEST(PanelBackdrop, StaysWhileThePanelIsMovedAndContinuesWhenItGrows)
{
    PanelDesktop desktop;
    desktop.nativeWindows.screen = redThenGreen;
    desktop.openPanel();
    const QImage before = drawn(desktop.window());
    const int picturesTaken = desktop.nativeWindows.picturesTaken;
    desktop.window().move(desktop.window().pos() + QPoint(31, 17));
    runMainLoop();
    EXPECT_EQ(drawn(desktop.window()), before);

    desktop.copyAll({"A", "B"});
    runMainLoop();
    EXPECT_EQ(desktop.nativeWindows.picturesTaken, picturesTaken);
    const QImage after = drawn(desktop.window());
    ASSERT_EQ(after.height(), 262);
    EXPECT_EQ(after.pixel(40, 60), before.pixel(40, 60));
    EXPECT_GT(after.pixelColor(40, 256).red(), after.pixelColor(40, 256).green() + 8);
    EXPECT_GT(after.pixelColor(440, 256).green(), after.pixelColor(440, 256).red() + 8);
}

TEST(PanelBackdrop, IsDarkenedByTheTintWhileItChanges)
{
    PanelDesktop desktop;
    desktop.nativeWindows.screen = [](int, int) { return 0xFFFFFFFF; };
    desktop.openPanel();
    constexpr double bare = 19 * 0.87 + 255 * 0.13;
    const auto shown = [&] { return drawn(desktop.window()).pixelColor(40, 190); };
    for (const double tint : {0.1, 0.4, 0.7}) {
        desktop.state->panelTintOpacity = tint;
        runMainLoop();
        EXPECT_NEAR(shown().green(), bare * (1 - tint), 1.5) << tint;
    }
    // The ends of the tint, which no setting reaches: the bare material, and an opaque black card.
    auto& tint = *desktop.window().findChild<ColorView*>();
    tint.setColor(panelStyle::black(0));
    EXPECT_NEAR(shown().green(), bare, 1);
    tint.setColor(panelStyle::black(1));
    EXPECT_EQ(shown(), QColor(Qt::black));
}

TEST(PanelBackdrop, IsBlendedWithTheDesktopInTheCornersWithoutACompositor)
{
    PanelDesktop desktop;
    desktop.nativeWindows.blends = false;
    desktop.nativeWindows.screen = [](int, int) { return 0xFFFFFFFF; };
    desktop.openPanel();
    EXPECT_EQ(desktop.nativeWindows.shape, roundedRegion({460, 220}, 14, 1));
    const auto expectBlendedCorners = [&] {
        const QImage opaque = drawn(desktop.window());
        for (const QPoint& corner :
             {QPoint(0, 0), QPoint(opaque.width() - 1, 0), QPoint(0, opaque.height() - 1),
              QPoint(opaque.width() - 1, opaque.height() - 1)})
            EXPECT_EQ(opaque.pixelColor(corner), QColor(Qt::white)) << corner.x() << ',' << corner.y();
    };
    expectBlendedCorners();
    const QImage opaque = drawn(desktop.window());
    desktop.application->setActive(false);

    // A compositor would have blended the same.
    desktop.nativeWindows.blends = true;
    desktop.openPanel();
    desktop.application->setActive(true);
    const QImage translucent = drawn(desktop.window());
    QImage composed(translucent.size(), QImage::Format_ARGB32_Premultiplied);
    composed.fill(Qt::white);
    QPainter(&composed).drawImage(0, 0, translucent);
    for (int y = 0; y < 30; ++y) {
        for (int x = 0; x < 30; ++x)
            ASSERT_LE(difference(opaque.pixel(x, y), composed.pixel(x, y)), 2) << x << ',' << y;
    }
    desktop.application->setActive(false);

    desktop.nativeWindows.blends = false;
    desktop.openPanel();
    desktop.copyAll({"A", "B", "C"});
    runMainLoop();
    expectBlendedCorners();
}

TEST(PanelBackdrop, ACornerThatMovesToWhereThePanelIsHasNoPictureOfIt)
{
    constexpr std::uint32_t whereThePanelIs = 0xFF00FF00;
    PanelDesktop desktop;
    desktop.nativeWindows.blends = false;
    desktop.nativeWindows.screen = [](int, int) { return 0xFFFFFFFF; };
    // There is room for any panel below the pointer: its upper edge stays.
    desktop.screens->pointer = {400, 800};
    desktop.copyAll({"A", "B", "C", "D", "E", "F"});
    desktop.openPanel();
    const QSize large = desktop.window().size();
    desktop.nativeWindows.screen = [&](int x, int y) {
        return QRect(QPoint(), large).contains(x, y) ? whereThePanelIs : 0xFFFFFFFF;
    };
    desktop.view().clearAll();
    desktop.copyAll({"G"});
    runMainLoop();
    ASSERT_LT(desktop.window().height(), large.height());
    const QImage panel = drawn(desktop.window());
    EXPECT_EQ(panel.pixelColor(0, 0), QColor(Qt::white));
    EXPECT_EQ(panel.pixelColor(0, panel.height() - 1).alpha(), 0);
    // The shape has no pixel that cannot be blended.
    EXPECT_EQ(desktop.nativeWindows.shape, roundedRegion(desktop.window().size(), 14, 128));
}

TEST(PanelBackdrop, AHiddenPanelKeepsNoPictureOfTheScreen)
{
    PanelDesktop desktop;
    desktop.nativeWindows.blends = false;
    desktop.nativeWindows.screen = redThenGreen;
    const auto redness = [&] {
        const QColor colour = drawn(desktop.window()).pixelColor(40, 190);
        return colour.red() - colour.green();
    };
    for (int opening = 0; opening < 2; ++opening) {
        desktop.application->setActive(true);
        desktop.openPanel();
        EXPECT_GT(redness(), 8);
        EXPECT_EQ(drawn(desktop.window()).pixelColor(0, 0), QColor(Qt::red));
        desktop.application->setActive(false);
        ASSERT_FALSE(desktop.window().isVisible());
        EXPECT_LE(redness(), 0);
        EXPECT_EQ(drawn(desktop.window()).pixelColor(0, 0).alpha(), 0);
    }
}

// The view

namespace {

/// Notes what a view was asked to paint at last, and how often it was.
class PaintWatch : public QObject {
public:
    explicit PaintWatch(QWidget& view) { view.installEventFilter(this); }
    QRect painted;
    int count = 0;

private:
    bool eventFilter(QObject*, QEvent* event) override
    {
        if (event->type() == QEvent::Paint) {
            painted = static_cast<QPaintEvent*>(event)->rect();
            ++count;
        }
        return false;
    }
};

/// A window with a light and a dark half, and a material in its middle.
class WithinWindow : public testing::Test {
protected:
    WithinWindow()
    {
        window_.resize(400, 200);
        left_->setGeometry(0, 0, 200, 200);
        right_->setGeometry(200, 0, 200, 200);
        left_->setColor(Qt::red);
        right_->setColor(Qt::green);
        view_->setGeometry(40, 20, 320, 160);
        above_->setGeometry(40, 20, 20, 20);
        above_->setColor(Qt::blue);
        window_.show();
    }

    QWidget window_;
    ColorView* left_ = new ColorView(&window_);
    ColorView* right_ = new ColorView(&window_);
    VisualEffectView* view_ =
        VisualEffectBlurView{VisualEffectMaterial::hudWindow, VisualEffectBlendingMode::withinWindow}
            .makeView(&window_);
    ColorView* above_ = new ColorView(&window_);
};

} // namespace

TEST_F(WithinWindow, WhatIsBeneathTheViewShowsThroughBlurred)
{
    const QImage image = drawn(window_);
    for (int x = 61; x < 360; ++x)
        ASSERT_LE(difference(image.pixel(x, 100), image.pixel(x - 1, 100)), 2) << x;
    const QColor left = image.pixelColor(80, 100);
    const QColor right = image.pixelColor(320, 100);
    EXPECT_GT(left.red(), left.green() + 10);
    EXPECT_GT(right.green(), right.red() + 10);
    EXPECT_EQ(image.pixelColor(20, 100), QColor(Qt::red));
    // What lies above it is not behind it.
    EXPECT_EQ(image.pixelColor(45, 25), QColor(Qt::blue));
    EXPECT_LT(image.pixelColor(62, 42).blue(), image.pixelColor(62, 42).red() - 10);
}

TEST_F(WithinWindow, AChangeBeneathIsSeenBeyondItsEdges)
{
    ASSERT_TRUE(waitUntil([&] { return window_.windowHandle()->isExposed(); }));
    runMainLoop();
    PaintWatch watch(*view_);
    left_->update(QRect(100, 100, 4, 4));
    EXPECT_TRUE(waitUntil([&] { return watch.painted == view_->rect(); }));
}

TEST_F(WithinWindow, AClippedViewIsNotPaintedForEver)
{
    view_->resize(800, 160);
    ASSERT_TRUE(waitUntil([&] { return window_.windowHandle()->isExposed(); }));
    runMainLoop();
    PaintWatch watch(*view_);
    left_->update(QRect(100, 100, 4, 4));
    ASSERT_TRUE(waitUntil([&] { return watch.count > 0; }));
    // Whatever waits to be painted is painted together with these.
    PaintWatch beside(*left_);
    for (int round = 1; round <= 10; ++round) {
        const int before = beside.count;
        left_->update(QRect(0, 0, 4, 4));
        ASSERT_TRUE(waitUntil([&] { return beside.count > before; }));
    }
    EXPECT_LE(watch.count, 4);
}

TEST(VisualEffectView, ShowsANewMaterialAfterAnUpdateAndIsStillActive)
{
    QWidget window;
    window.resize(100, 100);
    QPalette palette = window.palette();
    palette.setColor(QPalette::Window, QColor(230, 220, 210));
    window.setPalette(palette);
    using enum VisualEffectBlendingMode;
    VisualEffectView& view =
        *VisualEffectBlurView{VisualEffectMaterial::hudWindow, behindWindow}.makeView(&window);
    view.resize(100, 100);
    view.setBackdrop(
        std::make_shared<Backdrop>(halves(Qt::white, Qt::white), QPoint(), reduction, deviation));
    EXPECT_LT(drawn(view).pixelColor(50, 50).lightness(), 60);
    VisualEffectBlurView{VisualEffectMaterial::windowBackground, behindWindow}.updateView(view);
    EXPECT_GT(drawn(view).pixelColor(50, 50).lightness(), 200);
    EXPECT_EQ(view.state(), VisualEffectState::active);
}

TEST(VisualEffectView, IsDrawnTheSameInAWindowWithoutTheFocusOnlyWhileItIsActive)
{
    QWidget window;
    window.resize(100, 100);
    VisualEffectView& view =
        *VisualEffectBlurView{VisualEffectMaterial::hudWindow, VisualEffectBlendingMode::behindWindow}
             .makeView(&window);
    view.resize(100, 100);
    view.setBackdrop(
        std::make_shared<Backdrop>(halves(Qt::white, Qt::white), QPoint(), reduction, deviation));
    ASSERT_FALSE(view.isActiveWindow());
    const QImage active = drawn(view);
    EXPECT_GT(active.pixelColor(50, 50).lightness(), 40);
    view.setState(VisualEffectState::followsWindowActiveState);
    EXPECT_LT(drawn(view).pixelColor(50, 50).lightness(), 25);
    VisualEffectBlurView{VisualEffectMaterial::hudWindow, VisualEffectBlendingMode::behindWindow}.updateView(
        view);
    EXPECT_EQ(drawn(view), active);
}

} // namespace tessel::test
