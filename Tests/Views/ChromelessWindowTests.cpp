#include <gtest/gtest.h>

#include <QtGui/QImage>
#include <QtGui/QMouseEvent>
#include <QtTest/QTest>
#include <QtWidgets/QPushButton>

#include "Support/PanelDesktop.h"
#include "Support/WindowOf.h"
#include "Windows/AnimatedBackground.h"
#include "Windows/ChromelessWindow.h"

namespace tessel::test {

namespace {

constexpr QSize windowSize(420, 520);
constexpr int rootHeight = 500;
constexpr int rootTop = 10;

/// A window with content of a known size.
class ChromelessWindowTest : public testing::Test {
protected:
    explicit ChromelessWindowTest(bool blendsAtFirst = true)
        : nativeWindows(blendsAtFirst)
    {
        appearance.change({ColorScheme::light, std::nullopt, true});
        content->setFixedSize(windowSize.width(), rootHeight);
    }

    void show()
    {
        window.move(100, 50);
        window.show();
        ASSERT_TRUE(QTest::qWaitForWindowExposed(&window, patience));
        runMainLoop();
    }

    QImage picture() { return drawn(window); }
    /// What is left of the window once the server has cut it.
    QRegion shape() const
    {
        QRegion region;
        for (const PixelRectangle& part : nativeWindows.shape)
            region += QRect(part.x, part.y, part.width, part.height);
        return region;
    }

    /// To its root, of which nothing that is left is translucent.
    void expectThatItIsCut()
    {
        const QRegion cut = shape();
        EXPECT_EQ(cut.boundingRect(), window.background().geometry());
        EXPECT_FALSE(cut.contains(QPoint(1, rootTop + 1)));
        const QImage image = picture();
        for (int y = 0; y < image.height(); ++y) {
            for (int x = 0; x < image.width(); ++x)
                ASSERT_TRUE(!cut.contains(QPoint(x, y)) || qAlpha(image.pixel(x, y)) == 255)
                    << x << ", " << y;
        }
    }

    void mouse(QEvent::Type type, QWidget& target, QPoint onScreen)
    {
        const Qt::MouseButton button = type == QEvent::MouseMove ? Qt::NoButton : Qt::LeftButton;
        const Qt::MouseButtons buttons =
            type == QEvent::MouseButtonRelease ? Qt::MouseButtons() : Qt::MouseButtons(Qt::LeftButton);
        QMouseEvent event(type, target.mapFromGlobal(onScreen), onScreen, button, buttons, Qt::NoModifier);
        QCoreApplication::sendEvent(&target, &event);
    }

    static constexpr int patience = 60'000; // Milliseconds.

