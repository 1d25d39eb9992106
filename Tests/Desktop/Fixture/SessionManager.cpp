#include "SessionManager.h"

#include "ClientFiles.h"

namespace tessel::desktop {

SessionManager::SessionManager(const Environment& environment)
    : process_({clientFile("session-manager").string()}, environment)
    , address_(process_.waitForLine("address ").substr(std::string("address ").size()))
{}

void SessionManager::waitForClient()
{
    process_.waitForLine("registered");
    process_.waitForLine("saved");
}

std::string SessionManager::save()
{
    process_.writeLine("save");
    const std::string prefix = "restart ";
    const auto style = process_.waitForLine(prefix).substr(prefix.size());
    process_.waitForLine("saved");
    return style;
}

void SessionManager::endSession()
{
    process_.writeLine("die");
}

void SessionManager::waitUntilClientIsGone()
{
    process_.waitForLine("closed");
}

} // namespace tessel::desktop
