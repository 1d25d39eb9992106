#include "X11/X11AccessibilityTrust.h"

#include <utility>

#include <QtCore/QtGlobal>

#include "X11/Xwayland.h"

namespace tessel {

namespace {

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
