#include "Windows/SecondaryWindows.h"

#include <QtCore/QCoreApplication>

#include "Accessibility/WindowAccessibility.h"
#include "AppState.h"
#include "Support/ApplicationIcon.h"
#include "Support/HostedWidget.h"
#include "WindowHost.h"
#include "Windows/AboutView.h"
#include "Windows/AccessibilityOnboardingView.h"
#include "Windows/ChromelessWindow.h"
#include "Windows/SecondaryWindowController.h"
#include "Windows/SettingsView.h"
#include "Windows/Website.h"
#include "Workspace.h"

#include <utility>

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

std::unique_ptr<WindowController> controllerOf(std::unique_ptr<QWidget, Retirement> window,
                                               WindowDescription::Frame frame,
                                               const SecondaryWindowNeeds& needs)
{
    if (needs.host == nullptr)
        return std::make_unique<SecondaryWindowController>(std::move(window), needs.nativeWindows,
                                                           needs.screens);
    const WindowDescription description = {
        .frame = frame,
        .title = window->windowTitle().toStdString(),
        .contentSize = {static_cast<double>(window->width()), static_cast<double>(window->height())}};
    return needs.host->makeWindow(description, std::make_unique<HostedWidget>(std::move(window)));
}

/// A window without a title bar around `view`, of which this takes ownership.
std::unique_ptr<WindowController> chromelessControllerOf(const QString& title, QWidget* view, QSize size,
                                                         const SecondaryWindowNeeds& needs)
{
    auto* window = new ChromelessWindow(title, view, size, needs.theme, needs.nativeWindows);
    if (needs.host != nullptr)
        window->leaveDraggingToSystem();
    return controllerOf(std::unique_ptr<QWidget, Retirement>(window), WindowDescription::Frame::none, needs);
}

} // namespace

SecondaryWindowFactory settingsFactory(const SecondaryWindowNeeds& needs)
{
    installWindowAccessibility();
    return [needs](AppState& appState) {
        auto* view =
            new SettingsView(appState, needs.theme, closing(appState, &AppState::settingsController));
        return chromelessControllerOf(QCoreApplication::translate("SecondaryWindows", "Settings"), view,
                                      settingsSize, needs);
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
        return chromelessControllerOf(
            QCoreApplication::translate("SecondaryWindows", "About Tessel Clipboard"), view, aboutSize,
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
        return controllerOf(std::unique_ptr<QWidget, Retirement>(view), WindowDescription::Frame::titleBar,
                            needs);
    };
}

} // namespace tessel
