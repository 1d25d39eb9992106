#pragma once

#include "WindowHost.h"

namespace tessel {

/// AppKit's windows, around views of the toolkit.
class AppKitWindowHost final : public WindowHost {
public:
    std::unique_ptr<VisualEffect> makeVisualEffect() override;
    std::unique_ptr<PanelController> makePanel(const PanelDescription& description,
                                               std::unique_ptr<HostedContent> content) override;
    std::unique_ptr<WindowController> makeWindow(const WindowDescription& description,
                                                 std::unique_ptr<HostedContent> content) override;
};

} // namespace tessel
