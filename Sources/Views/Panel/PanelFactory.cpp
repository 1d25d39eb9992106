#include "Panel/PanelFactory.h"

#include "Accessibility/PanelAccessibility.h"
#include "Panel/ClipboardPanelController.h"
#include "Panel/PanelArtwork.h"

namespace tessel {

std::function<std::unique_ptr<PanelController>(AppState&, const PanelDescription&)>
panelFactory(NativeWindows& nativeWindows, Application& application)
{
    installPanelAccessibility();
    // Fonts and pictures are prepared for the first opening, and serve every later one.
    return [&nativeWindows, &application, artwork = std::shared_ptr<PanelArtwork>()](
               AppState& appState, const PanelDescription& description) mutable {
        if (!artwork || !artwork->isCurrent())
            artwork = std::make_shared<PanelArtwork>();
        return std::make_unique<ClipboardPanelController>(appState, description, nativeWindows, application,
                                                          artwork);
    };
}

} // namespace tessel
