#pragma once

#include <map>
#include <memory>
#include <utility>

#include <gtest/gtest.h>

#include "EventMonitors.h"
#include "Fakes/CallLog.h"

namespace tessel::test {

/// Monitors whose key presses the test makes. Removing what is not installed fails the test.
class FakeEventMonitors final : public EventMonitors {
public:
    explicit FakeEventMonitors(std::shared_ptr<CallLog> log)
        : log_(std::move(log))
    {}

    bool refuses = false;

    std::size_t count() const { return monitors_.size(); }

    /// A key goes down in a window of this application. `passOn`: it would reach the focused view.
    EventOutcome press(std::uint16_t keyCode, ModifierFlags flags = ModifierFlags::none)
    {
        const auto monitors = monitors_; // A monitor may be removed while it runs.
        for (const auto& [token, handler] : monitors) {
            if (handler({keyCode, flags}) == EventOutcome::consumed)
                return EventOutcome::consumed;
        }
        return EventOutcome::passOn;
    }

    std::optional<EventMonitorToken> addLocalMonitor(std::uint64_t mask, Handler handler) override
    {
        log_->effect("eventMonitors.add " + std::to_string(mask));
        if (refuses)
            return std::nullopt;
        const EventMonitorToken token{nextToken_++};
        monitors_.emplace(token, std::move(handler));
        return token;
    }
    void removeMonitor(EventMonitorToken token) override
    {
        log_->effect("eventMonitors.remove");
        EXPECT_EQ(monitors_.erase(token), 1U) << "A monitor that is not installed was removed.";
    }

private:
    std::shared_ptr<CallLog> log_;
    std::map<EventMonitorToken, Handler> monitors_;
    std::uint64_t nextToken_ = 1;
};

} // namespace tessel::test
