#pragma once

#include "AccessibilityTrust.h"

namespace tessel {

/// The system's list of the processes that are trusted for Accessibility.
class AXAccessibilityTrust final : public AccessibilityTrust {
public:
    bool isProcessTrusted() override;
    bool isProcessTrustedWithOptions(TrustPrompt prompt) override;
};

} // namespace tessel
