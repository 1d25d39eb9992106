#include <ApplicationServices/ApplicationServices.h>

#import "Doubles/Message.h"
#import "Doubles/Reply.h"

using namespace tessel::test;

const CFStringRef kAXTrustedCheckOptionPrompt = (__bridge CFStringRef) @"AXTrustedCheckOptionPrompt";

extern "C" {

Boolean AXIsProcessTrusted(void)
{
    return Reply(call("AXIsProcessTrusted")).boolean();
}

Boolean AXIsProcessTrustedWithOptions(CFDictionaryRef options)
{
    return Reply(call("AXIsProcessTrustedWithOptions", objectOf(options))).boolean();
}
}
