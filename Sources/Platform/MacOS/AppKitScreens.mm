#import "AppKitScreens.h"

#import <AppKit/AppKit.h>

namespace tessel {

namespace {

Rect rect(NSRect rectangle)
{
    return {{rectangle.origin.x, rectangle.origin.y}, {rectangle.size.width, rectangle.size.height}};
}

Screen screen(NSScreen* native)
{
    return {.frame = rect(native.frame), .visibleFrame = rect(native.visibleFrame)};
}

} // namespace

std::vector<Screen> AppKitScreens::screens() const
{
    std::vector<Screen> screens;
    for (NSScreen* native in NSScreen.screens)
        screens.push_back(screen(native));
    return screens;
}

std::optional<Screen> AppKitScreens::mainScreen() const
{
    NSScreen* const main = NSScreen.mainScreen;
    return main != nil ? std::optional(screen(main)) : std::nullopt;
}

Point AppKitScreens::mouseLocation() const
{
    const NSPoint location = NSEvent.mouseLocation;
    return {location.x, location.y};
}

} // namespace tessel
