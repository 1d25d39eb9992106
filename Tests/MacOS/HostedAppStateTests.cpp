// The whole state on the macOS backend, with windows of the system's own.

#include "Support/AppStateTest.h"

namespace tessel::test {
namespace {

class HostedAppStateTests : public AppStateTest {
protected:
    /// The panel is made and opens over that application, with an empty history.
    void openHostedPanel(const std::string& frontmostApplication)
    {
        expectFrontmostApplication(frontmostApplication);
        expectContentViewController("{460, 420}");
        expectPanel();
        expectPlacedAndShown();
        runNextBlock();
        expectNoMore();
    }

    /// The panel that is there opens again over that application.
    void openHostedPanelAgain(const std::string& frontmostApplication)
    {
        expectFrontmostApplication(frontmostApplication);
        expectPlacedAndShown();
        runNextBlock();
        expectNoMore();
    }

    /// A press of the hot key closes the panel.
    void closeHostedPanel()
    {
        press();
        expectVisible(true);
        expectClose();
        expectCall("dispatch_async(main queue, ^)");
        runNextBlock();
        EXPECT_EQ(state->panelController, nullptr);
        expectCall("content.end()");
        runNextBlock();
        endTurn();
    }

    /// Whether the window can be seen is asked of a window that is there.
    void expectVisible(bool isVisible)
    {
        expectCall("[controller window]", true);
        expectCall("[panel isVisible]", isVisible);
    }

    void expectShown()
    {
        expectCall("content.windowWillShow()");
        expectCall("[controller showWindow:nil]");
    }

    /// The window opens, comes forward when it is opened again, and closes.
    void openTwiceAndClose(void (AppState::*show)(), std::unique_ptr<WindowController> AppState::*controller,
                           const std::string& size)
    {
        expectChromelessWindow(size);
        for (int openings = 0; openings < 2; ++openings) {
            expectShown();
            expectActivation();
            (*state.*show)();
            expectNoMore();
        }
        expectClose();
        (*state.*controller)->close();
        retire(*state.*controller);
    }

    void expectFrontmostApplication(const std::string& name)
    {
        expectCall("[NSWorkspace sharedWorkspace]", Object{"workspace"});
        expectCall("[workspace frontmostApplication]", Object{name});
    }

    void expectPlacedAndShown()
    {
        expectCall("[controller window]", true);
        expectCall("[panel setContentSize:{460, 220}]");
        expectCall("[controller window]", true);
        expectScreenUnderPointer();
        expectCall("[panel frame]", Numbers{{0, 0, 460, 220}});
        expectCall("[panel setFrameOrigin:{412, 368}]");
        expectShownInFront();
    }

    void expectShownInFront()
    {
        expectShown();
        expectActivation();
        expectCall("[panel makeKeyAndOrderFront:nil]");
        expectCall("[panel makeFirstResponder:content]", true);
    }
};

TEST_F(HostedAppStateTests, TheHotKeyOpensAndClosesAPanelThatIsMadeAnewForEachOpening)
{
    launch(0, hostedWindows());
    for (int openings = 0; openings < 2; ++openings) {
        press();
        openHostedPanel("editor");
        closeHostedPanel();
    }
}

TEST_F(HostedAppStateTests, APanelThatTheSystemHasHiddenIsShownAgainOverTheApplicationThatIsInFrontNow)
{
    launch(0, hostedWindows());
    press();
    openHostedPanel("editor");
    press();
    expectVisible(false); // As while the application is inactive.
    openHostedPanelAgain("browser");
    closeHostedPanel();
}

TEST_F(HostedAppStateTests, APanelWithoutAWindowIsOpenedAndNeitherSizedNorPlaced)
{
    launch(0, hostedWindows());
    press();
    openHostedPanel("editor");
    press();
    expectCall("[controller window]", false);
    expectFrontmostApplication("browser");
    expectCall("[controller window]", false);
    expectCall("[controller window]", false);
    expectShownInFront();
    runNextBlock();
    expectNoMore();
    closeHostedPanel();
}

TEST_F(HostedAppStateTests, TheSettingsAreOneWindowThatIsShownBeforeTheApplicationIsActivated)
{
    launch(0, hostedWindows());
    openTwiceAndClose(&AppState::showSettingsWindow, &AppState::settingsController, "{420, 520}");
}

TEST_F(HostedAppStateTests, TheAboutWindowIsOneWindowThatIsShownBeforeTheApplicationIsActivated)
{
    launch(0, hostedWindows());
    openTwiceAndClose(&AppState::showAboutWindow, &AppState::aboutController, "{420, 340}");
}

TEST_F(HostedAppStateTests, WithoutTrustATitledWindowIsShownBeforeTheApplicationIsActivated)
{
    expectStart();
    state = AppState::create(makeSystemPlatform(imageFingerprint), hostedWindows());
    expectCall("AXIsProcessTrusted()", false);
    expectTitledWindow("Setup Required");
    expectShown();
    expectActivation();
    runNextBlock();
    expectNoMore();
    endTurn();

    expectClose();
    state->onboardingController->close();
    retire(state->onboardingController);
}

} // namespace
} // namespace tessel::test
