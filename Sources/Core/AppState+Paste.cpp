#include "AppState.h"

namespace tessel {

namespace {

/// The page of the system's settings where the permission is given.
constexpr std::string_view privacySettingsAddress =
    "x-apple.systempreferences:com.apple.preference.security?Privacy_Accessibility";

} // namespace

void AppState::copyToClipboard(const ClipboardItem& item)
{
    ignoredNextFingerprint_ = item.identity(*platform_.digest);
    platform_.pasteboard->clearContents();
    if (const auto* text = std::get_if<SharedText>(&item.content))
        platform_.pasteboard->setString(*text);
    else
        platform_.pasteboard->writeObjects(std::get<SharedImage>(item.content));
}

void AppState::copyAndPaste(const ClipboardItem& item)
{
    copyToClipboard(item);
    closeAndDrop(panelController);
    if (targetApplication_)
        targetApplication_->activate(ActivationOptions::ignoringOtherApps);

    if (!platform_.accessibilityTrust->isProcessTrusted()) {
        requestAccessibilityAndOpenSettings();
        return;
    }

    constexpr double delayAfterActivation =
        0.12; // Seconds: the application needs a moment to take the focus.
    std::optional<ProcessIdentifier> process;
    if (targetApplication_)
        process = targetApplication_->processIdentifier();
    platform_.mainQueue->asyncAfter(delayAfterActivation,
                                    weakly([process](AppState& self) { self.postPasteKeyStroke(process); }));
}

void AppState::postPasteKeyStroke(std::optional<ProcessIdentifier> process)
{
    platform_.keyStrokes->postKeyStroke(VirtualKey::v, ModifierFlags::command, process);
}

void AppState::requestAccessibilityAndOpenSettings()
{
    platform_.accessibilityTrust->isProcessTrustedWithOptions(TrustPrompt::show);
    platform_.workspace->openURL(privacySettingsAddress);
}

} // namespace tessel
