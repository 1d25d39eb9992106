#pragma once

#include <functional>
#include <memory>

#include "WindowController.h"

namespace tessel {

class AppState;
class NativeWindows;
class Screens;
class WindowHost;
class WindowTheme;
class Workspace;

/// What the windows beside the panel need of their surroundings, which outlive the windows and the factories.
struct SecondaryWindowNeeds {
    WindowTheme& theme;
    NativeWindows& nativeWindows;
    const Screens& screens;
    Workspace& workspace;
    /// Makes the windows. Null: the view toolkit does.
    WindowHost* host = nullptr;
};

using SecondaryWindowFactory = std::function<std::unique_ptr<WindowController>(AppState&)>;

/// @name The entries of `WindowFactory` for the windows beside the panel.
/// @{
SecondaryWindowFactory settingsFactory(const SecondaryWindowNeeds& needs);
SecondaryWindowFactory aboutFactory(const SecondaryWindowNeeds& needs);
SecondaryWindowFactory onboardingFactory(const SecondaryWindowNeeds& needs);
/// @}

} // namespace tessel
