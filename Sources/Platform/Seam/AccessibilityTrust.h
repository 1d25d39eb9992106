#pragma once

namespace tessel {

/// Whether the system shows its permission prompt when the process is not trusted
/// (`kAXTrustedCheckOptionPrompt`).
enum class TrustPrompt { show, suppress };

/// May this process send synthetic keys to other applications?
class AccessibilityTrust {
public:
    virtual ~AccessibilityTrust() = default;

    /// `AXIsProcessTrusted`: asks without any prompt.
    virtual bool isProcessTrusted() = 0;
    /// `AXIsProcessTrustedWithOptions`. Never waits for the user's answer.
    virtual bool isProcessTrustedWithOptions(TrustPrompt prompt) = 0;
};

} // namespace tessel
