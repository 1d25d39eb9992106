#import "AppKitNativeWindows.h"

#include <utility>

#import "NativeView.h"

namespace tessel {

void AppKitNativeWindows::preparePanel(NativeWindowHandle handle, const PanelTraits& traits)
{
    NSWindow* const window = nativeView(handle).window;
    window.level = traits.floatsAboveOthers ? NSFloatingWindowLevel : NSNormalWindowLevel;
    NSWindowCollectionBehavior behavior = NSWindowCollectionBehaviorDefault;
    if (traits.joinsAllSpaces)
        behavior |= NSWindowCollectionBehaviorCanJoinAllSpaces;
    if (traits.overFullScreen)
        behavior |= NSWindowCollectionBehaviorFullScreenAuxiliary;
    window.collectionBehavior = behavior;
    window.hasShadow = traits.hasShadow;
}

void AppKitNativeWindows::makeKeyAndOrderFront(NativeWindowHandle window)
{
    [nativeView(window).window makeKeyAndOrderFront:nil];
}

void AppKitNativeWindows::orderFront(NativeWindowHandle window)
{
    [nativeView(window).window orderFront:nil];
}

bool AppKitNativeWindows::blendsTranslucentWindows() const
{
    return true;
}

Token AppKitNativeWindows::observeBlending(std::function<void()>)
{
    return Token();
}

Token AppKitNativeWindows::observeOcclusion(NativeWindowHandle handle, std::function<void(bool)> didChange)
{
    NSWindow* const window = nativeView(handle).window;
    // Without a window the system would tell of every window.
    if (window == nil)
        return Token();
    NSWindow* __weak const observed = window;
    NSNotificationCenter* const center = NSNotificationCenter.defaultCenter;
    const id observer =
        [center addObserverForName:NSWindowDidChangeOcclusionStateNotification
                            object:window
                             queue:nil
                        usingBlock:^(NSNotification*) {
                          NSWindow* const present = observed;
                          if (present != nil)
                              didChange((present.occlusionState & NSWindowOcclusionStateVisible) == 0);
                        }];
    return Token([center, observer] { [center removeObserver:observer]; });
}

bool AppKitNativeWindows::blursBehindWindows() const
{
    return false;
}

void AppKitNativeWindows::blurBehind(NativeWindowHandle, const PixelRegion&) {}

void AppKitNativeWindows::cutToShape(NativeWindowHandle, const PixelRegion&) {}

std::vector<ScreenPicture>
AppKitNativeWindows::picturesOfScreen(NativeWindowHandle, std::span<const ScreenPictureRequest> requests)
{
    return std::vector<ScreenPicture>(requests.size());
}

} // namespace tessel
