#include "Desktop/RemoteAction.h"

#include <array>

namespace tessel {

namespace {

struct Action {
    RemoteCommand command;
    std::string_view name;
};

constexpr std::array actions = {
    Action{RemoteCommand::openHistory, "open-history"},
    Action{RemoteCommand::toggleHistory, "toggle-history"},
    Action{RemoteCommand::clearHistory, "clear-history"},
    Action{RemoteCommand::settings, "settings"},
    Action{RemoteCommand::about, "about"},
    Action{RemoteCommand::checkForUpdates, "check-for-updates"},
    Action{RemoteCommand::quit, "quit"},
};

} // namespace

std::string_view actionName(RemoteCommand command)
{
    for (const Action& action : actions) {
        if (action.command == command)
            return action.name;
    }
    return {};
}

std::optional<RemoteCommand> commandForAction(std::string_view name)
{
    for (const Action& action : actions) {
        if (action.name == name)
            return action.command;
    }
    return std::nullopt;
}

} // namespace tessel
