#pragma once

#include <cstdint>
#include <memory>
#include <optional>
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

/// What the defaults store holds under the four keys.
struct StoredSettings {
    Answer quickClearPolicy = Nil{};
    Answer quickClearCustomSeconds = Nil{};
    Answer hotKeyPreset = Nil{};
    Answer panelTintOpacity = Nil{};
};

/// A test of the whole state on the macOS backend: what the system receives, in its order.
class AppStateTest : public WindowTest {
protected:
    ~AppStateTest() override
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

    /// The start as far as the settings.
    void expectSettings(std::int64_t loginItemStatus, const StoredSettings& stored)
    {
        expectCall("[NSPasteboard generalPasteboard]", Object{"pasteboard"});
        expectCall("[NSUserDefaults standardUserDefaults]", Object{"defaults"});
        expectCall("[SMAppService mainAppService]", Object{"service"});
        expectCall("[service status]", loginItemStatus);
        expectCall("[defaults objectForKey:@\"tesselclipboard.quickClearPolicy\"]", stored.quickClearPolicy);
        expectCall("[defaults objectForKey:@\"tesselclipboard.quickClearCustomSeconds\"]",
                   stored.quickClearCustomSeconds);
        expectCall("[defaults objectForKey:@\"tesselclipboard.hotKeyPreset\"]", stored.hotKeyPreset);
        expectCall("[defaults objectForKey:@\"tesselclipboard.panelTintOpacity\"]", stored.panelTintOpacity);
    }

    /// The start from the pasteboard's counter to the monitor of the keys.
    void expectMonitoring()
    {
        expectCall("[pasteboard changeCount]", 7);
        expectCall("[SPUStandardUpdaterController initWithStartingUpdater:YES updaterDelegate:nil "
                   "userDriverDelegate:nil]",
                   Object{"updater"});
        expectCall("[NSTimer scheduledTimerWithTimeInterval:0.7 repeats:YES block:^]", Object{"poll timer"});
        expectCall("[NSEvent addLocalMonitorForEventsMatchingMask:1024 handler:^]", Object{"monitor"});
    }

    void expectHandler(std::int64_t status)
    {
        expectCall("GetApplicationEventTarget()");
        expectCall("InstallEventHandler(application target, handler, 1, {'keyb', 5}, user data, &handlerRef)",
                   status);
    }

    /// `mask` is the combination's, as `0x300`: Command and Shift.
    void expectHotKey(const std::string& mask, std::int64_t status = 0)
    {
        expectCall("GetApplicationEventTarget()");
        expectCall("RegisterEventHotKey(9, " + mask + ", {'CLIP', 1}, application target, 0, &hotKeyRef)",
                   status);
    }

    void expectStart(std::int64_t loginItemStatus = 0, const StoredSettings& stored = {},
                     const std::string& mask = "0x300")
    {
        expectSettings(loginItemStatus, stored);
        expectMonitoring();
        expectHandler(0);
        expectHotKey(mask);
        expectCall("dispatch_async(main queue, ^)");
    }

    /// Makes the state, whose start is announced, trusted for Accessibility, and lets the first turn of the
    /// main queue pass.
    void start(const WindowFactory& windows = scriptedWindows())
    {
        state = AppState::create(makeSystemPlatform(imageFingerprint), windows);
        expectNoMore();
        expectCall("AXIsProcessTrusted()", true);
        runNextBlock();
        expectNoMore();
        endTurn();
    }

