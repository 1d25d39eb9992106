#import "HostedWindow.h"

#include <utility>

#include <dispatch/dispatch.h>

#import "NativeView.h"

namespace tessel {

namespace {

void fill(NSView* container, NSView* view, NSSize size)
{
    view.frame = NSRect{{0, 0}, size};
    view.autoresizingMask = NSViewWidthSizable | NSViewHeightSizable;
    [container addSubview:view];
}

} // namespace

struct HostedWindow::Parts {
    std::unique_ptr<HostedContent> content;
    NSWindow* window;
    NSWindowController* controller;
};

HostedWindow::HostedWindow(std::unique_ptr<HostedContent> content)
    : parts_(new Parts{std::move(content), nil, nil})
{}

HostedWindow::~HostedWindow()
{
    if (isShown_)
        close();
    // By value: a block would keep a reference to the member.
    const auto parts = std::move(parts_);
    dispatch_async(dispatch_get_main_queue(), ^{
      static_cast<void>(parts);
    });
}

NSViewController* HostedWindow::makeContentViewController(NSSize size)
{
    NSView* const container = [[NSView alloc] initWithFrame:NSRect{{0, 0}, size}];
    if (const auto background = parts_->content->background())
        fill(container, nativeView(*background), size);
    fill(container, nativeView(parts_->content->view()), size);
    NSViewController* const controller = [[NSViewController alloc] init];
    controller.view = container;
    return controller;
}

void HostedWindow::setWindow(NSWindow* window)
{
    parts_->window = window;
    parts_->controller = [[NSWindowController alloc] initWithWindow:window];
}

NSWindow* HostedWindow::window() const
{
    return parts_->window;
}

bool HostedWindow::hasWindow() const
{
    return parts_->controller.window != nil;
}

bool HostedWindow::isVisible() const
{
    return parts_->window.visible;
}

void HostedWindow::show()
{
    isShown_ = true;
    parts_->content->windowWillShow();
    [parts_->controller showWindow:nil];
}

void HostedWindow::close()
{
    isShown_ = false;
    [parts_->controller close];
    parts_->content->windowDidClose();
}

void HostedWindow::makeKeyAndOrderFront()
{
    [parts_->window makeKeyAndOrderFront:nil];
    [parts_->window makeFirstResponder:nativeView(parts_->content->view())];
}

} // namespace tessel
