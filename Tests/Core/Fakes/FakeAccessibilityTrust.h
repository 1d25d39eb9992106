#pragma once

#include <memory>
#include <utility>
#include <vector>

#include "AccessibilityTrust.h"
#include "Fakes/CallLog.h"

namespace tessel::test {

class FakeAccessibilityTrust final : public AccessibilityTrust {
public:
    explicit FakeAccessibilityTrust(std::shared_ptr<CallLog> log)
        : log_(std::move(log))
    {}

    bool isTrusted = true;

    /// The prompt option of every question that carried one.
    const std::vector<TrustPrompt>& promptOptions() const { return promptOptions_; }

    bool isProcessTrusted() override
    {
        log_->read("trust.isProcessTrusted");
        return isTrusted;
    }
    bool isProcessTrustedWithOptions(TrustPrompt prompt) override
    {
        log_->effect(prompt == TrustPrompt::show ? "trust.prompt" : "trust.askWithoutPrompt");
        promptOptions_.push_back(prompt);
        return isTrusted;
    }

private:
    std::shared_ptr<CallLog> log_;
    std::vector<TrustPrompt> promptOptions_;
};

} // namespace tessel::test
