#include "VirtualDisplay.h"

#include <filesystem>
#include <thread>
#include <vector>

namespace tessel::desktop {

namespace {

constexpr auto waylandSocket = "tessel-wayland";

std::vector<std::string> serverCommand(ServerChoice choice, Extent screen)
{
    // The server picks a free number and tells it; it stays up when its last client leaves.
    if (choice == ServerChoice::xwayland)
        return {"Xwayland", "-displayfd", "1", "-noreset"};
    const auto mode = std::to_string(screen.width) + "x" + std::to_string(screen.height) + "x24";
    std::vector<std::string> command = {"Xvfb", "-displayfd", "1",       "-noreset", "-nolisten", "tcp",
                                        "-dpi", "96",         "-screen", "0",        mode};
    if (choice == ServerChoice::withoutSyntheticKeys)
        command.insert(command.end(), {"-extension", "XTEST"});
    return command;
}

std::vector<std::string> compositorCommand(Extent screen)
{
    return {"weston",
            "--backend=headless-backend.so",
            "--no-config",
            "--idle-time=0",
            std::string("--socket=") + waylandSocket,
            "--width=" + std::to_string(screen.width),
            "--height=" + std::to_string(screen.height)};
}

/// Starts what the server shows its windows on, if anything, and returns when that listens.
std::unique_ptr<ChildProcess> startCompositor(ServerChoice choice, Extent screen,
                                              const Environment& environment)
{
    if (choice != ServerChoice::xwayland)
        return nullptr;
    auto compositor = std::make_unique<ChildProcess>(compositorCommand(screen), environment);
    const auto socket = std::filesystem::path(environment.at("XDG_RUNTIME_DIR")) / waylandSocket;
    const Deadline deadline;
    while (!std::filesystem::exists(socket)) {
        if (!compositor->isRunning() || deadline.hasPassed())
            throw DesktopFailure("no Wayland compositor; it said: " + compositor->errorOutput());
        std::this_thread::sleep_for(std::chrono::milliseconds(20));
    }
    return compositor;
}

Environment serverEnvironment(ServerChoice choice, Environment environment)
{
    if (choice == ServerChoice::xwayland)
        environment["WAYLAND_DISPLAY"] = waylandSocket;
    return environment;
}

} // namespace

VirtualDisplay::VirtualDisplay(Extent screen, const Environment& environment, ServerChoice choice)
    : compositor_(startCompositor(choice, screen, environment))
    , server_(serverCommand(choice, screen), serverEnvironment(choice, environment))
    , name_(":" + server_.waitForLine(""))
{}

} // namespace tessel::desktop