    FakeAppearance appearance;
    WindowTheme theme{appearance};
    FakeNativeWindows nativeWindows;
    QWidget* content = new QWidget;
    ChromelessWindow window{QStringLiteral("Title"), content, windowSize, theme, nativeWindows};
};

int opacity(const QImage& image, int x, int y)
{
    return qAlpha(image.pixel(x, y));
}

} // namespace

TEST_F(ChromelessWindowTest, IsANormalWindowOfOneSizeWithoutATitleBar)
{
    EXPECT_EQ(window.windowType(), Qt::Window);
    EXPECT_TRUE(window.windowFlags().testFlag(Qt::FramelessWindowHint));
    EXPECT_EQ(window.windowTitle(), QStringLiteral("Title"));
    EXPECT_EQ(window.minimumSize(), windowSize);
    EXPECT_EQ(window.maximumSize(), windowSize);
    EXPECT_TRUE(window.testAttribute(Qt::WA_TranslucentBackground));
}

TEST_F(ChromelessWindowTest, HasItsRootInItsMiddle)
{
    show();
    EXPECT_EQ(window.background().geometry(), QRect(0, rootTop, windowSize.width(), rootHeight));
    EXPECT_EQ(content->mapTo(&window, QPoint()), QPoint(0, rootTop));
    EXPECT_EQ(content->size(), window.background().size());
}

TEST_F(ChromelessWindowTest, IsTransparentAroundItsRootAndOpaqueWithin)
{
    show();
    const QImage image = picture();
    for (const int y : {0, rootTop - 1, rootTop + rootHeight, windowSize.height() - 1}) {
        for (int x = 0; x < windowSize.width(); ++x)
            ASSERT_EQ(opacity(image, x, y), 0) << x << ", " << y;
    }
    for (const int y : {rootTop, rootTop + rootHeight - 1}) {
        for (const int x : {0, windowSize.width() - 1})
            EXPECT_EQ(opacity(image, x, y), 0) << x << ", " << y;
    }
    for (int y = rootTop + 30; y < rootTop + rootHeight - 30; ++y) {
        for (const int x : {0, 1, 210, windowSize.width() - 1})
            ASSERT_EQ(opacity(image, x, y), 255) << x << ", " << y;
    }
}

TEST_F(ChromelessWindowTest, HasAnOutlineOfOnePoint)
{
    for (const auto& [scheme, line, opacity] :
         {std::tuple{ColorScheme::dark, 255, 0.08}, std::tuple{ColorScheme::light, 0, 0.08}}) {
        appearance.change({scheme, std::nullopt, true});
        show();
        const QImage image = picture();
        const QColor ground = theme.colors().windowBackground;
        constexpr int y = 450; // No circle gets to the right edge here.
        const int right = windowSize.width() - 1;
        const double expected = ground.red() * (1 - opacity) + line * opacity;
        EXPECT_NEAR(qRed(image.pixel(right, y)), expected, 1.5);
        EXPECT_NEAR(qRed(image.pixel(right - 1, y)), ground.red(), 1.5);
    }
}

TEST_F(ChromelessWindowTest, LetsClicksThroughWhereItIsTransparent)
{
    show();
    const QRegion cut = shape();
    const QImage image = picture();
    for (int y = 0; y < image.height(); ++y) {
        for (int x = 0; x < image.width(); ++x)
            ASSERT_EQ(cut.contains(QPoint(x, y)), opacity(image, x, y) > 0) << x << ", " << y;
    }
}

/// Without a compositing manager when the window is made.
class CutWindowTest : public ChromelessWindowTest {
protected:
    CutWindowTest()
        : ChromelessWindowTest(false)
    {}
};

TEST_F(CutWindowTest, IsCutToItsRootAndCannotBeTranslucent)
{
    show();
    EXPECT_FALSE(window.testAttribute(Qt::WA_TranslucentBackground));
    expectThatItIsCut();
    // It stays as it is under a compositing manager that comes later.
    nativeWindows.blends = true;
    nativeWindows.tellBlending();
    expectThatItIsCut();
}

TEST_F(ChromelessWindowTest, FollowsACompositingManagerThatEndsAndComesBack)
{
    show();
    const QRegion before = shape();
    const QImage look = picture();
    nativeWindows.blends = false;
    nativeWindows.tellBlending();
    expectThatItIsCut();
    nativeWindows.blends = true;
    nativeWindows.tellBlending();
    EXPECT_EQ(shape(), before);
    EXPECT_EQ(picture(), look);
    window.hide();
    EXPECT_EQ(nativeWindows.tellBlending, nullptr);
}

TEST_F(ChromelessWindowTest, FollowsARootThatGrows)
{
    show();
    content->setFixedHeight(rootHeight - 100);
    ASSERT_TRUE(waitUntil([&] { return window.background().height() == rootHeight - 100; }));
    EXPECT_EQ(shape().boundingRect(), window.background().geometry());
}

TEST_F(ChromelessWindowTest, RestsWhileOthersCoverIt)
{
    appearance.change({ColorScheme::light, std::nullopt, false});
    show();
    EXPECT_TRUE(window.background().isDrifting());
    nativeWindows.tellOcclusion(true);
    EXPECT_FALSE(window.background().isDrifting());
    nativeWindows.tellOcclusion(false);
    EXPECT_TRUE(window.background().isDrifting());
    // Shown again it is in front of others.
    nativeWindows.tellOcclusion(true);
    window.hide();
    EXPECT_EQ(nativeWindows.tellOcclusion, nullptr);
    show();
    EXPECT_TRUE(window.background().isDrifting());
    nativeWindows.tellOcclusion(true);
    EXPECT_FALSE(window.background().isDrifting());
}

TEST_F(ChromelessWindowTest, IsMovedByItsBackground)
{
    show();
    const QPoint start = window.mapToGlobal(QPoint(200, 200));
    // A press goes to the view under the pointer, which passes it on.
    mouse(QEvent::MouseButtonPress, *content, start);
    mouse(QEvent::MouseMove, *content, start + QPoint(40, 30));
    mouse(QEvent::MouseMove, *content, start + QPoint(60, 50));
    mouse(QEvent::MouseButtonRelease, *content, start + QPoint(60, 50));
    EXPECT_EQ(window.pos(), QPoint(160, 100));
    mouse(QEvent::MouseMove, *content, start + QPoint(90, 90));
    EXPECT_EQ(window.pos(), QPoint(160, 100));
}

TEST_F(ChromelessWindowTest, StaysWhereItIsWhenAButtonIsDragged)
{
    QPushButton pushButton(content);
    pushButton.setGeometry(0, 0, 100, 40);
    show();
    const QPoint start = pushButton.mapToGlobal(QPoint(10, 10));
    mouse(QEvent::MouseButtonPress, pushButton, start);
    mouse(QEvent::MouseMove, pushButton, start + QPoint(60, 50));
    EXPECT_EQ(window.pos(), QPoint(100, 50));
}

} // namespace tessel::test
