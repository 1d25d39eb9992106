#import <AppKit/AppKit.h>

#include <vector>

#include <gtest/gtest.h>

#import "Doubles/Message.h"
#import "Doubles/Reply.h"
#include "Runtime/Runtime.h"
#include "Support/System.h"

using namespace tessel;
using namespace tessel::test;

@interface EventMonitor : NSObject
@property(nonatomic, copy) NSEvent* (^handler)(NSEvent*);
@end

@implementation EventMonitor
@end

namespace {

/// The system keeps what has been installed.
std::vector<EventMonitor*>& monitors()
{
    static auto* installed = new std::vector<EventMonitor*>;
    return *installed;
}

} // namespace

@implementation NSEvent

+ (NSPoint)mouseLocation
{
    return Reply(message("NSEvent", "mouseLocation")).point();
}

- (unsigned short)keyCode
{
    return static_cast<unsigned short>(Reply(message(self, "keyCode")).integer());
}

- (NSEventModifierFlags)modifierFlags
{
    return static_cast<NSEventModifierFlags>(Reply(message(self, "modifierFlags")).integer());
}

+ (id)addLocalMonitorForEventsMatchingMask:(NSEventMask)mask handler:(NSEvent* (^)(NSEvent*))handler
{
    EventMonitor* monitor =
        Reply(message("NSEvent", "addLocalMonitorForEventsMatchingMask:",
                      static_cast<unsigned long long>(mask), "handler:", static_cast<id>(handler)))
            .object([EventMonitor class]);
    if (monitor == nil)
        return nil;
    monitor.handler = handler;
    monitors().push_back(monitor);
    return monitor;
}

+ (void)removeMonitor:(id)monitor
{
    Reply(message("NSEvent", "removeMonitor:", monitor)).nothing();
    if (std::erase(monitors(), monitor) != 1)
        ADD_FAILURE() << "Removed was a monitor that is not installed";
}

@end

namespace tessel::test {

bool deliverKeyDown(const std::string& name)
{
    const objc::AutoreleasePool turn;
    NSEvent* event = [NSEvent alloc];
    objc::setName((__bridge void*)event, name);
    const auto installed = monitors();
    for (EventMonitor* monitor : installed) {
        event = monitor.handler(event);
        if (event == nil)
            return false;
    }
    return true;
}

} // namespace tessel::test
