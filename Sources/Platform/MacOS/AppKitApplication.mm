#import "AppKitApplication.h"

#import <AppKit/AppKit.h>

namespace tessel {

namespace {

/// `work` by value: a block would keep a reference as it is.
id observe(NSNotificationCenter* center, NSNotificationName name, std::function<void()> work)
{
    return [center addObserverForName:name
                               object:nil
                                queue:nil
                           usingBlock:^(NSNotification*) {
                             work();
                           }];
}

} // namespace

void AppKitApplication::activate(IgnoringOtherApps ignoring)
{
    [NSApplication.sharedApplication activateIgnoringOtherApps:ignoring == IgnoringOtherApps::yes];
}

void AppKitApplication::terminate()
{
    [NSApplication.sharedApplication terminate:nil];
}

bool AppKitApplication::isActive() const
{
    return NSApplication.sharedApplication.active;
}

Token AppKitApplication::observeActivity(std::function<void()> didChange)
{
    NSNotificationCenter* const center = NSNotificationCenter.defaultCenter;
    const id becoming = observe(center, NSApplicationDidBecomeActiveNotification, didChange);
    const id resigning = observe(center, NSApplicationDidResignActiveNotification, didChange);
    return Token([center, becoming, resigning] {
        [center removeObserver:becoming];
        [center removeObserver:resigning];
    });
}

} // namespace tessel
