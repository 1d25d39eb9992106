#include "PollCost.h"

#include <chrono>

#include "Fakes/FakeDesktop.h"
#include "X11/Selections/X11Pasteboard.h"

namespace tessel::bench {

namespace {

double microsecondsPerTurn(test::VirtualMainQueue& queue)
{
    constexpr int turns = 20'000;
    const auto started = std::chrono::steady_clock::now();
    for (int turn = 0; turn < turns; ++turn)
        queue.advance(test::FakeDesktop::pollInterval);
    const auto span = std::chrono::steady_clock::now() - started;
    return std::chrono::duration<double, std::micro>(span).count() / turns;
}

double microsecondsOfNothing()
{
    const auto clock = std::make_shared<test::VirtualClock>();
    test::VirtualMainQueue queue(std::make_shared<test::CallLog>(), clock);
    const Token nothing = queue.repeat(test::FakeDesktop::pollInterval, [] {});
    return microsecondsPerTurn(queue);
}

} // namespace

PollCost measurePoll(const std::string& displayName)
{
    test::FakeDesktop desktop;
    SelectionsEnvironment environment;
    environment.postToMain = [](const std::function<void()>&) {};
    environment.fingerprintImage = [](const PlatformImage&) { return std::string(); };
    environment.displayName = displayName;
    Platform platform = desktop.platform();
    platform.pasteboard = std::make_shared<X11Pasteboard>(environment);
    const auto state = AppState::create(platform, desktop.windowFactory());
    History history;
    for (int number = 0; number < 100; ++number)
        history.push_back(
            {UUID::random(), std::make_shared<const std::string>(std::to_string(number)), Date{}});
    state->history = history;
    return {microsecondsPerTurn(*desktop.queue), microsecondsOfNothing()};
}

} // namespace tessel::bench
