#include "Desktop/RemoteAction.h"

#include <gtest/gtest.h>

namespace tessel {
namespace {

TEST(RemoteAction, EveryCommandHasANameThatLeadsBackToIt)
{
    for (const RemoteCommand command :
         {RemoteCommand::openHistory, RemoteCommand::toggleHistory, RemoteCommand::clearHistory,
          RemoteCommand::settings, RemoteCommand::about, RemoteCommand::checkForUpdates,
          RemoteCommand::quit}) {
        EXPECT_FALSE(actionName(command).empty());
        EXPECT_EQ(commandForAction(actionName(command)), command);
    }
}

TEST(RemoteAction, ANameThatIsNobodysIsNoCommand)
{
    EXPECT_EQ(commandForAction(""), std::nullopt);
    EXPECT_EQ(commandForAction("Quit"), std::nullopt);
}

} // namespace
} // namespace tessel
