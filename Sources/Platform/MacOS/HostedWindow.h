#pragma once

#include <memory>

#import <AppKit/AppKit.h>

#include "HostedContent.h"

namespace tessel {

/// A native window with its controller and the content that the view toolkit shows in it.
class HostedWindow {
public:
    explicit HostedWindow(std::unique_ptr<HostedContent> content);
    /// Takes the window off the screen at once. Window and content go on the next turn of the main queue, so
    /// that a view may close its own window from inside a handler.
    ~HostedWindow();
    HostedWindow(const HostedWindow&) = delete;
    HostedWindow& operator=(const HostedWindow&) = delete;

    /// A controller of a view of that size, in points, which the content fills. To be the window's content.
    NSViewController* _Nonnull makeContentViewController(NSSize size);
    /// To be called once, with the window as it is configured.
    void setWindow(NSWindow* _Nonnull window);
    NSWindow* _Nullable window() const;
    /// False once the controller has lost its window.
    bool hasWindow() const;
    bool isVisible() const;

    void show();
    void close();
    /// Gives the window the keyboard, and within it the content.
    void makeKeyAndOrderFront();

private:
    struct Parts;
    std::shared_ptr<Parts> parts_;
    bool isShown_ = false;
};

} // namespace tessel
