#pragma once

#include <memory>
#include <string>
#include <utility>
#include <vector>

#include "Fakes/CallLog.h"
#include "Fakes/FakeRunningApplication.h"
#include "Workspace.h"

namespace tessel::test {

/// A workspace whose front application the test chooses.
class FakeWorkspace final : public Workspace {
public:
    explicit FakeWorkspace(std::shared_ptr<CallLog> log)
        : log_(std::move(log))
    {}

    /// Null: none.
    std::shared_ptr<FakeRunningApplication> frontmost;

    const std::vector<std::string>& openedURLs() const { return openedURLs_; }

    std::shared_ptr<RunningApplication> frontmostApplication() override
    {
        log_->read("workspace.frontmostApplication");
        return frontmost;
    }
    void openURL(std::string_view url) override
    {
        log_->effect("workspace.openURL");
        openedURLs_.emplace_back(url);
    }

private:
    std::shared_ptr<CallLog> log_;
    std::vector<std::string> openedURLs_;
};

} // namespace tessel::test
