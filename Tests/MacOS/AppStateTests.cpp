// The whole state on the macOS backend, from its start to its end.

#include <functional>
#include <limits>

#include "Support/AppStateTest.h"

namespace tessel::test {
namespace {

using AppStateTests = AppStateTest;

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
    expectStart();
    state = AppState::create(makeSystemPlatform(imageFingerprint), scriptedWindows());
    expectNoMore();
    expectCall("AXIsProcessTrusted()", false);
    expectOpening("onboarding");
    runNextBlock();
    expectNoMore();
}

TEST_F(AppStateTests, TheTrustIsNotAskedForOnceTheStateIsGone)
{
    expectStart();
    state = AppState::create(makeSystemPlatform(imageFingerprint), scriptedWindows());
    quit();
    runNextBlock();
}

TEST_F(AppStateTests, APollWithoutAChangeReadsTheCounterOnceAndNothingElse)
{
    launch();
    expectCall("[pasteboard changeCount]", 7);
    poll();
    EXPECT_TRUE(state->history->empty());
}

TEST_F(AppStateTests, WhatHasExpiredGoesBeforeTheCounterIsRead)
{
    launchWith({.quickClearPolicy = "custom", .quickClearCustomSeconds = 60.0});
    expectDate();
    copy("one", 8);
    ASSERT_EQ(state->history->size(), 1U);
    expectDate(1795305660.5);
    expectCall("[pasteboard changeCount]", 8);
    poll();
    EXPECT_TRUE(state->history->empty());
}

TEST_F(AppStateTests, CapturesATextThatWasCopiedAndDoesNotAskForAnImage)
{
    launch();
    copy("one", 8);
    EXPECT_EQ(state->history->size(), 1U);
}

TEST_F(AppStateTests, CapturesAnImageByTheDigestOfItsPNG)
{
    launch();
    copyImage(8);
    ASSERT_EQ(state->history->size(), 1U);
    // The example of FIPS 180-4 for "abc".
    EXPECT_EQ(imageIdentity(), "image:ba7816bf8f01cfea414140de5dae2223b00361a396177a9cb410ff61f20015ad");
}

TEST_F(AppStateTests, AnImageWithoutATIFFEncodingABitmapOrAPNGIsKnownByItsSizeInWholePoints)
{
    launch();
    const auto capture = [this](std::int64_t changeCount, const std::function<void()>& expectEncodings,
                                const Numbers& size) {
        expectSeen(changeCount);
        expectImageRead();
        expectEncodings();
        expectCall("[image size]", size);
        expectDate();
        poll();
        ASSERT_EQ(state->history->size(), static_cast<std::size_t>(changeCount - 7));
    };

    capture(
        8, [this] { expectCall("[image TIFFRepresentation]", Nil{}); }, Numbers{{99.9, 10.2}});
    EXPECT_EQ(imageIdentity(), "image:99x10");
    capture(
        9,
        [this] {
            expectCall("[image TIFFRepresentation]", Bytes{"damaged"});
            expectCall("[NSBitmapImageRep initWithData:<damaged>]", Nil{});
        },
        Numbers{{640, 480}});
    EXPECT_EQ(imageIdentity(), "image:640x480");
    capture(
        10,
        [this] {
            expectCall("[image TIFFRepresentation]", Bytes{"II*"});
            expectCall("[NSBitmapImageRep initWithData:<II*>]", Object{"bitmap"});
            expectCall("CC_SHA256_Init(context)", 1);
            expectCall("[bitmap representationUsingType:4 properties:@{}]", Nil{});
        },
        Numbers{{-0.5, 0.5}});
    EXPECT_EQ(imageIdentity(), "image:0x0");
}

TEST_F(AppStateTests, AnImageWithoutAnEncodingWhoseSizeIsNotFiniteEndsTheProcess)
{
    launch();
    const auto capture = [this] {
        expectSeen(8);
        expectImageRead();
        expectCall("[image TIFFRepresentation]", Nil{});
        expectCall("[image size]", Numbers{{std::numeric_limits<double>::infinity(), 10}});
        poll();
    };
    EXPECT_DEATH(capture(), "Fatal error: a number does not fit a 64-bit integer");
}

TEST_F(AppStateTests, CapturesTheImageWhereTheStringIsEmpty)
{
    launch();
    expectSeen(8);
    expectString("");
    expectNoSecret();
    expectCall("[NSImage initWithPasteboard:pasteboard]", Object{"image"});
    expectImageDigest();
    expectDate();
    poll();
    EXPECT_EQ(state->history->size(), 1U);
}

TEST_F(AppStateTests, AValueThatIsNeitherStringNorImageIsConsumedAndNotLookedAtAgain)
{
    launch();
    expectSeen(8);
    expectString(Nil{});
    expectNoSecret();
    expectCall("[NSImage initWithPasteboard:pasteboard]", Nil{});
    poll();
    expectCall("[pasteboard changeCount]", 8);
    poll();
    EXPECT_TRUE(state->history->empty());
}

TEST_F(AppStateTests, AnOpenPanelGrowsWithTheHistoryAndStaysByThePointer)
{
    launch();
    copy("one", 8);
    openPanel(Object{"editor"});
    expectSeen(9);
    expectString("two");
    expectDate();
    expectCall("panel.isWindowVisible()", true);
    expectCall("panel.setContentSize(460, 262)");
    expectPlacement(262, "(412, 326)");
    poll();

    expectSeen(10);
    expectString("three");
    expectDate();
    expectCall("panel.isWindowVisible()", false);
    poll();
    EXPECT_EQ(state->history->size(), 3U);
}

TEST_F(AppStateTests, AConcealedValueIsConsumedAndNotCaptured)
{
    launch();
    for (int reads = 0; reads < 2; ++reads)
        expectCall("[pasteboard changeCount]", 8);
    for (int reads = 0; reads < 2; ++reads)
        expectCall("[pasteboard availableTypeFromArray:@[@\"org.nspasteboard.ConcealedType\", "
                   "@\"org.nspasteboard.TransientType\"]]",
                   "org.nspasteboard.ConcealedType");
    poll();
    EXPECT_TRUE(state->history->empty());
    expectCall("[pasteboard changeCount]", 8);
    poll();
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
    expectPanelOpens(Object{"editor"});
    runNextBlock();
    expectNoMore();
}

TEST_F(AppStateTests, APressDoesNothingOnceTheStateIsGone)
{
    launch();
    press();
    quit();
    runNextBlock();
    EXPECT_EQ(pressHotKey(0x434C4950, 1), -9874); // Nobody handles it any more.
}

TEST_F(AppStateTests, TwoPressesInQuickSuccessionOpenAndThenCloseThePanel)
{
    launch();
    press();
    press();
    expectPanelOpens(Object{"editor"});
    runNextBlock();
    expectNoMore();
    expectCall("panel.isWindowVisible()", true);
    expectCall("panel.close()");
    runNextBlock();
    expectNoMore();
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
    expectHotKey("0x900");
    state->hotKeyPreset = HotKeyPreset::cmdOptionV;
    expectNoMore();
}

TEST_F(AppStateTests, ThePresetThatIsActiveIsWrittenAndNotRegisteredAnew)
{
    launch();
    expectCall("[defaults setObject:@\"cmdShiftV\" forKey:@\"tesselclipboard.hotKeyPreset\"]");
    state->hotKeyPreset = HotKeyPreset::cmdShiftV;
    expectNoMore();
}

TEST_F(AppStateTests, AHandlerAndAHotKeyThatTheSystemRefusesAreNotReportedAndNotGivenBack)
{
    expectSettings(0, {});
    expectMonitoring();
    expectHandler(-9860);
    expectHotKey("0x300", -9878);
    expectCall("dispatch_async(main queue, ^)");
    start();

    expectCall("[defaults setObject:@\"ctrlShiftV\" forKey:@\"tesselclipboard.hotKeyPreset\"]");
    expectHotKey("0x1200", -9878);
    state->hotKeyPreset = HotKeyPreset::ctrlShiftV;
    expectNoMore();

    expectCall("[poll timer invalidate]");
    expectCall("[NSEvent removeMonitor:monitor]");
    state.reset();
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
    copy("one", 9);
    EXPECT_EQ(state->history->size(), 1U);
}

TEST_F(AppStateTests, AnImageIsPastedAsTheImageObjectAndNotAsATextAndTheWriteIsNotCaptured)
{
    launch();
    copyImage(8);
    copy("one", 9);
    expectCall("[pasteboard clearContents]", 10);
    expectCall("[pasteboard writeObjects:@[image]]", true);
    expectCall("AXIsProcessTrusted()", true);
    expectDelayedBlock();
    state->copyAndPaste(state->history->back());
    expectEvents();
    expectCall("CGEventPost(0, down)");
    expectCall("CGEventPost(0, up)");
    runNextBlock();
    expectNoMore();

    copyImage(11);
    EXPECT_EQ(state->history->size(), 2U);
}

TEST_F(AppStateTests, APasteThatFollowsAtOnceDoesNotCancelTheOneBefore)
{
    launch();
    copy("one", 8);
    for (const auto& [application, process] : {std::pair("editor", 4242), {"browser", 77}}) {
        openPanel(Object{application});
        expectWriteAndReturnTo(application);
        expectCall("AXIsProcessTrusted()", true);
        expectCall("[" + std::string(application) + " processIdentifier]", process);
        expectDelayedBlock();
        state->copyAndPaste(state->history->front());
        expectNoMore();
    }
    for (const std::string process : {"4242", "77"}) {
        expectEvents();
        expectCall("CGEventPostToPid(" + process + ", down)");
        expectCall("CGEventPostToPid(" + process + ", up)");
        runNextBlock();
        expectNoMore();
    }
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
    expectWrite();
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
    expectPromptAndSettings(false);
    state->copyAndPaste(state->history->front());
    expectNoMore();
    EXPECT_EQ(waitingBlocks(), 0U);

    // So it is every time, whatever the prompt answers. The panel is gone by now.
    expectWrite();
    expectCall("[editor activateWithOptions:2]", true);
    expectCall("AXIsProcessTrusted()", false);
    expectPromptAndSettings(true);
    state->copyAndPaste(state->history->front());
    expectNoMore();
    EXPECT_EQ(waitingBlocks(), 0U);
}

TEST_F(AppStateTests, AnAddressOfTheSettingsThatDoesNotParseIsNotOpened)
{
    launch();
    expectCall("AXIsProcessTrustedWithOptions(@{@\"AXTrustedCheckOptionPrompt\": @YES})", false);
    expectCall("[NSURL URLWithString:@\"x-apple.systempreferences:com.apple.preference.security?"
               "Privacy_Accessibility\"]",
               Nil{});
    state->requestAccessibilityAndOpenSettings();
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
    expectStart();
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
    expectLoginItemStatus(0);
    expectLoginItemChange("registerAndReturnError", false);
    expectLoginItemStatus(2);
    expectLoginItemStatus(2);
    state->launchAtLogin = true;
    EXPECT_FALSE(*state->launchAtLogin);
}

TEST_F(AppStateTests, ALoginItemThatTheSystemDoesNotLetGoSpringsBack)
{
    launch(1);
    expectLoginItemStatus(1);
    expectLoginItemChange("unregisterAndReturnError", false);
    expectLoginItemStatus(1);
    expectLoginItemStatus(1);
    state->launchAtLogin = false;
    EXPECT_TRUE(*state->launchAtLogin);
}

TEST_F(AppStateTests, LooksForUpdatesAndQuitsWithoutASender)
{
    launch();
    expectCall("[updater checkForUpdates:nil]");
    state->checkForUpdates();
    expectNoMore();
    expectCall("[NSApplication sharedApplication]", Object{"application"});
    expectCall("[application terminate:nil]");
    state->terminate();
    expectNoMore();
}

} // namespace
} // namespace tessel::test
