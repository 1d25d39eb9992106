#import "CoreGraphicsKeyStrokes.h"

#include <CoreGraphics/CoreGraphics.h>

#include "CoreFoundationOwner.h"

namespace tessel {

namespace {

void post(CGEventRef event, std::optional<ProcessIdentifier> process)
{
    if (process)
        CGEventPostToPid(static_cast<pid_t>(*process), event);
    else
        CGEventPost(kCGHIDEventTap, event);
}

} // namespace

void CoreGraphicsKeyStrokes::postKeyStroke(std::uint16_t keyCode, ModifierFlags flags,
                                           std::optional<ProcessIdentifier> process)
{
    const CoreFoundationOwner<CGEventSourceRef> source(
        CGEventSourceCreate(kCGEventSourceStateHIDSystemState));
    if (!source)
        return;
    const CoreFoundationOwner<CGEventRef> down(CGEventCreateKeyboardEvent(source.get(), keyCode, true));
    const CoreFoundationOwner<CGEventRef> up(CGEventCreateKeyboardEvent(source.get(), keyCode, false));
    if (!down || !up)
        return;
    CGEventSetFlags(down.get(), static_cast<CGEventFlags>(flags));
    CGEventSetFlags(up.get(), static_cast<CGEventFlags>(flags));
    post(down.get(), process);
    post(up.get(), process);
}

} // namespace tessel
