#include "Windows/AccessibilityOnboardingView.h"

#include <utility>

#include "Windows/WindowTheme.h"

namespace tessel {

AccessibilityOnboardingView::AccessibilityOnboardingView(WindowTheme& theme,
                                                         std::function<void()> openSettings,
                                                         std::function<void()> close)
    : theme_(theme)
    , openSettings_(std::move(openSettings))
    , close_(std::move(close))
{}

} // namespace tessel