    void launch(std::int64_t loginItemStatus = 0, const WindowFactory& windows = scriptedWindows())
    {
        expectStart(loginItemStatus);
        start(windows);
    }
    void launchWith(const StoredSettings& stored, const std::string& mask = "0x300")
    {
        expectStart(0, stored, mask);
        start();
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

    /// The poll sees another counter, reads it again, and then the value.
    void expectSeen(std::int64_t changeCount)
    {
        expectCall("[pasteboard changeCount]", changeCount);
        expectCall("[pasteboard changeCount]", changeCount);
        expectNoSecret();
    }

    void expectString(Answer string)
    {
        expectCall("[pasteboard stringForType:@\"public.utf8-plain-text\"]", std::move(string));
    }

    /// No string is there, and an image is made of the pasteboard.
    void expectImageRead()
    {
        expectString(Nil{});
        expectNoSecret();
        expectCall("[NSImage initWithPasteboard:pasteboard]", Object{"image"});
    }

    /// The image is encoded as PNG, of which the digest is made.
    void expectImageDigest()
    {
        expectCall("[image TIFFRepresentation]", Bytes{"II*"});
        expectCall("[NSBitmapImageRep initWithData:<II*>]", Object{"bitmap"});
        expectCall("CC_SHA256_Init(context)", 1);
        expectCall("[bitmap representationUsingType:4 properties:@{}]", Bytes{"abc"});
        expectCall("CC_SHA256_Update(context, data, 3)", 1);
        expectCall("CC_SHA256_Final(digest, context)", 1);
    }

    void expectDate(double seconds = 1795305600)
    {
        expectCall("[NSDate date]", Object{"now"});
        expectCall("[now timeIntervalSince1970]", seconds);
    }

    void poll()
    {
        fireTimer("poll timer");
        expectNoMore();
    }

    /// Another application copies a text, and the poll timer fires.
    void copy(const std::string& text, std::int64_t changeCount)
    {
        expectSeen(changeCount);
        expectString(text);
        expectDate();
        poll();
    }

    /// Another application copies an image, and the poll timer fires.
    void copyImage(std::int64_t changeCount)
    {
        expectSeen(changeCount);
        expectImageRead();
        expectImageDigest();
        expectDate();
        poll();
    }

    /// What the newest entry, an image, is known by.
    const std::optional<std::string>& imageIdentity() const
    {
        return std::get<SharedImage>(state->history->front().content)->preparedFingerprint();
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

    /// The hot key is pressed, which only hops to the main queue.
    void press()
    {
        expectPress();
        EXPECT_EQ(pressHotKey(0x434C4950, 1), 0);
        expectNoMore();
    }

    /// The panel opens over that application, with one entry, on a screen of 1440 by 900 points.
    void expectPanelOpens(Answer frontmostApplication)
    {
        expectCall("[NSWorkspace sharedWorkspace]", Object{"workspace"});
        expectCall("[workspace frontmostApplication]", std::move(frontmostApplication));
        expectCall("panel.make()");
        expectCall("panel.setContentSize(460, 220)");
        expectPlacement(220, "(412, 368)");
        expectCall("panel.showWindow()");
        expectActivation();
        expectCall("panel.makeKeyAndOrderFront()");
    }

    void openPanel(Answer frontmostApplication)
    {
        press();
        expectPanelOpens(std::move(frontmostApplication));
        runNextBlock();
        expectNoMore();
    }

    /// The panel is placed beside the pointer: 12 points to the right of it, and its top 12 points below.
    void expectPlacement(double height, const std::string& origin)
    {
        expectScreenUnderPointer();
        expectCall("panel.frame()", Numbers{{0, 0, 460, height}});
        expectCall("panel.setFrameOrigin" + origin);
    }

    void expectWrite()
    {
        expectCall("[pasteboard clearContents]", 9);
        expectCall("[pasteboard setString:@\"one\" forType:@\"public.utf8-plain-text\"]", true);
    }

    /// The first part of a paste: the write, the panel, and the application that comes back.
    void expectWriteAndReturnTo(const std::string& application)
    {
        expectWrite();
        expectCall("panel.close()");
        if (!application.empty())
            expectCall("[" + application + " activateWithOptions:2]", true);
    }

    void expectDelayedBlock()
    {
        expectCall("dispatch_time(0, 120000000)", 500);
        expectCall("dispatch_after(500, main queue, ^)");
    }

    /// The system asks for the permission, and its settings open.
    void expectPromptAndSettings(bool isTrustedByNow)
    {
        expectCall("AXIsProcessTrustedWithOptions(@{@\"AXTrustedCheckOptionPrompt\": @YES})", isTrustedByNow);
        expectCall("[NSURL URLWithString:@\"x-apple.systempreferences:com.apple.preference.security?"
                   "Privacy_Accessibility\"]",
                   Object{"address"});
        expectCall("[NSWorkspace sharedWorkspace]", Object{"workspace"});
        expectCall("[workspace openURL:address]", true);
    }

    void expectEvents()
    {
        expectCall("CGEventSourceCreate(1)", Object{"source"});
        expectCall("CGEventCreateKeyboardEvent(source, 9, YES)", Object{"down"});
        expectCall("CGEventCreateKeyboardEvent(source, 9, NO)", Object{"up"});
        expectCall("CGEventSetFlags(down, 0x100000)");
        expectCall("CGEventSetFlags(up, 0x100000)");
    }

    void expectLoginItemStatus(std::int64_t status)
    {
        expectCall("[SMAppService mainAppService]", Object{"service"});
        expectCall("[service status]", status);
    }

    /// `registerAndReturnError` or `unregisterAndReturnError`
    void expectLoginItemChange(const std::string& change, bool succeeds)
    {
        expectCall("[SMAppService mainAppService]", Object{"service"});
        expectCall("[service " + change + ":NULL]", succeeds);
    }

    std::shared_ptr<AppState> state;
};

} // namespace tessel::test
