#include <CoreGraphics/CoreGraphics.h>

#import "Doubles/Message.h"
#import "Doubles/Reply.h"

using namespace tessel::test;

extern "C" {

CGEventSourceRef CGEventSourceCreate(CGEventSourceStateID state)
{
    return created<CGEventSourceRef>(
        Reply(call("CGEventSourceCreate", static_cast<int>(state))).object([NSObject class]));
}

CGEventRef CGEventCreateKeyboardEvent(CGEventSourceRef source, CGKeyCode keyCode, bool keyDown)
{
    return created<CGEventRef>(Reply(call("CGEventCreateKeyboardEvent", objectOf(source), keyCode, keyDown))
                                   .object([NSObject class]));
}

void CGEventSetFlags(CGEventRef event, CGEventFlags flags)
{
    Reply(call("CGEventSetFlags", objectOf(event), Mask{flags})).nothing();
}

void CGEventPostToPid(pid_t process, CGEventRef event)
{
    Reply(call("CGEventPostToPid", process, objectOf(event))).nothing();
}

void CGEventPost(CGEventTapLocation location, CGEventRef event)
{
    Reply(call("CGEventPost", static_cast<unsigned>(location), objectOf(event))).nothing();
}
}
