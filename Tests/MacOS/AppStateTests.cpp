// The whole state on the macOS backend: what the system receives, in its order.

#include <memory>
#include <string>
#include <utility>

#include "AppKitWindowHost.h"
#include "AppState.h"
#include "History/ImageFingerprint.h"
#include "Support/ScriptedContent.h"
#include "Support/ScriptedWindows.h"
#include "Support/System.h"
#include "Support/WindowTest.h"
#include "SystemPlatform.h"

namespace tessel::test {
namespace {

class AppStateTests : public WindowTest {
protected:
    ~AppStateTests() override
    {
        if (state)
            quit();
    }

    void expectNoSecret()
    {
        expectCall("[pasteboard availableTypeFromArray:@[@\"org.nspasteboard.ConcealedType\", "
                   "@\"org.nspasteboard.TransientType\"]]",
                   Nil{});
    }

    void expectStart(std::int64_t loginItemStatus)
    {
        expectCall("[NSPasteboard generalPasteboard]", Object{"pasteboard"});
        expectCall("[NSUserDefaults standardUserDefaults]", Object{"defaults"});
        expectCall("[SMAppService mainAppService]", Object{"service"});
        expectCall("[service status]", loginItemStatus);
        expectCall("[defaults objectForKey:@\"tesselclipboard.quickClearPolicy\"]", Nil{});
        expectCall("[defaults objectForKey:@\"tesselclipboard.quickClearCustomSeconds\"]", Nil{});
        expectCall("[defaults objectForKey:@\"tesselclipboard.hotKeyPreset\"]", Nil{});
        expectCall("[defaults objectForKey:@\"tesselclipboard.panelTintOpacity\"]", Nil{});
        expectCall("[pasteboard changeCount]", 7);
        expectCall("[SPUStandardUpdaterController initWithStartingUpdater:YES updaterDelegate:nil "
                   "userDriverDelegate:nil]",
                   Object{"updater"});
        expectCall("[NSTimer scheduledTimerWithTimeInterval:0.7 repeats:YES block:^]", Object{"poll timer"});
        expectCall("[NSEvent addLocalMonitorForEventsMatchingMask:1024 handler:^]", Object{"monitor"});
        expectCall("GetApplicationEventTarget()");
        expectCall("InstallEventHandler(application target, handler, 1, {'keyb', 5}, user data, &handlerRef)",
                   0);
        expectCall("GetApplicationEventTarget()");
        expectCall("RegisterEventHotKey(9, 0x300, {'CLIP', 1}, application target, 0, &hotKeyRef)", 0);
        expectCall("dispatch_async(main queue, ^)");
    }

    /// Starts the program, trusted for Accessibility, and lets the first turn of the main queue pass.
    void launch(std::int64_t loginItemStatus = 0, const WindowFactory& windows = scriptedWindows())
    {
        expectStart(loginItemStatus);
        state = AppState::create(makeSystemPlatform(imageFingerprint), windows);
        expectCall("AXIsProcessTrusted()", true);
        runNextBlock();
        endTurn();
    }

    /// Windows of the system's own.
    static WindowFactory hostedWindows()
    {
        WindowFactory windows;
        windows.panel = [](AppState&, const PanelDescription& description) {
            return AppKitWindowHost().makePanel(description, std::make_unique<ScriptedContent>());
        };
        windows.settings = [](AppState&) {
            return AppKitWindowHost().makeWindow(
                {.frame = WindowDescription::Frame::none, .title = "Settings", .contentSize = {420, 520}},
                std::make_unique<ScriptedContent>());
        };
        windows.about = [](AppState&) {
            return AppKitWindowHost().makeWindow(
                {.frame = WindowDescription::Frame::none, .title = "About", .contentSize = {420, 340}},
                std::make_unique<ScriptedContent>());
        };
        windows.onboarding = [](AppState&) {
            return AppKitWindowHost().makeWindow({.frame = WindowDescription::Frame::titleBar,
                                                  .title = "Setup Required",
                                                  .contentSize = {430, 250}},
                                                 std::make_unique<ScriptedContent>());
        };
        return windows;
    }

    void expectOpening(const std::string& window)
    {
        expectCall(window + ".make()");
        expectCall(window + ".showWindow()");
        expectActivation();
    }

    /// Key code 53 reaches the application.
    void expectEscape()
    {
        expectCall("[escape keyCode]", 53);
        expectCall("[escape modifierFlags]", 0);
    }

    void expectActivation()
    {
        expectCall("[NSApplication sharedApplication]", Object{"application"});
        expectCall("[application activateIgnoringOtherApps:YES]");
    }

