#include <CoreGraphics/CoreGraphics.h>

#import "Doubles/Message.h"
#import "Doubles/Reply.h"

using namespace tessel::test;

extern "C" {

CFDictionaryRef CGSessionCopyCurrentDictionary(void)
{
    const id session = Reply(call("CGSessionCopyCurrentDictionary")).object([NSDictionary class]);
    return session != nil ? created<CFDictionaryRef>(session) : nullptr;
}
}
