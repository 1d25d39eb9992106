#include "X11/X11AccessibilityTrust.h"

#include <algorithm>
#include <utility>

#include <QtGui/QGuiApplication>
#include <QtGui/QScreen>

namespace tessel {

namespace {

/// Xwayland says what it is by an extension; before version 23 only by the names of its outputs.
bool isXwayland(const X11Connection& connection)
{
    if (connection.extensions().wayland)
        return true;
    const auto screens = QGuiApplication::screens();
    return std::any_of(screens.begin(), screens.end(), [](const QScreen* screen) {
        return screen->name().startsWith(QLatin1String("XWAYLAND"));
    });
}

/// The compositor's socket, or what the session says of itself (systemd, `pam_systemd`).
bool isInWaylandSession()
{
    return !qEnvironmentVariableIsEmpty("WAYLAND_DISPLAY") || qgetenv("XDG_SESSION_TYPE") == "wayland";
}

} // namespace

bool reachesOtherApplications(const SessionFacts& facts)
{
    return facts.hasSyntheticKeys && !facts.serverIsOnWayland && !facts.sessionIsOnWayland;
}

X11AccessibilityTrust::X11AccessibilityTrust(const X11Connection& connection,
                                             std::function<void()> showPrompt)
    : facts_{connection.isAlive() && connection.extensions().test, isXwayland(connection),
             isInWaylandSession()}
    , showPrompt_(std::move(showPrompt))
{}

bool X11AccessibilityTrust::isProcessTrusted()
{
    return reachesOtherApplications(facts_);
}

bool X11AccessibilityTrust::isProcessTrustedWithOptions(TrustPrompt prompt)
{
    const bool isTrusted = isProcessTrusted();
    if (!isTrusted && prompt == TrustPrompt::show && showPrompt_)
        showPrompt_();
    return isTrusted;
}

} // namespace tessel
