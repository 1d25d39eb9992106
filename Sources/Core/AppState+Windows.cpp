#include "AppState.h"

#include "Panel/HistoryPanelDescription.h"
#include "Panel/PanelGeometry.h"

namespace tessel {

namespace {

bool hasVisibleWindow(const WindowController* controller)
{
    return controller && controller->hasWindow() && controller->isWindowVisible();
}

template <class Controller>
bool closeIfVisible(std::unique_ptr<Controller>& controller)
{
    if (!hasVisibleWindow(controller.get()))
        return false;
    closeAndDrop(controller);
    return true;
}

} // namespace

void AppState::togglePanel()
{
    if (hasVisibleWindow(panelController.get()))
        closeAndDrop(panelController);
    else
        showPanel();
}

void AppState::showPanel()
{
    targetApplication_ = platform_.workspace->frontmostApplication();
    if (!panelController && windows_.panel)
        panelController = windows_.panel(*this, panelDescription());
    if (!panelController)
        return;
    updatePanelSize();
    positionPanelNearCursor();
    panelController->showWindow();
    platform_.application->activate(IgnoringOtherApps::yes);
    panelController->makeKeyAndOrderFront();
}

void AppState::updatePanelSize()
{
    if (!panelController || !panelController->hasWindow())
        return;
    panelController->setContentSize(panelContentSize(orderedHistory().size()));
}

void AppState::positionPanelNearCursor()
{
    if (!panelController || !panelController->hasWindow())
        return;
    auto screen = screenContaining(platform_.screens->mouseLocation(), platform_.screens->screens());
    if (!screen)
        screen = platform_.screens->mainScreen();
    if (!screen)
        return;
    const Point pointer = platform_.screens->mouseLocation();
    panelController->setFrameOrigin(
        panelOrigin(pointer, panelController->frame().size, screen->visibleFrame));
}

void AppState::installEscapeMonitorIfNeeded()
{
    if (escapeKeyMonitor_)
        return;
    escapeKeyMonitor_ = platform_.eventMonitors->addLocalMonitor(
        EventMonitors::keyDownMask, [weak = weak_from_this()](const KeyEvent& event) {
            const auto self = weak.lock();
            if (!self || event.keyCode != VirtualKey::escape)
                return EventOutcome::passOn;
            return self->closeFrontWindow() ? EventOutcome::consumed : EventOutcome::passOn;
        });
}

void AppState::removeEscapeMonitor()
{
    if (!escapeKeyMonitor_)
        return;
    platform_.eventMonitors->removeMonitor(*escapeKeyMonitor_);
    escapeKeyMonitor_.reset();
}

bool AppState::closeFrontWindow()
{
    return closeIfVisible(panelController) || closeIfVisible(settingsController) ||
           closeIfVisible(aboutController);
}

void AppState::showSettingsWindow()
{
    if (showWindow(settingsController, windows_.settings))
        platform_.application->activate(IgnoringOtherApps::yes);
}

void AppState::showAboutWindow()
{
    if (showWindow(aboutController, windows_.about))
        platform_.application->activate(IgnoringOtherApps::yes);
}

void AppState::showAccessibilityOnboarding()
{
    // A window that is there already comes forward without activating the application.
    const bool isNew = !onboardingController;
    if (showWindow(onboardingController, windows_.onboarding) && isNew)
        platform_.application->activate(IgnoringOtherApps::yes);
}

bool AppState::showWindow(std::unique_ptr<WindowController>& controller,
                          const std::function<std::unique_ptr<WindowController>(AppState&)>& make)
{
    if (!controller && make)
        controller = make(*this);
    if (!controller)
        return false;
    controller->showWindow();
    return true;
}

} // namespace tessel
