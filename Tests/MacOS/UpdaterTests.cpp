#include "SparkleUpdaterController.h"
#include "Support/MacOSTest.h"

namespace tessel::test {
namespace {

using UpdaterTests = MacOSTest;

TEST_F(UpdaterTests, StartingMakesTheStandardControllerThatStartsItsUpdaterWithoutDelegates)
{
    SparkleUpdaterController updater;
    expectCall("[SPUStandardUpdaterController initWithStartingUpdater:YES updaterDelegate:nil "
               "userDriverDelegate:nil]",
               Object{"controller"});
    updater.start();
}

TEST_F(UpdaterTests, ChecksForUpdatesWithoutASender)
{
    SparkleUpdaterController updater;
    expectCall("[SPUStandardUpdaterController initWithStartingUpdater:YES updaterDelegate:nil "
               "userDriverDelegate:nil]",
               Object{"controller"});
    updater.start();
    expectCall("[controller checkForUpdates:nil]");
    updater.checkForUpdates();
}

TEST_F(UpdaterTests, BeforeTheStartThereIsNothingToCheck)
{
    SparkleUpdaterController().checkForUpdates();
}

} // namespace
} // namespace tessel::test
