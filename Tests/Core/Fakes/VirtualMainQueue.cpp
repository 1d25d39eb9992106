#include "Fakes/VirtualMainQueue.h"

#include <cmath>
#include <sstream>

namespace tessel::test {

namespace {

std::chrono::nanoseconds nanoseconds(double seconds)
{
    return std::chrono::nanoseconds(std::llround(seconds * 1e9));
}

std::string callText(const char* call, double seconds)
{
    std::ostringstream text;
    text << call << ' ' << seconds;
    return text.str();
}

} // namespace

VirtualMainQueue::VirtualMainQueue(std::shared_ptr<CallLog> log, std::shared_ptr<VirtualClock> clock)
    : log_(std::move(log))
    , clock_(std::move(clock))
{}

void VirtualMainQueue::advance(double seconds)
{
    const Time end = state_->now + nanoseconds(seconds);
    while (!state_->jobs.empty() && state_->jobs.begin()->first <= end)
        runNext();
    moveTo(end);
}

void VirtualMainQueue::async(std::function<void()> work)
{
    log_->effect("queue.async");
    schedule(state_->now, std::move(work), std::nullopt);
}

void VirtualMainQueue::asyncAfter(double seconds, std::function<void()> work)
{
    log_->effect(callText("queue.asyncAfter", seconds));
    schedule(state_->now + nanoseconds(seconds), std::move(work), std::nullopt);
}

Token VirtualMainQueue::repeat(double seconds, std::function<void()> work)
{
    log_->effect(callText("queue.repeat", seconds));
    const Time interval = nanoseconds(seconds);
    const std::uint64_t number = schedule(state_->now + interval, std::move(work), interval);
    return Token([weak = std::weak_ptr(state_), log = log_, number] {
        log->effect("queue.stopRepeating");
        if (const auto state = weak.lock())
            std::erase_if(state->jobs, [number](const auto& entry) { return entry.second.number == number; });
    });
}

std::uint64_t VirtualMainQueue::schedule(Time due, std::function<void()> work, std::optional<Time> interval)
{
    const std::uint64_t number = state_->nextNumber++;
    auto shared = std::make_shared<const std::function<void()>>(std::move(work));
    state_->jobs.emplace(due, Job{number, std::move(shared), interval});
    return number;
}

void VirtualMainQueue::runNext()
{
    const auto next = state_->jobs.begin();
    const Time due = next->first;
    const Job job = next->second; // A copy: the job may drop itself while it runs.
    state_->jobs.erase(next);
    if (job.interval)
        state_->jobs.emplace(due + *job.interval, job);
    moveTo(due);
    (*job.work)();
}

void VirtualMainQueue::moveTo(Time time)
{
    clock_->advance(time - state_->now);
    state_->now = time;
}

} // namespace tessel::test
