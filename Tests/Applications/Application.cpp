#include "Application.h"

#include <signal.h>

#include <cerrno>

namespace tessel::desktop {

namespace {

/// For starts, answers and ends of big applications on a busy machine.
constexpr std::chrono::milliseconds patience{400'000};

Environment together(Environment environment, const Environment& variables)
{
    for (const auto& [name, value] : variables)
        environment[name] = value;
    return environment;
}

WindowFacts awaitReadyWindow(Desktop& desktop, ChildProcess& process, const WindowCondition& isReady)
{
    std::optional<WindowFacts> found;
    desktop.connection().waitUntil(
        "the window of " + process.name(),
        [&] {
            if (!process.isRunning())
                throw DesktopFailure(process.name() + " ended; it said: " + process.errorOutput());
            found = desktop.windows().find(
                [&](const WindowFacts& window) { return window.isViewable && isReady(window); });
            return found.has_value();
        },
        Deadline(patience));
    return *found;
}

bool isGone(std::optional<pid_t> process)
{
    return !process || (::kill(*process, 0) != 0 && errno == ESRCH);
}

} // namespace

Application::Application(Desktop& desktop, ApplicationDescription description)
    : desktop_(desktop)
    , description_(std::move(description))
    , process_(description_.command, together(desktop.environment(), description_.variables))
    , clipboard_(desktop.displayName())
    , window_(awaitReadyWindow(desktop, process_, description_.isReady))
{
    activate();
}

void Application::activate()
{
    desktop_.windows().activate(window_.window);
    desktop_.connection().waitUntil(
        process_.name() + " to have the focus",
        [this] { return desktop_.windows().hasFocus(window_.window); }, Deadline(patience));
}

WindowFacts Application::window() const
{
    const auto facts = desktop_.windows().facts(window_.window);
    if (!facts)
        throw DesktopFailure("the window of " + process_.name() + " is gone");
    return *facts;
}

void Application::waitForTitle(const std::string& part)
{
    std::string seen;
    try {
        desktop_.connection().waitUntil(
            "the title of " + process_.name(),
            [&] {
                seen = window().title;
                return seen.find(part) != std::string::npos;
            },
            Deadline(patience));
    } catch (const DesktopFailure& failure) {
        throw DesktopFailure(std::string(failure.what()) + ": expected \"" + part + "\" in it, it is \"" +
                             seen + "\"");
    }
}

void Application::copy()
{
    activate();
    const auto before = clipboard_.count();
    description_.pressCopyKeys(desktop_.keyboard());
    clipboard_.waitForMoreThan(before, Deadline(patience));
    selectionWindow_ = desktop_.connection().selectionOwner("CLIPBOARD");
}

void Application::quit()
{
    activate();
    description_.pressQuitKeys(desktop_.keyboard());
    const auto status = process_.waitForExit(Deadline(patience));
    if (!status.succeeded())
        throw DesktopFailure(process_.name() + " failed when it quit: " + status.description() +
                             "; it said: " + process_.errorOutput());
    desktop_.connection().waitUntil(process_.name() + " and its windows to be gone", [this] {
        return isGone(window_.processIdentifier) && !windowExists(window_.window) &&
               !windowExists(selectionWindow_);
    });
}

bool Application::windowExists(xcb_window_t window) const
{
    auto* connection = desktop_.connection().get();
    const auto cookie = xcb_get_window_attributes(connection, window);
    return own(xcb_get_window_attributes_reply(connection, cookie, nullptr)) != nullptr;
}

} // namespace tessel::desktop
