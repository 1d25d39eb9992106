#pragma once

#include <memory>

#include "HostedContent.h"
#include "PanelDescription.h"
#include "WindowController.h"

namespace tessel {

class HostedWindow;

/// Owns the history panel, a `ClipboardPanelWindow` in an `NSWindowController`. The system hides it while the
/// application is inactive.
class AppKitPanelController final : public PanelController {
public:
    AppKitPanelController(const PanelDescription& description, std::unique_ptr<HostedContent> content);
    ~AppKitPanelController() override;

    bool hasWindow() const override;
    bool isWindowVisible() const override;
    void showWindow() override;
    void close() override;
    void setContentSize(Size size) override;
    Rect frame() const override;
    void setFrameOrigin(Point origin) override;
    /// The content gets the keys.
    void makeKeyAndOrderFront() override;

private:
    std::unique_ptr<HostedWindow> window_;
};

} // namespace tessel
