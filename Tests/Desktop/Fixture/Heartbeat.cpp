#include "Heartbeat.h"

#include <algorithm>
#include <iterator>
#include <numeric>

#include "BusClient.h"
#include "ProcessorWait.h"

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

std::chrono::microseconds toMicroseconds(std::chrono::nanoseconds time)
{
    return std::chrono::duration_cast<std::chrono::microseconds>(time);
}

std::chrono::nanoseconds sum(const std::vector<ProcessorWait>& waits)
{
    return std::accumulate(
        waits.begin(), waits.end(), std::chrono::nanoseconds{},
        [](std::chrono::nanoseconds total, const ProcessorWait& wait) { return total + wait.total(); });
}

} // namespace

Heartbeat::Heartbeat(const std::string& sessionBusAddress, BusAddress program, std::vector<pid_t> processes)
{
    if (!BusClient(sessionBusAddress).askObject(program.name, program.path, Deadline()))
        throw DesktopFailure(program.name + " does not answer on the session bus");
    thread_ =
        std::thread([this, sessionBusAddress, program = std::move(program),
                     processes = std::move(processes)] { listen(sessionBusAddress, program, processes); });
}

Heartbeat::~Heartbeat()
{
    isEnding_ = true;
    if (thread_.joinable())
        thread_.join();
}

void Heartbeat::listen(const std::string& sessionBusAddress, const BusAddress& program,
                       const std::vector<pid_t>& processes)
{
    BusClient client(sessionBusAddress);
    std::vector<ProcessorWait> waits;
    waits.push_back(ProcessorWait::ofThisThread());
    std::transform(processes.begin(), processes.end(), std::back_inserter(waits),
                   &ProcessorWait::ofMainThread);
    // Without one there is this thread, which does next to nothing.
    const ProcessorWait& asked = waits.at(processes.empty() ? 0 : 1);
    auto next = std::chrono::steady_clock::now();
    while (!isEnding_) {
        const auto waitedBefore = sum(waits);
        const auto ownWaitBefore = asked.total();
        const auto runBefore = asked.run();
        const auto before = std::chrono::steady_clock::now();
        if (!client.askObject(program.name, program.path, Deadline(patience))) {
            hasLost_ = true;
            return;
        }
        const auto answered = std::chrono::steady_clock::now();
        const auto run = asked.run() - runBefore;
        const auto ownWait = asked.total() - ownWaitBefore;
        const auto waited = sum(waits) - waitedBefore;
        answers_.push_back(toMicroseconds(answered - before));
        longestAtWork_ = std::max(longestAtWork_, toMicroseconds(answered - before - waited));
        longestRun_ = std::max(longestRun_, toMicroseconds(run - (waited - ownWait)));
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
    return {answers_.size(), quantile(answers_, 0.5), quantile(answers_, 0.99),
            answers_.back(), longestAtWork_,          longestRun_};
}

} // namespace tessel::desktop
