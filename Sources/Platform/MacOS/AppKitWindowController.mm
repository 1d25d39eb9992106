#import "AppKitWindowController.h"

#include <utility>

#import "HostedWindow.h"
#import "Text.h"

namespace tessel {

namespace {

NSWindow* makeWindow(NSSize size, NSWindowStyleMask style)
{
    return [[NSWindow alloc] initWithContentRect:NSRect{{0, 0}, size}
                                       styleMask:style
                                         backing:NSBackingStoreBuffered
                                           defer:NO];
}

/// Neither title bar nor buttons: the content is all there is of it.
NSWindow* makeChromelessWindow(NSSize size, HostedWindow& hosted)
{
    NSWindow* const window = makeWindow(size, NSWindowStyleMaskFullSizeContentView);
    window.titleVisibility = NSWindowTitleHidden;
    window.titlebarAppearsTransparent = YES;
    window.movableByWindowBackground = YES;
    window.opaque = NO;
    window.backgroundColor = NSColor.clearColor;
    window.hasShadow = YES;
    window.releasedWhenClosed = NO;
    [window center];
    window.contentViewController = hosted.makeContentViewController(size);
    return window;
}

NSWindow* makeTitledWindow(NSSize size, const std::string& title, HostedWindow& hosted)
{
    NSViewController* const contentViewController = hosted.makeContentViewController(size);
    NSWindow* const window = makeWindow(size, NSWindowStyleMaskTitled | NSWindowStyleMaskClosable);
    NSString* const string = makeString(title);
    window.title = string != nil ? string : @"";
    window.releasedWhenClosed = NO;
    [window center];
    window.contentViewController = contentViewController;
    return window;
}

} // namespace

AppKitWindowController::AppKitWindowController(const WindowDescription& description,
                                               std::unique_ptr<HostedContent> content)
    : window_(std::make_unique<HostedWindow>(std::move(content)))
{
    const NSSize size = {description.contentSize.width, description.contentSize.height};
    window_->setWindow(description.frame == WindowDescription::Frame::none
                           ? makeChromelessWindow(size, *window_)
                           : makeTitledWindow(size, description.title, *window_));
}

AppKitWindowController::~AppKitWindowController() = default;

bool AppKitWindowController::hasWindow() const
{
    return window_->hasWindow();
}

bool AppKitWindowController::isWindowVisible() const
{
    return window_->isVisible();
}

void AppKitWindowController::showWindow()
{
    window_->show();
}

void AppKitWindowController::close()
{
    window_->close();
}

} // namespace tessel
