#pragma once

#include <functional>

#include "AccessibilityTrust.h"
#include "X11/X11Connection.h"

namespace tessel {

/// What decides whether synthetic keys reach other applications.
struct SessionFacts {
    bool hasSyntheticKeys = false;  ///< The server has XTEST.
    bool serverIsOnWayland = false; ///< The server shows its windows on a Wayland compositor.
    bool sessionIsOnWayland =
        false; ///< `WAYLAND_DISPLAY` is set: other applications may not be X clients at all.
};

/// In a Wayland session XTEST reaches X clients only, so a paste might silently go nowhere.
bool reachesOtherApplications(const SessionFacts& facts);

/// Trust on X11: the server lets every client send synthetic keys, so it is a matter of what the session can
/// do.
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
