#include "AppState.h"
#include "Settings/QuickClearPresets.h"
#include "Settings/SettingsRules.h"

namespace tessel {

void AppState::quickClearPolicyDidChange()
{
    platform_.defaults->setString(quickClearPolicyKey, rawValue(*quickClearPolicy));
    pruneExpiredHistory();
}

void AppState::quickClearCustomSecondsDidChange()
{
    const double clamped = clampedCustomSeconds(*quickClearCustomSeconds);
    if (differs(clamped, *quickClearCustomSeconds)) {
        quickClearCustomSeconds = clamped; // Runs this handler again, which then persists.
        return;
    }
    platform_.defaults->setDouble(quickClearCustomSecondsKey, *quickClearCustomSeconds);
    pruneExpiredHistory();
}

void AppState::selectPreset(double seconds)
{
    if (isOneDayPreset(seconds)) {
        quickClearPolicy = QuickClearPolicy::oneDay;
        return;
    }
    quickClearCustomSeconds = seconds;
    quickClearPolicy = QuickClearPolicy::custom;
}

void AppState::hotKeyPresetDidChange()
{
    platform_.defaults->setString(hotKeyPresetKey, rawValue(*hotKeyPreset));
    if (hotKeyManager_)
        hotKeyManager_->updatePreset(*hotKeyPreset);
}

void AppState::panelTintOpacityDidChange()
{
    const double clamped = clampedPanelOpacity(*panelTintOpacity);
    if (differs(clamped, *panelTintOpacity)) {
        panelTintOpacity = clamped; // Runs this handler again, which then persists.
        return;
    }
    platform_.defaults->setDouble(panelOpacityKey, *panelTintOpacity);
}

bool AppState::isEnabled(const LoginItem* loginItem)
{
    return loginItem && loginItem->status() == LoginItemStatus::enabled;
}

void AppState::setLaunchAtLogin(bool enabled)
{
    LoginItem* loginItem = platform_.loginItem.get();
    if (enabled == isEnabled(loginItem))
        return;
    const auto change = enabled ? &LoginItem::registerItem : &LoginItem::unregisterItem;
    if (loginItem && (loginItem->*change)())
        return;
    // The system refused, which is not reported: the property springs back to the real state.
    const bool now = isEnabled(loginItem);
    if (now != *launchAtLogin)
        launchAtLogin = now;
}

} // namespace tessel
