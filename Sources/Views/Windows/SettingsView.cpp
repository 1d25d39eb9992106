#include "Windows/SettingsView.h"

#include <utility>

#include "Windows/WindowTheme.h"

namespace tessel {

SettingsView::SettingsView(AppState& appState, WindowTheme& theme, std::function<void()> close)
    : StateView(appState)
    , theme_(theme)
    , close_(std::move(close))
{}

void SettingsView::showState(const AppState&) {}

} // namespace tessel
