#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <QtCore/QPointer>
#include <QtGui/QAccessible>
#include <QtGui/QImage>
#include <QtTest/QTest>
#include <QtWidgets/QLabel>
#include <QtWidgets/QLayout>

#include "ScreenSpace.h"
#include "Support/PanelDesktop.h"
#include "Support/Translations.h"
#include "Support/WindowOf.h"
#include "Windows/AccessibilityOnboardingView.h"

namespace tessel::test {

namespace {

using testing::ElementsAre;
using testing::IsEmpty;

class OnboardingViewTest : public testing::Test {
protected:
    void startUntrusted()
    {
        desktop.trust->isTrusted = false;
        desktop.relaunch();
    }
    QWidget& window() const { return windowOf(desktop.state->onboardingController); }

    PanelDesktop desktop;
};

} // namespace

TEST_F(OnboardingViewTest, IsNotThereWithThePermission)
{
    EXPECT_EQ(desktop.state->onboardingController, nullptr);
}

TEST_F(OnboardingViewTest, IsOneWindowInFrontWithoutThePermission)
{
    startUntrusted();
    EXPECT_TRUE(window().isVisible());
    EXPECT_EQ(window().windowTitle(), QStringLiteral("Setup Required"));
    EXPECT_EQ(QAccessible::queryAccessibleInterface(&window())->role(), QAccessible::Window);
    EXPECT_THAT(desktop.nativeWindows.orderedFront,
                ElementsAre(NativeWindowHandle{static_cast<std::uintptr_t>(window().winId())}));
    EXPECT_EQ(window().size(), QSize(430, 250));
    // Its title bar takes its place from the window's.
    const Point origin = screenSpace::toSeam({window().pos(), window().size()}).origin;
    EXPECT_NEAR(origin.x + 430 / 2.0, 720, 1);
    EXPECT_NEAR(origin.y + 250 / 2.0, 70 + (900 - 25 - 70) / 2.0, 1);
}

TEST_F(OnboardingViewTest, IsTitledAndClosableAndOfOneSize)
{
    startUntrusted();
    const Qt::WindowFlags flags = window().windowFlags();
    EXPECT_EQ(window().windowType(), Qt::Window);
    EXPECT_FALSE(flags.testFlag(Qt::FramelessWindowHint));
    EXPECT_TRUE(flags.testFlag(Qt::WindowTitleHint));
    EXPECT_TRUE(flags.testFlag(Qt::WindowCloseButtonHint));
    EXPECT_FALSE(flags.testFlag(Qt::WindowMinimizeButtonHint));
    EXPECT_FALSE(flags.testFlag(Qt::WindowMaximizeButtonHint));
    EXPECT_EQ(window().minimumSize(), QSize(430, 250));
    EXPECT_EQ(window().maximumSize(), QSize(430, 250));
}

TEST_F(OnboardingViewTest, SaysWhyAndHow)
{
    startUntrusted();
    std::vector<std::string> texts;
    for (const QLabel* label : window().findChildren<QLabel*>())
        texts.push_back(label->text().toStdString());
    EXPECT_THAT(texts, ElementsAre("Enable Accessibility Access",
                                   "Tessel Clipboard needs Accessibility permission to paste selected items "
                                   "automatically into other apps.",
                                   "How to enable it:", "1. Open Privacy & Security settings",
                                   "2. Go to Accessibility", "3. Turn on access for Tessel Clipboard"));
}

TEST_F(OnboardingViewTest, IsOpaqueInBothSchemes)
{
    startUntrusted();
    for (const ColorScheme scheme : {ColorScheme::light, ColorScheme::dark}) {
        desktop.appearance.change({scheme, std::nullopt, false});
        const QImage image = drawn(window());
        const QColor background = desktop.theme.colors().windowBackground;
        EXPECT_EQ(background.lightness() < 128, scheme == ColorScheme::dark);
        for (const QPoint place : {QPoint(0, 0), QPoint(429, 249), QPoint(5, 120)})
            EXPECT_EQ(image.pixelColor(place), background);
    }
}

TEST_F(OnboardingViewTest, NotNowDropsTheWindow)
{
    startUntrusted();
    const QPointer<QWidget> first = &window();
    button(window(), "Not now").click();
    EXPECT_EQ(desktop.state->onboardingController, nullptr);
    runMainLoop();
    EXPECT_TRUE(first.isNull());
}

TEST_F(OnboardingViewTest, TheOtherButtonAsksForThePermissionAndLeavesTheWindow)
{
    startUntrusted();
    desktop.log->forget();
    button(window(), "Open Accessibility Settings").click();
    EXPECT_EQ(desktop.workspace->openedURLs().size(), 1U);
    EXPECT_TRUE(window().isVisible());
}

TEST_F(OnboardingViewTest, ClosedByItsTitleBarKeepsItsController)
{
    startUntrusted();
    window().close();
    EXPECT_NE(desktop.state->onboardingController, nullptr);
    EXPECT_FALSE(desktop.state->onboardingController->isWindowVisible());
}

TEST_F(OnboardingViewTest, IsNotClosedByEscape)
{
    startUntrusted();
    QTest::keyClick(&window(), Qt::Key_Escape);
    EXPECT_TRUE(window().isVisible());
}

TEST_F(OnboardingViewTest, HasRoomForEveryTextInGerman)
{
    const Translations translations({QStringLiteral("de")});
    startUntrusted();
    window().ensurePolished();
    runMainLoop();
    for (const QLabel* label : window().findChildren<QLabel*>()) {
        EXPECT_GE(label->height(), label->heightForWidth(label->width())) << label->text().toStdString();
        EXPECT_GE(label->width(), 390) << label->text().toStdString();
    }
    EXPECT_LE(window().layout()->minimumSize().width(), 430);
    EXPECT_LE(window().layout()->heightForWidth(430), 250);
}

} // namespace tessel::test
