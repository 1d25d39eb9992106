#pragma once

#include <map>

#include "EventMonitors.h"

namespace tessel {

/// Local monitors of `NSEvent`. They see an event before the toolkit does.
class AppKitEventMonitors final : public EventMonitors {
public:
    AppKitEventMonitors();
    ~AppKitEventMonitors() override;

    /// Key-down events only; any other mask is refused.
    std::optional<EventMonitorToken> addLocalMonitor(std::uint64_t mask, Handler handler) override;
    void removeMonitor(EventMonitorToken token) override;

private:
    struct Native;
    std::map<EventMonitorToken, Native> monitors_;
    std::uint64_t lastToken_ = 0;
};

} // namespace tessel
