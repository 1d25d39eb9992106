#include "X11/X11AccessibilityTrust.h"

#include <utility>

#include <QtCore/QtGlobal>

namespace tessel {

bool reachesOtherApplications(const SessionFacts& facts)
{
    return facts.hasSyntheticKeys && !facts.serverIsOnWayland && !facts.sessionIsOnWayland;
}

X11AccessibilityTrust::X11AccessibilityTrust(const X11Connection& connection,
                                             std::function<void()> showPrompt)
    : facts_{connection.isAlive() && connection.extensions().test, connection.extensions().wayland,
             !qEnvironmentVariableIsEmpty("WAYLAND_DISPLAY")}
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
