#pragma once

#include <memory>
#include <utility>

#include "Fakes/CallLog.h"
#include "UpdaterController.h"

namespace tessel::test {

class FakeUpdaterController final : public UpdaterController {
public:
    explicit FakeUpdaterController(std::shared_ptr<CallLog> log)
        : log_(std::move(log))
    {}

    void start() override { log_->effect("updater.start"); }
    void checkForUpdates() override { log_->effect("updater.checkForUpdates"); }

private:
    std::shared_ptr<CallLog> log_;
};

} // namespace tessel::test
