#include "Windows/AboutView.h"

#include <utility>

#include "Windows/WindowTheme.h"

namespace tessel {

AboutView::AboutView(AppState& appState, WindowTheme& theme, std::function<void()> close)
    : StateView(appState)
    , theme_(theme)
    , close_(std::move(close))
{}

void AboutView::showState(const AppState&) {}

} // namespace tessel
