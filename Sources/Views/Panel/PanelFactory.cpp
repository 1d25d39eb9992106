#include "Panel/PanelFactory.h"

#include "Accessibility/PanelAccessibility.h"
#include "Panel/ClipboardPanelController.h"
#include "Panel/ClipboardPanelView.h"
#include "Panel/PanelArtwork.h"
#include "Support/HostedWidget.h"
#include "WindowHost.h"

namespace tessel {

namespace {

/// Fonts and pictures are prepared for the first opening, and serve every later one.
class SharedArtwork {
public:
    std::shared_ptr<PanelArtwork> current()
    {
        if (!artwork_ || !artwork_->isCurrent())
            artwork_ = std::make_shared<PanelArtwork>();
        return artwork_;
    }

private:
    std::shared_ptr<PanelArtwork> artwork_;
};

std::unique_ptr<HostedContent> makeHostedPanel(AppState& appState, const PanelDescription& description,
                                               std::shared_ptr<PanelArtwork> artwork, WindowHost& host)
{
    std::unique_ptr<ClipboardPanelWindow, Retirement> window(new ClipboardPanelWindow);
    window->setAttribute(Qt::WA_TranslucentBackground);
    window->setDragging(ClipboardPanelWindow::Dragging::byBackground);
    window->leaveDraggingToSystem();
    window->resize(qRound(description.contentRect.size.width), qRound(description.contentRect.size.height));
    auto* view = new ClipboardPanelView(appState, std::move(artwork), window.get());
    window->setContentView(view);
    view->setWindowBlending(WindowBlending::translucent);
    auto material = host.makeVisualEffect();
    const NativeWindowHandle background = material->view();
    view->leaveMaterialTo(std::move(material));
    return std::make_unique<HostedWidget>(std::move(window), background);
}

} // namespace

PanelFactory panelFactory(NativeWindows& nativeWindows, Application& application)
{
    installPanelAccessibility();
    return [&nativeWindows, &application,
            artwork = SharedArtwork()](AppState& appState, const PanelDescription& description) mutable {
        return std::make_unique<ClipboardPanelController>(appState, description, nativeWindows, application,
                                                          artwork.current());
    };
}

PanelFactory hostedPanelFactory(WindowHost& host)
{
    installPanelAccessibility();
    return [&host, artwork = SharedArtwork()](AppState& appState,
                                              const PanelDescription& description) mutable {
        return host.makePanel(description, makeHostedPanel(appState, description, artwork.current(), host));
    };
}

} // namespace tessel
