#import "SparkleUpdaterController.h"

#import <Sparkle/Sparkle.h>

#include "SystemUpdater.h"

namespace tessel {

struct SparkleUpdaterController::Native {
    SPUStandardUpdaterController* controller;
};

SparkleUpdaterController::SparkleUpdaterController()
    : native_(std::make_unique<Native>())
{}

SparkleUpdaterController::~SparkleUpdaterController() = default;

void SparkleUpdaterController::start()
{
    native_->controller = [[SPUStandardUpdaterController alloc] initWithStartingUpdater:YES
                                                                        updaterDelegate:nil
                                                                     userDriverDelegate:nil];
}

void SparkleUpdaterController::checkForUpdates()
{
    [native_->controller checkForUpdates:nil];
}

std::unique_ptr<UpdaterController> makeSystemUpdater()
{
    return std::make_unique<SparkleUpdaterController>();
}

} // namespace tessel
