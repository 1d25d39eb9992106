#import "AppKitPanelController.h"

#include <utility>
#include <variant>

#import "ClipboardPanelWindow.h"
#import "HostedWindow.h"

namespace tessel {

namespace {

/// Applies a step of the panel's configuration.
struct Configuration {
    ClipboardPanelWindow* window;
    NSViewController* contentViewController;

    void operator()(PanelStep::FloatingPanel step) const { window.floatingPanel = step.on; }
    void operator()(PanelStep::Level step) const { window.level = step.value; }
    void operator()(PanelStep::CollectionBehavior step) const
    {
        window.collectionBehavior = static_cast<NSWindowCollectionBehavior>(step.mask);
    }
    void operator()(PanelStep::HasShadow step) const { window.hasShadow = step.on; }
    void operator()(PanelStep::MovableByWindowBackground step) const
    {
        window.movableByWindowBackground = step.on;
    }
    void operator()(PanelStep::Opaque step) const { window.opaque = step.on; }
    void operator()(PanelStep::ClearBackground) const { window.backgroundColor = NSColor.clearColor; }
    void operator()(PanelStep::ContentViewController) const
    {
        window.contentViewController = contentViewController;
    }
};

} // namespace

AppKitPanelController::AppKitPanelController(const PanelDescription& description,
                                             std::unique_ptr<HostedContent> content)
    : window_(std::make_unique<HostedWindow>(std::move(content)))
{
    const Rect& place = description.contentRect;
    const NSRect contentRect = {{place.origin.x, place.origin.y}, {place.size.width, place.size.height}};
    NSViewController* const contentViewController = window_->makeContentViewController(contentRect.size);
    ClipboardPanelWindow* const window = [[ClipboardPanelWindow alloc]
        initWithContentRect:contentRect
                  styleMask:static_cast<NSWindowStyleMask>(description.styleMask)
                    backing:static_cast<NSBackingStoreType>(description.backingStore)
                      defer:description.defersCreation];
    for (const PanelConfigurationStep& step : description.configuration)
        std::visit(Configuration{window, contentViewController}, step);
    window_->setWindow(window);
}

AppKitPanelController::~AppKitPanelController() = default;

bool AppKitPanelController::hasWindow() const
{
    return window_->hasWindow();
}

bool AppKitPanelController::isWindowVisible() const
{
    return window_->isVisible();
}

void AppKitPanelController::showWindow()
{
    window_->show();
}

void AppKitPanelController::close()
{
    window_->close();
}

void AppKitPanelController::setContentSize(Size size)
{
    [window_->window() setContentSize:NSSize{size.width, size.height}];
}

Rect AppKitPanelController::frame() const
{
    const NSRect frame = window_->window().frame;
    return {{frame.origin.x, frame.origin.y}, {frame.size.width, frame.size.height}};
}

void AppKitPanelController::setFrameOrigin(Point origin)
{
    [window_->window() setFrameOrigin:NSPoint{origin.x, origin.y}];
}

void AppKitPanelController::makeKeyAndOrderFront()
{
    window_->makeKeyAndOrderFront();
}

} // namespace tessel
