// The program's windows where they are the system's own, and the toolkit only has their content.

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <QtCore/QPointer>
#include <QtGui/QImage>

#include "Panel/PanelFactory.h"
#include "Support/FakeWindowHost.h"
#include "Support/HostedWidget.h"
#include "Support/PanelDesktop.h"
#include "Windows/SecondaryWindows.h"

namespace tessel::test {

namespace {

using testing::ElementsAre;

class HostedWindows : public testing::Test {
protected:
    HostedWindows()
    {
        const SecondaryWindowNeeds needs = {desktop.theme, desktop.nativeWindows, *desktop.screens,
                                            *desktop.workspace, &host};
        desktop.quit();
        WindowFactory windows;
        windows.panel = hostedPanelFactory(host);
        windows.settings = settingsFactory(needs);
        windows.about = aboutFactory(needs);
        windows.onboarding = onboardingFactory(needs);
        desktop.state = AppState::create(desktop.platform(), windows);
        desktop.queue->runPending();
    }
    ~HostedWindows() override
    {
        // What the windows leave behind uses the host.
        desktop.quit();
        runMainLoop();
    }

    template <class Controller>
    static HostedWidget& content(const std::unique_ptr<Controller>& controller)
    {
        return dynamic_cast<HostedWidget&>(dynamic_cast<FakeHostedController&>(*controller).content());
    }
    HostedWidget& panel() const { return content(desktop.state->panelController); }
    ClipboardPanelView& panelView() const
    {
        return *dynamic_cast<ClipboardPanelWindow&>(panel().widget()).contentView();
    }

    FakeWindowHost host;
    PanelDesktop desktop;
};

} // namespace

TEST_F(HostedWindows, ThePanelIsMadeOfItsDescriptionAndItsContentHasThatSize)
{
    desktop.state->showPanel();
    EXPECT_THAT(host.panels, ElementsAre(Rect{{0, 0}, {460, 420}}));
    EXPECT_EQ(panel().widget().size(), QSize(460, 420));
    EXPECT_EQ(panel().view(), NativeWindowHandle{static_cast<std::uintptr_t>(panel().widget().winId())});
    EXPECT_TRUE(panel().widget().isVisible());
}

TEST_F(HostedWindows, TheMaterialIsTheSystemsAndActiveOnCreationAndOnEveryUpdate)
{
    desktop.state->showPanel();
    EXPECT_EQ(panel().background(), NativeWindowHandle{17});
    EXPECT_THAT(host.effectCalls, ElementsAre("cornerRadius 14",
                                              // On creation,
                                              "material 13", "blendingMode 0", "state 1",
                                              // and as the panel appears.
                                              "material 13", "blendingMode 0", "state 1"));
    host.effectCalls.clear();
    desktop.copy("A");
    runMainLoop();
    EXPECT_THAT(host.effectCalls, ElementsAre("material 13", "blendingMode 0", "state 1"));
}

TEST_F(HostedWindows, ThePanelDrawsNoMaterialOverTheSystems)
{
    desktop.state->panelTintOpacity = 0.5;
    desktop.state->showPanel();
    const QImage picture = drawn(panel().widget());
    // A place of the card with nothing on it but the tint, which is black.
    EXPECT_NEAR(picture.pixelColor(230, picture.height() - 20).alphaF(), 0.5, 0.02);
}

TEST_F(HostedWindows, ThePanelFollowsTheSizeThatTheSystemGivesItsView)
{
    desktop.state->showPanel();
    panel().widget().resize(460, 262);
    EXPECT_EQ(panelView().size(), QSize(460, 262));
}

TEST_F(HostedWindows, ClosingThePanelFromWithinLetsItsContentGoOnTheNextTurn)
{
    desktop.state->showPanel();
    const QPointer<QWidget> widget = &panel().widget();
    panelView().closePanel();
    EXPECT_EQ(desktop.state->panelController, nullptr);
    ASSERT_TRUE(widget);
    EXPECT_FALSE(widget->isVisible());
    runMainLoop();
    EXPECT_FALSE(widget);
}

TEST_F(HostedWindows, SettingsAndAboutHaveNoFrameAndTheirOwnSizes)
{
    desktop.state->showSettingsWindow();
    desktop.state->showAboutWindow();
    ASSERT_EQ(host.windows.size(), 2U);
    EXPECT_EQ(host.windows[0].frame, WindowDescription::Frame::none);
    EXPECT_EQ(host.windows[0].contentSize, (Size{420, 520}));
    EXPECT_EQ(host.windows[1].frame, WindowDescription::Frame::none);
    EXPECT_EQ(host.windows[1].contentSize, (Size{420, 340}));
    EXPECT_EQ(content(desktop.state->settingsController).background(), std::nullopt);
}

TEST_F(HostedWindows, OnboardingHasATitleBar)
{
    const SecondaryWindowNeeds needs = {desktop.theme, desktop.nativeWindows, *desktop.screens,
                                        *desktop.workspace, &host};
    const auto controller = onboardingFactory(needs)(*desktop.state);
    ASSERT_EQ(host.windows.size(), 1U);
    EXPECT_EQ(host.windows[0].frame, WindowDescription::Frame::titleBar);
    EXPECT_EQ(host.windows[0].title, "Setup Required");
    EXPECT_EQ(host.windows[0].contentSize, (Size{430, 250}));
}

} // namespace tessel::test
