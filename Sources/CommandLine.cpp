#include "CommandLine.h"

namespace tessel {

namespace {

std::optional<CommandLine> lineForOption(std::string_view option)
{
    using Purpose = CommandLine::Purpose;
    if (option == "--toggle")
        return CommandLine{Purpose::run, RemoteCommand::toggleHistory, {}};
    if (option == "--show")
        return CommandLine{Purpose::run, RemoteCommand::openHistory, {}};
    if (option == "--clear")
        return CommandLine{Purpose::run, RemoteCommand::clearHistory, {}};
    if (option == "--settings")
        return CommandLine{Purpose::run, RemoteCommand::settings, {}};
    if (option == "--about")
        return CommandLine{Purpose::run, RemoteCommand::about, {}};
    if (option == "--check-for-updates")
        return CommandLine{Purpose::run, RemoteCommand::checkForUpdates, {}};
    if (option == "--quit")
        return CommandLine{Purpose::run, RemoteCommand::quit, {}};
    if (option == "--version")
        return CommandLine{Purpose::version, {}, {}};
    if (option == "--help" || option == "-h")
        return CommandLine{Purpose::help, {}, {}};
    return std::nullopt;
}

} // namespace

CommandLine parseCommandLine(std::span<const char* const> arguments)
{
    if (arguments.empty())
        return {};
    const auto line = lineForOption(arguments.front());
    if (!line)
        return {CommandLine::Purpose::invalid, {}, arguments.front()};
    if (arguments.size() > 1)
        return {CommandLine::Purpose::invalid, {}, arguments[1]};
    return *line;
}

std::string_view helpText()
{
    return "Usage: tessel-clipboard [OPTION]\n"
           "Keeps the history of what you copy. Press Super+Shift+V to open it, choose with the arrow keys,\n"
           "and press Return to paste.\n"
           "\n"
           "  --toggle             open the history, or close it when it is open\n"
           "  --show               open the history\n"
           "  --clear              remove every entry from the history, pinned ones too\n"
           "  --settings           open the settings\n"
           "  --about              say what this program is, and its keys\n"
           "  --check-for-updates  look for a new version\n"
           "  --quit               end the running program\n"
           "  --version            print the version\n"
           "  --help               print this text\n"
           "\n"
           "Without an option the program starts; when it is running already, its history opens.\n";
}

} // namespace tessel
