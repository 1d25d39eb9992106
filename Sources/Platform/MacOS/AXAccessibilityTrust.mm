#import "AXAccessibilityTrust.h"

#include <ApplicationServices/ApplicationServices.h>
#import <Foundation/Foundation.h>

namespace tessel {

bool AXAccessibilityTrust::isProcessTrusted()
{
    return AXIsProcessTrusted() != 0;
}

bool AXAccessibilityTrust::isProcessTrustedWithOptions(TrustPrompt prompt)
{
    NSString* const promptOption = (__bridge NSString*)kAXTrustedCheckOptionPrompt;
    NSDictionary* const options = @{promptOption : @(prompt == TrustPrompt::show)};
    return AXIsProcessTrustedWithOptions((__bridge CFDictionaryRef)options) != 0;
}

} // namespace tessel
