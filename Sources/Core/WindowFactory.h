#pragma once

#include <functional>
#include <memory>

#include "WindowController.h"

namespace tessel {

class AppState;
struct PanelDescription;

/// Makes the windows. The composition root fills it; an entry that is absent does nothing.
struct WindowFactory {
    std::function<std::unique_ptr<PanelController>(AppState&, const PanelDescription&)> panel;
    std::function<std::unique_ptr<WindowController>(AppState&)> settings;
    std::function<std::unique_ptr<WindowController>(AppState&)> about;
    std::function<std::unique_ptr<WindowController>(AppState&)> onboarding;
};

/// Closes a controller's window and drops the controller, if there is one.
template <class Controller>
void closeAndDrop(std::unique_ptr<Controller>& controller)
{
    if (!controller)
        return;
    controller->close();
    controller.reset();
}

} // namespace tessel
