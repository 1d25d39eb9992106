#import "AppKitWindowHost.h"

#include <utility>

#include "AppKitPanelController.h"
#include "AppKitVisualEffect.h"
#include "AppKitWindowController.h"

namespace tessel {

std::unique_ptr<VisualEffect> AppKitWindowHost::makeVisualEffect()
{
    return std::make_unique<AppKitVisualEffect>();
}

std::unique_ptr<PanelController> AppKitWindowHost::makePanel(const PanelDescription& description,
                                                             std::unique_ptr<HostedContent> content)
{
    return std::make_unique<AppKitPanelController>(description, std::move(content));
}

std::unique_ptr<WindowController> AppKitWindowHost::makeWindow(const WindowDescription& description,
                                                               std::unique_ptr<HostedContent> content)
{
    return std::make_unique<AppKitWindowController>(description, std::move(content));
}

} // namespace tessel
