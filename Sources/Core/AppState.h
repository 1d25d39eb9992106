#pragma once

#include <cstdint>
#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <string_view>

#include "History/ClipboardItem.h"
#include "History/ContentIdentity.h"
#include "History/HistoryRules.h"
#include "History/QuickClearPolicy.h"
#include "HotKey/HotKeyManager.h"
#include "HotKey/HotKeyPreset.h"
#include "Platform.h"
#include "Support/Observable.h"
#include "Support/Published.h"
#include "WindowFactory.h"

namespace tessel {

/// The one long-lived object of the application: it owns the history, the pins, the settings, and every
/// controller, timer and monitor. Views observe its published properties and call its operations. Main thread
/// only; closures that outlive a call hold it weakly and do nothing once it is gone.
class AppState : public Observable, public std::enable_shared_from_this<AppState> {
public:
    /// Creates the object and runs the start-up sequence of the program, in its one order.
    static std::shared_ptr<AppState> create(Platform platform, WindowFactory windows);
    ~AppState();

    /// @name Published properties
    /// The change handlers of the settings persist at once.
    /// @{

    /// Newest first, at most `maxItems`.
    Published<History> history;
    /// Ids of entries of `history` only.
    Published<PinnedItemIDs> pinnedItemIDs;
    /// Mirrors the system's login item; springs back when the system refuses.
    Published<bool> launchAtLogin;
    Published<QuickClearPolicy> quickClearPolicy;
    /// Seconds, 30 to 21600; clamped at start-up and on every change.
    Published<double> quickClearCustomSeconds;
    Published<HotKeyPreset> hotKeyPreset;
    /// 0.1 to 0.7 on every change; at start-up whatever was stored.
    Published<double> panelTintOpacity;

    /// @}

    static constexpr std::size_t maxItems = 100;
    static constexpr double defaultPanelOpacity = 0.25;
    static constexpr std::string_view panelOpacityKey = "tesselclipboard.panelTintOpacity";
    static constexpr std::string_view quickClearPolicyKey = "tesselclipboard.quickClearPolicy";
    static constexpr std::string_view quickClearCustomSecondsKey = "tesselclipboard.quickClearCustomSeconds";
    static constexpr std::string_view hotKeyPresetKey = "tesselclipboard.hotKeyPreset";

    /// @name Settings
    /// @{

    /// Chooses one of `quickClearPresets`: the policy, and the custom seconds before it where the preset
    /// stands for them. Fatal error: `seconds` does not fit a 64-bit integer.
    void selectPreset(double seconds);

    /// @}
    /// @name History
    /// @{

    /// The display order: pinned entries first. Computed on every call.
    History orderedHistory() const;
    void togglePinned(const ClipboardItem& item);
    /// Removes the entry and its pin.
    void removeItem(const ClipboardItem& item);
    /// Removes every entry and every pin.
    void clearHistory();
    /// A short text for a duration; see `durationText`.
    static std::string formattedDuration(double seconds);

    /// @}
    /// @name Paste-back
    /// @{

    /// Writes an entry to the pasteboard. The write is not captured as a new entry.
    void copyToClipboard(const ClipboardItem& item);
    /// Writes an entry to the pasteboard, closes the panel, brings the recorded application back and pastes
    /// there.
    void copyAndPaste(const ClipboardItem& item);
    /// Has the system ask the user for the Accessibility permission, and opens its settings.
    void requestAccessibilityAndOpenSettings();

    /// @}
    /// @name Windows
    /// @{

    /// Opens the panel if none is visible, else closes it.
    void togglePanel();
    /// Records the frontmost application and opens the panel beside the pointer.
    void showPanel();
    void showSettingsWindow();
    void showAboutWindow();

    /// Present while the window exists. Close it with `closeAndDrop`.
    std::unique_ptr<PanelController> panelController;
    std::unique_ptr<WindowController> onboardingController;
    std::unique_ptr<WindowController> aboutController;
    std::unique_ptr<WindowController> settingsController;

    /// @}
    /// @name Application
    /// @{

    /// Looks for a software update now.
    void checkForUpdates();
    /// Ends the application.
    void terminate();

    /// @}

private:
    AppState(Platform platform, WindowFactory windows);
    /// The part of the start-up sequence that needs a weak reference to this object.
    void start();

    void startClipboardMonitoring();
    void captureClipboardIfNeeded();
    std::optional<ClipboardItem> currentClipboardItem() const;

    void pruneExpiredHistory();

    void quickClearPolicyDidChange();
    void quickClearCustomSecondsDidChange();
    void hotKeyPresetDidChange();
    void panelTintOpacityDidChange();
    void setLaunchAtLogin(bool enabled);
    /// Only the enabled status counts as on; an absent login item counts as off.
    static bool isEnabled(const LoginItem* loginItem);

    void postPasteKeyStroke(std::optional<ProcessIdentifier> process);

    void updatePanelSize();
    void positionPanelNearCursor();
    void installEscapeMonitorIfNeeded();
    void removeEscapeMonitor();
    bool closeFrontWindow();
    void showAccessibilityOnboarding();
    /// Shows the window, which is made first where there is none. False: there is no such window.
    bool showWindow(std::unique_ptr<WindowController>& controller,
                    const std::function<std::unique_ptr<WindowController>(AppState&)>& make);

    /// `operation` on this object, held weakly.
    template <class Operation>
    std::function<void()> weakly(Operation operation)
    {
        return [weak = weak_from_this(), operation = std::move(operation)] {
            if (const auto self = weak.lock())
                std::invoke(operation, *self);
        };
    }

    Platform platform_;
    WindowFactory windows_;
    std::int64_t lastChangeCount_ = 0;
    Token pollTimer_;
    std::unique_ptr<HotKeyManager> hotKeyManager_;
    std::unique_ptr<UpdaterController> updaterController_;
    std::optional<EventMonitorToken> escapeKeyMonitor_;
    std::shared_ptr<RunningApplication> targetApplication_;
    std::optional<ContentIdentity> ignoredNextFingerprint_;
};

} // namespace tessel
