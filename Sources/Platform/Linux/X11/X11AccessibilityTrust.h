#pragma once

#include <functional>

#include "AccessibilityTrust.h"
#include "X11/X11Connection.h"

namespace tessel {

/// What decides whether synthetic keys reach other applications.
struct SessionFacts {
    bool hasSyntheticKeys = false;  ///< The server has XTEST.
    bool serverIsOnWayland = false; ///< The server shows its windows on a Wayland compositor.
    /// `WAYLAND_DISPLAY` or `XDG_SESSION_TYPE` say so: other applications may not be X clients at all.
    bool sessionIsOnWayland = false;
};

/// In a Wayland session XTEST reaches X clients only, so a paste might silently go nowhere.
bool reachesOtherApplications(const SessionFacts& facts);

/// Trust on X11: the server lets every client send synthetic keys, so it is a matter of what the session can
/// do. The session does not change, so it is looked at once. To be made when the toolkit's application
/// exists.
class X11AccessibilityTrust : public AccessibilityTrust {
public:
    /// `showPrompt` shows a small window that says what is missing. It must not wait.
    X11AccessibilityTrust(const X11Connection& connection, std::function<void()> showPrompt);

    bool isProcessTrusted() override;
    bool isProcessTrustedWithOptions(TrustPrompt prompt) override;

private:
    SessionFacts facts_;
    std::function<void()> showPrompt_;
};

} // namespace tessel
