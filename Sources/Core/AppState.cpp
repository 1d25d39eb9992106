#include "AppState.h"

#include <utility>

#include "Settings/SettingsRules.h"

namespace tessel {

namespace {

QuickClearPolicy storedQuickClearPolicy(const DefaultsStore& defaults)
{
    const auto stored = defaults.string(AppState::quickClearPolicyKey);
    return quickClearPolicy(stored.value_or("never")).value_or(QuickClearPolicy::never);
}

double storedCustomSeconds(const DefaultsStore& defaults)
{
    const auto stored = defaults.number(AppState::quickClearCustomSecondsKey);
    return clampedCustomSeconds(stored.value_or(defaultCustomSeconds));
}

HotKeyPreset storedHotKeyPreset(const DefaultsStore& defaults)
{
    const auto stored = defaults.string(AppState::hotKeyPresetKey);
    return stored ? hotKeyPreset(*stored).value_or(defaultHotKeyPreset) : defaultHotKeyPreset;
}

/// Not clamped: a stored opacity beyond the range stands until the user moves it.
double storedPanelOpacity(const DefaultsStore& defaults)
{
    return defaults.number(AppState::panelOpacityKey).value_or(AppState::defaultPanelOpacity);
}

} // namespace

std::shared_ptr<AppState> AppState::create(Platform platform, WindowFactory windows)
{
    std::shared_ptr<AppState> state(new AppState(std::move(platform), std::move(windows)));
    state->start();
    return state;
}

AppState::AppState(Platform platform, WindowFactory windows)
    : history(*this, {})
    , pinnedItemIDs(*this, {})
    , launchAtLogin(*this, isEnabled(platform.loginItem.get()), [this] { setLaunchAtLogin(*launchAtLogin); })
    , quickClearPolicy(*this, storedQuickClearPolicy(*platform.defaults),
                       [this] { quickClearPolicyDidChange(); })
    , quickClearCustomSeconds(*this, storedCustomSeconds(*platform.defaults),
                              [this] { quickClearCustomSecondsDidChange(); })
    , hotKeyPreset(*this, storedHotKeyPreset(*platform.defaults), [this] { hotKeyPresetDidChange(); })
    , panelTintOpacity(*this, storedPanelOpacity(*platform.defaults), [this] { panelTintOpacityDidChange(); })
    , platform_(std::move(platform))
    , windows_(std::move(windows))
    , lastChangeCount_(platform_.pasteboard->changeCount())
{
    if (platform_.makeUpdater)
        updaterController_ = platform_.makeUpdater();
    if (updaterController_)
        updaterController_->start();
}

void AppState::start()
{
    startClipboardMonitoring();
    installEscapeMonitorIfNeeded();
    // The press itself only hops to the queue, so that the toggle runs after the event's dispatch has
    // returned.
    hotKeyManager_ = std::make_unique<HotKeyManager>(
        platform_.hotKeyCenter, *hotKeyPreset,
        [queue = platform_.mainQueue, toggle = weakly(&AppState::togglePanel)] { queue->async(toggle); });
    platform_.mainQueue->async(weakly([](AppState& self) {
        if (!self.platform_.accessibilityTrust->isProcessTrusted())
            self.showAccessibilityOnboarding();
    }));
}

AppState::~AppState()
{
    pollTimer_.reset();
    removeEscapeMonitor();
    // Windows show this object: they go while it is still whole.
    panelController.reset();
    onboardingController.reset();
    aboutController.reset();
    settingsController.reset();
}

void AppState::checkForUpdates()
{
    if (updaterController_)
        updaterController_->checkForUpdates();
}

void AppState::terminate()
{
    platform_.application->terminate();
}

} // namespace tessel
