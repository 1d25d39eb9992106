#pragma once

#include "Workspace.h"

namespace tessel {

/// `NSWorkspace.sharedWorkspace` and its running applications.
class AppKitWorkspace final : public Workspace {
public:
    std::shared_ptr<RunningApplication> frontmostApplication() override;
    void openURL(std::string_view url) override;
};

} // namespace tessel
