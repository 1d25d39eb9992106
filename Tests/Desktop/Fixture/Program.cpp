#include "Program.h"

#include <signal.h>

#include <array>
#include <cstdlib>
#include <utility>

#include "BusClient.h"

namespace tessel::desktop {

namespace {

std::vector<std::string> commandLine(const std::vector<std::string>& arguments)
{
    std::vector<std::string> command{Program::executable().string()};
    command.insert(command.end(), arguments.begin(), arguments.end());
    return command;
}

} // namespace

BusAddress Program::busAddress()
{
    return {"org.tesselclipboard.TesselClipboard", "/org/tesselclipboard/TesselClipboard"};
}

std::filesystem::path Program::executable()
{
    if (const char* chosen = std::getenv("TESSEL_CLIPBOARD_PROGRAM"))
        return chosen;
    return TESSEL_CLIPBOARD_PROGRAM;
}

CommandResult Program::runOption(Desktop& desktop, const std::string& option)
{
    return runCommand(commandLine({option}), desktop.environment());
}

std::string Program::sanitizerComplaint(const std::string& errorOutput)
{
    constexpr std::array marks{"ERROR: AddressSanitizer", "ERROR: LeakSanitizer",
                               "runtime error:", "WARNING: ThreadSanitizer"};
    for (const auto* mark : marks) {
        if (const auto place = errorOutput.find(mark); place != std::string::npos)
            return errorOutput.substr(errorOutput.rfind('\n', place) + 1);
    }
    return {};
}

Program::Program(Desktop& desktop, const std::vector<std::string>& arguments, HotKey hotKey)
    : desktop_(desktop)
    , hotKey_(std::move(hotKey))
    , process_(commandLine(arguments), desktop.environment())
    , panel_(desktop, process_.pid())
{
    desktop_.connection().waitUntil("Tessel Clipboard to be ready", [this] { return isReady(); });
}

Program::~Program() = default;

bool Program::isReady()
{
    if (!process_.isRunning())
        throw DesktopFailure("Tessel Clipboard ended while starting; it said: " + process_.errorOutput());
    // The bus comes first: the program answers there once it has started, and asking whether the hot key is
    // taken takes it for a moment, which must not meet the program's own attempt.
    if (!desktop_.busAddress().empty()) {
        const auto address = busAddress();
        if (!BusClient(desktop_.busAddress()).askObject(address.name, address.path, Deadline()))
            return false;
    }
    return desktop_.keyboard().isGrabbed(XKB_KEY_v, hotKey_.mask);
}

void Program::waitUntilItHasRead()
{
    desktop_.connection().synchronize();
    // An answer comes from a turn of the main loop. In the next one everything has been read that had come
    // before the question; what that sets in motion takes a few more.
    constexpr int turns = 10;
    BusClient client(desktop_.busAddress());
    const auto address = busAddress();
    for (int turn = 0; turn < turns; ++turn) {
        if (!client.askObject(address.name, address.path, Deadline()))
            throw DesktopFailure("the program does not answer on the session bus");
    }
}

void Program::pressHotKey(std::chrono::milliseconds hold)
{
    for (const KeySymbol modifier : hotKey_.modifiers)
        desktop_.keyboard().press(modifier);
    desktop_.keyboard().tap(XKB_KEY_v, hold);
    for (auto modifier = hotKey_.modifiers.rbegin(); modifier != hotKey_.modifiers.rend(); ++modifier)
        desktop_.keyboard().release(*modifier);
}

WindowFacts Program::openPanel()
{
    pressHotKey();
    return panel_.waitUntilOpen();
}

void Program::closePanel()
{
    desktop_.keyboard().tap(XKB_KEY_Escape);
    panel_.waitUntilClosed();
}

ExitStatus Program::quit()
{
    if (desktop_.busAddress().empty())
        process_.signal(SIGTERM);
    else
        runOption(desktop_, "--quit");
    return process_.waitForExit();
}

} // namespace tessel::desktop
