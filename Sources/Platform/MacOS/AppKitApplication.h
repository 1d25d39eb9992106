#pragma once

#include "Application.h"

namespace tessel {

/// `NSApplication.sharedApplication`.
class AppKitApplication final : public Application {
public:
    void activate(IgnoringOtherApps ignoring) override;
    /// The toolkit's application delegate puts the end off to a later turn of the main loop.
    void terminate() override;
    bool isActive() const override;
    Token observeActivity(std::function<void()> didChange) override;
};

} // namespace tessel
