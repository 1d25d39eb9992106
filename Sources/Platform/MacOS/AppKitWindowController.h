#pragma once

#include <memory>

#include "WindowController.h"
#include "WindowHost.h"

namespace tessel {

class HostedWindow;

/// Owns a window beside the panel, an `NSWindow` in an `NSWindowController`.
class AppKitWindowController final : public WindowController {
public:
    AppKitWindowController(const WindowDescription& description, std::unique_ptr<HostedContent> content);
    ~AppKitWindowController() override;

    bool hasWindow() const override;
    bool isWindowVisible() const override;
    void showWindow() override;
    void close() override;

private:
    std::unique_ptr<HostedWindow> window_;
};

} // namespace tessel