    /// Ends the program.
    void quit()
    {
        expectCall("[poll timer invalidate]");
        expectCall("[NSEvent removeMonitor:monitor]");
        expectCall("UnregisterEventHotKey(hotKeyRef)", 0);
        expectCall("RemoveEventHandler(handlerRef)", 0);
        state.reset();
        expectNoMore();
    }

    /// The poll begins with a look at what has expired, for which it reads the clock.
    void expectPoll(std::int64_t changeCount)
    {
        expectDate();
        expectCall("[pasteboard changeCount]", changeCount);
    }

    /// The poll sees another counter, and reads the value.
    void expectSeen(std::int64_t changeCount)
    {
        expectPoll(changeCount);
        expectCall("[pasteboard changeCount]", changeCount);
        expectNoSecret();
    }

    void expectDate()
    {
        expectCall("[NSDate date]", Object{"now"});
        expectCall("[now timeIntervalSince1970]", 1795305600.0);
    }

    /// Another application copies a text, and the poll timer fires.
    void copy(const std::string& text, std::int64_t changeCount)
    {
        expectSeen(changeCount);
        expectCall("[pasteboard stringForType:@\"public.utf8-plain-text\"]", text);
        expectDate();
        fireTimer("poll timer");
        expectNoMore();
    }

    /// The pointer is on the only screen, of 1440 by 900 points. Its location is read once more for the
    /// place of the panel.
    void expectScreenUnderPointer()
    {
        expectCall("[NSEvent mouseLocation]", Numbers{{400, 600}});
        expectScreen();
        expectCall("[NSEvent mouseLocation]", Numbers{{400, 600}});
    }

    void expectScreen()
    {
        expectCall("[NSScreen screens]", Objects{{"screen"}});
        expectCall("[screen frame]", Numbers{{0, 0, 1440, 900}});
        expectCall("[screen visibleFrame]", Numbers{{0, 70, 1440, 805}});
    }

    void expectPress()
    {
        expectCall("GetEventParameter(event, '----', 'hkid', NULL, 8, NULL, &data)", 0);
        expectCall("dispatch_async(main queue, ^)");
    }

    /// The panel opens over that application, with one entry.
    void openPanel(Answer frontmostApplication)
    {
        expectPress();
        EXPECT_EQ(pressHotKey(0x434C4950, 1), 0);
        expectNoMore(); // The press itself only hops to the main queue.
        expectCall("[NSWorkspace sharedWorkspace]", Object{"workspace"});
        expectCall("[workspace frontmostApplication]", std::move(frontmostApplication));
        expectCall("panel.make()");
        expectCall("panel.setContentSize(460, 220)");
        expectScreenUnderPointer();
        expectCall("panel.frame()", Numbers{{0, 0, 460, 220}});
        expectCall("panel.setFrameOrigin(412, 368)");
        expectCall("panel.showWindow()");
        expectActivation();
        expectCall("panel.makeKeyAndOrderFront()");
        runNextBlock();
        expectNoMore();
    }

    /// The first part of a paste: the write, the panel, and the application that comes back.
    void expectWriteAndReturnTo(const std::string& application)
    {
        expectCall("[pasteboard clearContents]", 9);
        expectCall("[pasteboard setString:@\"one\" forType:@\"public.utf8-plain-text\"]", true);
        expectCall("panel.close()");
        if (!application.empty())
            expectCall("[" + application + " activateWithOptions:2]", true);
    }

    void expectDelayedBlock()
    {
        expectCall("dispatch_time(0, 120000000)", 500);
        expectCall("dispatch_after(500, main queue, ^)");
    }

    void expectEvents()
    {
        expectCall("CGEventSourceCreate(1)", Object{"source"});
        expectCall("CGEventCreateKeyboardEvent(source, 9, YES)", Object{"down"});
        expectCall("CGEventCreateKeyboardEvent(source, 9, NO)", Object{"up"});
        expectCall("CGEventSetFlags(down, 0x100000)");
        expectCall("CGEventSetFlags(up, 0x100000)");
    }

