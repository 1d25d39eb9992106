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
        return windows;
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

    void expectPress()
    {
        expectCall("GetEventParameter(event, '----', 'hkid', NULL, 8, NULL, &data)", 0);
        expectCall("dispatch_async(main queue, ^)");
    }

    /// The panel opens over that application, with one entry, on a screen of 1440 by 900 points.
    void openPanel(Answer frontmostApplication)
    {
        expectPress();
        EXPECT_EQ(pressHotKey(0x434C4950, 1), 0);
        expectNoMore(); // The press itself only hops to the main queue.
        expectCall("[NSWorkspace sharedWorkspace]", Object{"workspace"});
        expectCall("[workspace frontmostApplication]", std::move(frontmostApplication));
        expectCall("panel.make()");
        expectCall("panel.setContentSize(460, 220)");
        expectCall("[NSEvent mouseLocation]", Numbers{{400, 600}});
        expectCall("[NSScreen screens]", Objects{{"screen"}});
        expectCall("[screen frame]", Numbers{{0, 0, 1440, 900}});
        expectCall("[screen visibleFrame]", Numbers{{0, 70, 1440, 805}});
        expectCall("[NSScreen mainScreen]", Object{"main"});
        expectCall("[main frame]", Numbers{{0, 0, 1440, 900}});
        expectCall("[main visibleFrame]", Numbers{{0, 70, 1440, 805}});
        expectCall("[NSEvent mouseLocation]", Numbers{{400, 600}});
        expectCall("panel.frame()", Numbers{{0, 0, 460, 220}});
        expectCall("panel.setFrameOrigin(412, 368)");
        expectCall("panel.showWindow()");
        expectCall("[NSApplication sharedApplication]", Object{"application"});
        expectCall("[application activateIgnoringOtherApps:YES]");
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
    expectCall("onboarding.make()");
    expectCall("onboarding.showWindow()");
    expectCall("[NSApplication sharedApplication]", Object{"application"});
    expectCall("[application activateIgnoringOtherApps:YES]");
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

TEST_F(AppStateTests, TheHotKeyOpensAndClosesAPanelOfTheSystems)
{
    launch(0, hostedWindows());
    expectPress();
    EXPECT_EQ(pressHotKey(0x434C4950, 1), 0);
    expectCall("[NSWorkspace sharedWorkspace]", Object{"workspace"});
    expectCall("[workspace frontmostApplication]", Object{"editor"});
    expectContentViewController("{460, 420}");
    expectPanel();
    expectCall("[panel setContentSize:{460, 220}]");
    expectCall("[NSEvent mouseLocation]", Numbers{{400, 600}});
    expectCall("[NSScreen screens]", Objects{{"screen"}});
    expectCall("[screen frame]", Numbers{{0, 0, 1440, 900}});
    expectCall("[screen visibleFrame]", Numbers{{0, 70, 1440, 805}});
    expectCall("[NSScreen mainScreen]", Object{"main"});
    expectCall("[main frame]", Numbers{{0, 0, 1440, 900}});
    expectCall("[main visibleFrame]", Numbers{{0, 70, 1440, 805}});
    expectCall("[NSEvent mouseLocation]", Numbers{{400, 600}});
    expectCall("[panel frame]", Numbers{{0, 0, 460, 220}});
    expectCall("[panel setFrameOrigin:{412, 368}]");
    expectCall("content.windowWillShow()");
    expectCall("[controller showWindow:nil]");
    expectActivation();
    expectCall("[panel makeKeyAndOrderFront:nil]");
    expectCall("[panel makeFirstResponder:content]", true);
    runNextBlock();
    expectNoMore();

    expectPress();
    EXPECT_EQ(pressHotKey(0x434C4950, 1), 0);
    expectCall("[panel isVisible]", true);
    expectClose();
    expectCall("dispatch_async(main queue, ^)");
    runNextBlock();
    EXPECT_EQ(state->panelController, nullptr);
    expectCall("content.end()");
    runNextBlock();
}

TEST_F(AppStateTests, TheSettingsAreOneWindowThatIsShownBeforeTheApplicationIsActivated)
{
    launch(0, hostedWindows());
    expectChromelessWindow("{420, 520}");
    expectCall("content.windowWillShow()");
    expectCall("[controller showWindow:nil]");
    expectActivation();
    state->showSettingsWindow();
    expectNoMore();

    expectCall("content.windowWillShow()");
    expectCall("[controller showWindow:nil]");
    expectActivation();
    state->showSettingsWindow();
    expectNoMore();

    expectClose();
    state->settingsController->close();
    retire(state->settingsController);
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

TEST_F(AppStateTests, EscapeClosesThePanelAndGoesNoFurther)
{
    launch();
    copy("one", 8);
    openPanel(Object{"editor"});
    expectCall("[escape keyCode]", 53);
    expectCall("[escape modifierFlags]", 0);
    expectCall("panel.isWindowVisible()", true);
    expectCall("panel.close()");
    EXPECT_FALSE(deliverKeyDown("escape"));
    expectCall("[escape keyCode]", 53);
    expectCall("[escape modifierFlags]", 0);
    EXPECT_TRUE(deliverKeyDown("escape"));
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
