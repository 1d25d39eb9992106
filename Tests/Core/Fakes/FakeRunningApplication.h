#pragma once

#include <memory>
#include <string>
#include <utility>
#include <vector>

#include "Fakes/CallLog.h"
#include "Workspace.h"

namespace tessel::test {

/// Another application of the desktop.
class FakeRunningApplication final : public RunningApplication {
public:
    FakeRunningApplication(std::shared_ptr<CallLog> log, std::string name, ProcessIdentifier process)
        : log_(std::move(log))
        , name_(std::move(name))
        , process_(process)
    {}

    /// As if the application had ended since it was recorded: it can no longer be activated.
    bool hasQuit = false;

    const std::vector<ActivationOptions>& activations() const { return activations_; }

    bool activate(ActivationOptions options) override
    {
        log_->effect("activate " + name_);
        activations_.push_back(options);
        return !hasQuit;
    }
    ProcessIdentifier processIdentifier() const override
    {
        log_->read("processIdentifier " + name_);
        return process_;
    }

private:
    std::shared_ptr<CallLog> log_;
    std::string name_;
    ProcessIdentifier process_;
    std::vector<ActivationOptions> activations_;
};

} // namespace tessel::test
