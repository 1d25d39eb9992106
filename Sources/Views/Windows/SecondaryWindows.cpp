#include "Windows/SecondaryWindows.h"

#include <QtCore/QCoreApplication>

#include "Accessibility/WindowAccessibility.h"
#include "AppState.h"
#include "Support/ApplicationIcon.h"
#include "Windows/AboutView.h"
#include "Windows/AccessibilityOnboardingView.h"
#include "Windows/ChromelessWindow.h"
#include "Windows/SecondaryWindowController.h"
#include "Windows/SettingsView.h"
#include "Windows/Website.h"
#include "Workspace.h"

namespace tessel {

namespace {

constexpr QSize settingsSize(420, 520); // Points, as the other sizes.
constexpr QSize aboutSize(420, 340);
constexpr QSize onboardingSize(430, 250);

using Controller = std::unique_ptr<WindowController> AppState::*;

/// Closes and drops a controller, and does nothing once the application goes.
std::function<void()> closing(AppState& appState, Controller controller)
{
    return [weak = appState.weak_from_this(), controller] {
        if (const auto state = weak.lock())
            closeAndDrop((*state).*controller);
    };
}

std::unique_ptr<WindowController> controllerOf(QWidget* window, const SecondaryWindowNeeds& needs)
{
    return std::make_unique<SecondaryWindowController>(std::unique_ptr<QWidget, Retirement>(window),
                                                       needs.nativeWindows, needs.screens);
}

} // namespace

SecondaryWindowFactory settingsFactory(const SecondaryWindowNeeds& needs)
{
    installWindowAccessibility();
    return [needs](AppState& appState) {
        auto* view =
            new SettingsView(appState, needs.theme, closing(appState, &AppState::settingsController));
        return controllerOf(new ChromelessWindow(QCoreApplication::translate("SecondaryWindows", "Settings"),
                                                 view, settingsSize, needs.theme, needs.nativeWindows),
                            needs);
    };
}

SecondaryWindowFactory aboutFactory(const SecondaryWindowNeeds& needs)
{
    installWindowAccessibility();
    return [needs](AppState& appState) {
        auto* view = new AboutView(
            appState, needs.theme,
            {.openWebsite = [&workspace = needs.workspace] { workspace.openURL(website::address); },
             .close = closing(appState, &AppState::aboutController)});
        return controllerOf(
            new ChromelessWindow(QCoreApplication::translate("SecondaryWindows", "About Tessel Clipboard"),
                                 view, aboutSize, needs.theme, needs.nativeWindows),
            needs);
    };
}

SecondaryWindowFactory onboardingFactory(const SecondaryWindowNeeds& needs)
{
    installWindowAccessibility();
    return [needs](AppState& appState) {
        const auto openSettings = [weak = appState.weak_from_this()] {
            if (const auto state = weak.lock())
                state->requestAccessibilityAndOpenSettings();
        };
        auto* view = new AccessibilityOnboardingView(needs.theme, openSettings,
                                                     closing(appState, &AppState::onboardingController));
        view->setWindowTitle(QCoreApplication::translate("SecondaryWindows", "Setup Required"));
        view->setWindowIcon(applicationIcon());
        view->setFixedSize(onboardingSize);
        return controllerOf(view, needs);
    };
}

} // namespace tessel
