#pragma once

#include <memory>

#include "UpdaterController.h"

namespace tessel {

/// Sparkle's standard controller, without delegates. Its feed and its key are in the bundle's information.
class SparkleUpdaterController final : public UpdaterController {
public:
    SparkleUpdaterController();
    ~SparkleUpdaterController() override;

    /// Makes the controller, which starts its updater at once.
    void start() override;
    /// Does nothing before the start.
    void checkForUpdates() override;

private:
    struct Native;
    std::unique_ptr<Native> native_;
};

} // namespace tessel
