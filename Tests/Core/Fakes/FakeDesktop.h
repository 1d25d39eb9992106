#pragma once

#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "AppState.h"
#include "Fakes/CallLog.h"
#include "Fakes/FakeAccessibilityTrust.h"
#include "Fakes/FakeApplication.h"
#include "Fakes/FakeDefaultsStore.h"
#include "Fakes/FakeDigest.h"
#include "Fakes/FakeEventMonitors.h"
#include "Fakes/FakeHotKeyCenter.h"
#include "Fakes/FakeImage.h"
#include "Fakes/FakeKeyStrokes.h"
#include "Fakes/FakeLoginItem.h"
#include "Fakes/FakePanelController.h"
#include "Fakes/FakePasteboard.h"
#include "Fakes/FakeRunningApplication.h"
#include "Fakes/FakeScreens.h"
#include "Fakes/FakeUpdaterController.h"
#include "Fakes/FakeWindowController.h"
#include "Fakes/FakeWorkspace.h"
#include "Fakes/PrintGeometry.h"
#include "Fakes/VirtualClock.h"
#include "Fakes/VirtualMainQueue.h"
#include "Platform.h"
#include "WindowFactory.h"

namespace tessel::test {

/// A whole desktop of fakes: one screen of 1440 x 900 points with a menu bar of 25 and a dock of 70 points,
/// the pointer at (400, 600), an editor in front, the process trusted, nothing stored.
///
///     FakeDesktop desktop;
///     AppState& state = desktop.launch();
class FakeDesktop {
public:
    /// Seconds between two looks at the pasteboard.
    static constexpr double pollInterval = 0.7;

    FakeDesktop();

    /// Starts the program, once what a test wants to be different has been changed, and runs what it has put
    /// off to the main queue's next turn. A second launch is a relaunch: the first program ends before it.
    AppState& launch();
    /// Starts the program without any turn of the main queue.
    AppState& launchWithoutTurn();
    /// The program ends: its state is destroyed.
    void quit() { state.reset(); }

    /// The platform and the windows that `launch` hands over. A test may change them before.
    Platform platform() const;
    WindowFactory windowFactory() const;

    /// Another application copies a text, and the next look at the pasteboard passes.
    void copy(std::string_view text);
    void copy(SharedImage image);
    /// One poll interval passes.
    void tick() { queue->advance(pollInterval); }
    /// The user presses the hot key of a preset, and a turn of the main queue passes.
    void pressHotKey(HotKeyPreset preset = defaultHotKeyPreset);

    /// The texts of the entries, newest first; "[image]" for an image.
    std::vector<std::string> texts() const;
    /// The entry with that text. Fails the test when there is none.
    ClipboardItem item(std::string_view text) const;

    /// The panel's controller. Null: there is none.
    FakePanelController* panel() const;
    FakeWindowController* settings() const;
    FakeWindowController* about() const;
    FakeWindowController* onboarding() const;

    std::shared_ptr<CallLog> log = std::make_shared<CallLog>();
    std::shared_ptr<FakePasteboard> pasteboard = std::make_shared<FakePasteboard>(log);
    std::shared_ptr<FakeDigest> digest = std::make_shared<FakeDigest>();
    std::shared_ptr<FakeDefaultsStore> defaults = std::make_shared<FakeDefaultsStore>(log);
    std::shared_ptr<FakeHotKeyCenter> hotKeyCenter = std::make_shared<FakeHotKeyCenter>(log);
    std::shared_ptr<FakeWorkspace> workspace = std::make_shared<FakeWorkspace>(log);
    std::shared_ptr<FakeAccessibilityTrust> trust = std::make_shared<FakeAccessibilityTrust>(log);
    std::shared_ptr<FakeKeyStrokes> keyStrokes = std::make_shared<FakeKeyStrokes>(log);
    std::shared_ptr<FakeEventMonitors> eventMonitors = std::make_shared<FakeEventMonitors>(log);
    std::shared_ptr<FakeScreens> screens = std::make_shared<FakeScreens>(log);
    std::shared_ptr<VirtualClock> clock = std::make_shared<VirtualClock>();
    std::shared_ptr<VirtualMainQueue> queue = std::make_shared<VirtualMainQueue>(log, clock);
    std::shared_ptr<FakeApplication> application = std::make_shared<FakeApplication>(log);
    /// Null: absent.
    std::shared_ptr<FakeLoginItem> loginItem = std::make_shared<FakeLoginItem>(log);

    std::shared_ptr<FakeRunningApplication> editor =
        std::make_shared<FakeRunningApplication>(log, "editor", ProcessIdentifier{1001});
    std::shared_ptr<FakeRunningApplication> browser =
        std::make_shared<FakeRunningApplication>(log, "browser", ProcessIdentifier{1002});

    /// Declared last: it goes before the fakes that it uses.
    std::shared_ptr<AppState> state;
};

} // namespace tessel::test