    std::shared_ptr<AppState> state;
};

TEST_F(AppStateTests, StartsAndEndsInTheOneOrder)
{
    launch();
    EXPECT_FALSE(*state->launchAtLogin);
    quit();
}

TEST_F(AppStateTests, TheLoginItemCountsAsOnOnlyWhenItIsEnabled)
{
    launch(1);
    EXPECT_TRUE(*state->launchAtLogin);
}

TEST_F(AppStateTests, ALoginItemThatWaitsForApprovalIsOff)
{
    launch(2);
    EXPECT_FALSE(*state->launchAtLogin);
}

TEST_F(AppStateTests, WithoutTrustTheOnboardingWindowOpensAfterTheStart)
{
    expectStart(0);
    state = AppState::create(makeSystemPlatform(imageFingerprint), scriptedWindows());
    expectCall("AXIsProcessTrusted()", false);
    expectOpening("onboarding");
    runNextBlock();
    expectNoMore();
}

TEST_F(AppStateTests, APollWithoutAChangeReadsTheCounterOnce)
{
    launch();
    expectPoll(7);
    fireTimer("poll timer");
    EXPECT_TRUE(state->history->empty());
}

TEST_F(AppStateTests, CapturesATextThatWasCopied)
{
    launch();
    copy("one", 8);
    EXPECT_EQ(state->history->size(), 1U);
}

TEST_F(AppStateTests, CapturesAnImageByTheDigestOfItsPNG)
{
    launch();
    expectSeen(8);
    expectCall("[pasteboard stringForType:@\"public.utf8-plain-text\"]", Nil{});
    expectNoSecret();
    expectCall("[NSImage initWithPasteboard:pasteboard]", Object{"image"});
    expectCall("[image TIFFRepresentation]", Bytes{"II*"});
    expectCall("[NSBitmapImageRep initWithData:<II*>]", Object{"bitmap"});
    expectCall("CC_SHA256_Init(context)", 1);
    expectCall("[bitmap representationUsingType:4 properties:@{}]", Bytes{"abc"});
    expectCall("CC_SHA256_Update(context, data, 3)", 1);
    expectCall("CC_SHA256_Final(digest, context)", 1);
    expectDate();
    fireTimer("poll timer");
    ASSERT_EQ(state->history->size(), 1U);
    // The example of FIPS 180-4 for "abc".
    EXPECT_EQ(std::get<SharedImage>(state->history->front().content)->preparedFingerprint(),
              "image:ba7816bf8f01cfea414140de5dae2223b00361a396177a9cb410ff61f20015ad");
}

TEST_F(AppStateTests, AConcealedValueIsConsumedAndNotCaptured)
{
    launch();
    expectPoll(8);
    expectCall("[pasteboard changeCount]", 8);
    for (int reads = 0; reads < 2; ++reads)
        expectCall("[pasteboard availableTypeFromArray:@[@\"org.nspasteboard.ConcealedType\", "
                   "@\"org.nspasteboard.TransientType\"]]",
                   "org.nspasteboard.ConcealedType");
    fireTimer("poll timer");
    EXPECT_TRUE(state->history->empty());
    expectPoll(8);
    fireTimer("poll timer");
}

TEST_F(AppStateTests, AnotherHotKeyIdentifierIsHandledAndDoesNothing)
{
    launch();
    expectCall("GetEventParameter(event, '----', 'hkid', NULL, 8, NULL, &data)", 0);
    EXPECT_EQ(pressHotKey(0x434C4950, 2), 0);
    EXPECT_EQ(waitingBlocks(), 0U);
}

TEST_F(AppStateTests, TheSignatureOfAHotKeyIsNotCompared)
{
    launch();
    expectPress();
    EXPECT_EQ(pressHotKey(0x4F544852, 1), 0);
    quit();
    runNextBlock(); // The state is gone.
}

TEST_F(AppStateTests, AHotKeyThatCannotBeReadIsHandledAndDoesNothing)
{
    launch();
    expectCall("GetEventParameter(event, '----', 'hkid', NULL, 8, NULL, &data)", -9870);
    EXPECT_EQ(pressHotKey(0x434C4950, 1), 0);
    EXPECT_EQ(waitingBlocks(), 0U);
}

TEST_F(AppStateTests, AnotherPresetIsRegisteredOnceTheFormerIsUnregistered)
{
    launch();
    expectCall("[defaults setObject:@\"cmdOptionV\" forKey:@\"tesselclipboard.hotKeyPreset\"]");
    expectCall("UnregisterEventHotKey(hotKeyRef)", 0);
    expectCall("GetApplicationEventTarget()");
    expectCall("RegisterEventHotKey(9, 0x900, {'CLIP', 1}, application target, 0, &hotKeyRef)", 0);
    state->hotKeyPreset = HotKeyPreset::cmdOptionV;
    expectNoMore();
}

class HostedAppStateTests : public AppStateTests {
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

