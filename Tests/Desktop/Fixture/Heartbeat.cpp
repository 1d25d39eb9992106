#include "Heartbeat.h"

#include <algorithm>

#include "BusClient.h"

namespace tessel::desktop {

namespace {

/// How often the main thread is asked.
constexpr std::chrono::milliseconds interval{1};

/// Longer than any hold-up that is worth measuring.
constexpr std::chrono::milliseconds patience{60'000};

std::chrono::microseconds quantile(const std::vector<std::chrono::microseconds>& sorted, double fraction)
{
    const auto last = static_cast<double>(sorted.size() - 1);
    return sorted[static_cast<std::size_t>(fraction * last)];
}

} // namespace

Heartbeat::Heartbeat(const std::string& sessionBusAddress, BusAddress program)
{
    if (!BusClient(sessionBusAddress).askObject(program.name, program.path, Deadline()))
        throw DesktopFailure(program.name + " does not answer on the session bus");
    thread_ = std::thread(
        [this, sessionBusAddress, program = std::move(program)] { listen(sessionBusAddress, program); });
}

Heartbeat::~Heartbeat()
{
    isEnding_ = true;
    if (thread_.joinable())
        thread_.join();
}

void Heartbeat::listen(const std::string& sessionBusAddress, const BusAddress& program)
{
    BusClient client(sessionBusAddress);
    auto next = std::chrono::steady_clock::now();
    while (!isEnding_) {
        const auto asked = std::chrono::steady_clock::now();
        if (!client.askObject(program.name, program.path, Deadline(patience))) {
            hasLost_ = true;
            return;
        }
        const auto answered = std::chrono::steady_clock::now();
        answers_.push_back(std::chrono::duration_cast<std::chrono::microseconds>(answered - asked));
        next = std::max(next + interval, answered);
        std::this_thread::sleep_until(next);
    }
}

HeartbeatReport Heartbeat::finish()
{
    isEnding_ = true;
    thread_.join();
    if (hasLost_ || answers_.empty())
        throw DesktopFailure("the program stopped answering on the session bus");
    std::sort(answers_.begin(), answers_.end());
    return {answers_.size(), quantile(answers_, 0.5), quantile(answers_, 0.99), answers_.back()};
}

} // namespace tessel::desktop
