#import "AppKitEventMonitors.h"

#include <utility>

#import <AppKit/AppKit.h>

namespace tessel {

namespace {

KeyEvent keyEvent(NSEvent* event)
{
    return {event.keyCode, static_cast<ModifierFlags>(event.modifierFlags)};
}

} // namespace

struct AppKitEventMonitors::Native {
    id monitor;
};

AppKitEventMonitors::AppKitEventMonitors() = default;

AppKitEventMonitors::~AppKitEventMonitors()
{
    for (const auto& [token, native] : monitors_)
        [NSEvent removeMonitor:native.monitor];
}

std::optional<EventMonitorToken> AppKitEventMonitors::addLocalMonitor(std::uint64_t mask, Handler handler)
{
    if (mask != keyDownMask || !handler)
        return std::nullopt;
    const id monitor = [NSEvent
        addLocalMonitorForEventsMatchingMask:mask
                                     handler:^NSEvent*(NSEvent* event) {
                                       return handler(keyEvent(event)) == EventOutcome::consumed ? nil
                                                                                                 : event;
                                     }];
    if (monitor == nil)
        return std::nullopt;
    const auto token = EventMonitorToken{++lastToken_};
    monitors_.emplace(token, Native{monitor});
    return token;
}

void AppKitEventMonitors::removeMonitor(EventMonitorToken token)
{
    const auto monitor = monitors_.extract(token);
    if (!monitor.empty())
        [NSEvent removeMonitor:monitor.mapped().monitor];
}

} // namespace tessel