    void press()
    {
        expectPress();
        EXPECT_EQ(pressHotKey(0x434C4950, 1), 0);
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
    expectStart(0);
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

TEST_F(AppStateTests, PastesIntoTheApplicationThatWasInFront)
{
    launch();
    copy("one", 8);
    openPanel(Object{"editor"});
    expectWriteAndReturnTo("editor");
    expectCall("AXIsProcessTrusted()", true);
    expectCall("[editor processIdentifier]", 4242);
    expectDelayedBlock();
    state->copyAndPaste(state->history->front());
    expectNoMore();

    expectEvents();
    expectCall("CGEventPostToPid(4242, down)");
    expectCall("CGEventPostToPid(4242, up)");
    runNextBlock();
    expectNoMore();

    // The program's own write is not captured.
    expectSeen(9);
    expectCall("[pasteboard stringForType:@\"public.utf8-plain-text\"]", "one");
    expectDate();
    fireTimer("poll timer");
    EXPECT_EQ(state->history->size(), 1U);
}

TEST_F(AppStateTests, WithoutAnApplicationInFrontItPastesWhereTheFocusIs)
{
    launch();
    copy("one", 8);
    openPanel(Nil{});
    expectWriteAndReturnTo("");
    expectCall("AXIsProcessTrusted()", true);
    expectDelayedBlock();
    state->copyAndPaste(state->history->front());
    expectEvents();
    expectCall("CGEventPost(0, down)");
    expectCall("CGEventPost(0, up)");
    runNextBlock();
}

TEST_F(AppStateTests, AnApplicationThatHasQuitIsStillPostedTo)
{
    launch();
    copy("one", 8);
    openPanel(Object{"editor"});
    expectCall("[pasteboard clearContents]", 9);
    expectCall("[pasteboard setString:@\"one\" forType:@\"public.utf8-plain-text\"]", true);
    expectCall("panel.close()");
    expectCall("[editor activateWithOptions:2]", false);
    expectCall("AXIsProcessTrusted()", true);
    expectCall("[editor processIdentifier]", 4242);
    expectDelayedBlock();
    state->copyAndPaste(state->history->front());
    expectEvents();
    expectCall("CGEventPostToPid(4242, down)");
    expectCall("CGEventPostToPid(4242, up)");
    runNextBlock();
}

TEST_F(AppStateTests, WithoutTrustTheSystemPromptsAndItsSettingsOpenAndNothingIsPosted)
{
    launch();
    copy("one", 8);
    openPanel(Object{"editor"});
    expectWriteAndReturnTo("editor");
    expectCall("AXIsProcessTrusted()", false);
    expectCall("AXIsProcessTrustedWithOptions(@{@\"AXTrustedCheckOptionPrompt\": @YES})", false);
    expectCall("[NSURL URLWithString:@\"x-apple.systempreferences:com.apple.preference.security?"
               "Privacy_Accessibility\"]",
               Object{"address"});
    expectCall("[NSWorkspace sharedWorkspace]", Object{"workspace"});
    expectCall("[workspace openURL:address]", true);
    state->copyAndPaste(state->history->front());
    EXPECT_EQ(waitingBlocks(), 0U);
}

TEST_F(AppStateTests, NothingIsPostedWhenTheStateEndsBeforeTheDelayIsOver)
{
    launch();
    copy("one", 8);
    openPanel(Object{"editor"});
    expectWriteAndReturnTo("editor");
    expectCall("AXIsProcessTrusted()", true);
    expectCall("[editor processIdentifier]", 4242);
    expectDelayedBlock();
    state->copyAndPaste(state->history->front());
    quit();
    runNextBlock();
}

TEST_F(AppStateTests, AnOpenPanelGrowsWithTheHistoryAndStaysByThePointer)
{
    launch();
    copy("one", 8);
    openPanel(Object{"editor"});
    expectSeen(9);
    expectCall("[pasteboard stringForType:@\"public.utf8-plain-text\"]", "two");
    expectDate();
    expectCall("panel.isWindowVisible()", true);
    expectCall("panel.setContentSize(460, 262)");
    expectScreenUnderPointer();
    expectCall("panel.frame()", Numbers{{412, 368, 460, 262}});
    expectCall("panel.setFrameOrigin(412, 326)");
    fireTimer("poll timer");
    expectNoMore();
}

TEST_F(AppStateTests, ThePanelOpensOnTheFirstScreenWithThePointerWithinWhatIsVisibleOfIt)
{
    launch();
    expectCall("[NSWorkspace sharedWorkspace]", Object{"workspace"});
    expectCall("[workspace frontmostApplication]", Nil{});
    expectCall("panel.make()");
    expectCall("panel.setContentSize(460, 220)");
    expectCall("[NSEvent mouseLocation]", Numbers{{2400, 150}});
    expectCall("[NSScreen screens]", Objects{{"first", "second"}});
    expectCall("[first frame]", Numbers{{0, 0, 1440, 900}});
    expectCall("[first visibleFrame]", Numbers{{0, 70, 1440, 805}});
    expectCall("[second frame]", Numbers{{1440, 0, 1000, 800}});
    expectCall("[second visibleFrame]", Numbers{{1440, 50, 1000, 725}});
    expectCall("[NSEvent mouseLocation]", Numbers{{2400, 150}});
    expectCall("panel.frame()", Numbers{{0, 0, 460, 220}});
    expectCall("panel.setFrameOrigin(1980, 50)");
    expectCall("panel.showWindow()");
    expectActivation();
    expectCall("panel.makeKeyAndOrderFront()");
    state->showPanel();
}

TEST_F(AppStateTests, TheMainScreenIsAskedForOnlyWhereNoScreenHasThePointer)
{
    launch();
    for (const bool hasMainScreen : {true, false}) {
        expectCall("[NSWorkspace sharedWorkspace]", Object{"workspace"});
        expectCall("[workspace frontmostApplication]", Nil{});
        if (!state->panelController)
            expectCall("panel.make()");
        expectCall("panel.setContentSize(460, 220)");
        expectCall("[NSEvent mouseLocation]", Numbers{{-20, 400}});
        expectScreen();
        expectCall("[NSScreen mainScreen]", hasMainScreen ? Answer(Object{"main"}) : Answer(Nil{}));
        if (hasMainScreen) {
            expectCall("[main frame]", Numbers{{0, 0, 1440, 900}});
            expectCall("[main visibleFrame]", Numbers{{0, 70, 1440, 805}});
            expectCall("[NSEvent mouseLocation]", Numbers{{-20, 400}});
            expectCall("panel.frame()", Numbers{{0, 0, 460, 220}});
            expectCall("panel.setFrameOrigin(0, 168)");
        }
        expectCall("panel.showWindow()");
        expectActivation();
        expectCall("panel.makeKeyAndOrderFront()");
        state->showPanel();
        expectNoMore();
    }
}

TEST_F(AppStateTests, EscapeClosesThePanelThenTheSettingsThenTheAboutWindowAndNoOther)
{
    expectStart(0);
    state = AppState::create(makeSystemPlatform(imageFingerprint), scriptedWindows());
    expectCall("AXIsProcessTrusted()", false);
    expectOpening("onboarding");
    runNextBlock();
    endTurn();
    expectOpening("about");
    state->showAboutWindow();
    expectOpening("settings");
    state->showSettingsWindow();
    openPanel(Object{"editor"});

    for (const std::string window : {"panel", "settings", "about"}) {
        expectEscape();
        expectCall(window + ".isWindowVisible()", true);
        expectCall(window + ".close()");
        EXPECT_FALSE(deliverKeyDown("escape"));
        expectNoMore();
    }
    expectEscape();
    EXPECT_TRUE(deliverKeyDown("escape"));
}

TEST_F(AppStateTests, EscapePassesByWindowsThatAreNotVisible)
{
    launch();
    expectOpening("settings");
    state->showSettingsWindow();
    openPanel(Object{"editor"});
    expectEscape();
    expectCall("panel.isWindowVisible()", false);
    expectCall("settings.isWindowVisible()", false);
    EXPECT_TRUE(deliverKeyDown("escape"));
    EXPECT_NE(state->panelController, nullptr);
    EXPECT_NE(state->settingsController, nullptr);
}

TEST_F(AppStateTests, AnotherKeyThanEscapeIsPassedOnAndNoWindowIsAsked)
{
    launch();
    openPanel(Object{"editor"});
    expectCall("[key keyCode]", 51);
    expectCall("[key modifierFlags]", 0);
    EXPECT_TRUE(deliverKeyDown("key"));
}

TEST_F(AppStateTests, ALoginItemThatTheSystemRefusesSpringsBack)
{
    launch();
    const auto expectStatus = [this](std::int64_t status) {
        expectCall("[SMAppService mainAppService]", Object{"service"});
        expectCall("[service status]", status);
    };
    expectStatus(0);
    expectCall("[SMAppService mainAppService]", Object{"service"});
    expectCall("[service registerAndReturnError:NULL]", false);
    expectStatus(2);
    expectStatus(2);
    state->launchAtLogin = true;
    EXPECT_FALSE(*state->launchAtLogin);
}

TEST_F(AppStateTests, LooksForUpdatesAndQuitsWithoutASender)
{
    launch();
    expectCall("[updater checkForUpdates:nil]");
    state->checkForUpdates();
    expectCall("[NSApplication sharedApplication]", Object{"application"});
    expectCall("[application terminate:nil]");
    state->terminate();
}

} // namespace
} // namespace tessel::test
