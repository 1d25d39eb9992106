#pragma once

#include <memory>
#include <optional>

#include <QtCore/QObject>
#include <QtCore/QRect>

#include "Application.h"
#include "NativeWindows.h"
#include "Panel/ClipboardPanelWindow.h"
#include "Panel/PanelBackdrop.h"
#include "PanelDescription.h"
#include "Support/Retirement.h"
#include "Token.h"
#include "WindowController.h"

namespace tessel {

class AppState;
class PanelArtwork;

/// Owns the panel's window. The window is hidden while the application is inactive, and stays so until it is
/// shown again.
class ClipboardPanelController final : public QObject, public PanelController {
public:
    /// `nativeWindows` and `application` must outlive this object.
    ClipboardPanelController(AppState& appState, const PanelDescription& description,
                             NativeWindows& nativeWindows, Application& application,
                             std::shared_ptr<PanelArtwork> artwork);

    bool hasWindow() const override { return true; }
    bool isWindowVisible() const override { return window_->isVisible(); }
    void showWindow() override;
    void close() override;
    void setContentSize(Size size) override;
    Rect frame() const override;
    void setFrameOrigin(Point origin) override;
    void makeKeyAndOrderFront() override;

    ClipboardPanelWindow& window() const { return *window_; }

private:
    void configure(const PanelDescription& description, ClipboardPanelView* view);
    bool eventFilter(QObject* object, QEvent* event) override;
    QRect geometry() const;
    /// Size and place reach a visible window together, on the next turn, so that it does not flicker.
    void setGeometry(const QRect& geometry);
    void scheduleGeometry();
    /// Does nothing while the window is on its way to the screen.
    void applyGeometry();
    void activityDidChange();

    NativeWindows& nativeWindows_;
    Application& application_;
    std::unique_ptr<ClipboardPanelWindow, Retirement> window_;
    PanelBackdrop backdrop_;
    std::optional<QRect> nextGeometry_;
    Token activityObservation_;
};

} // namespace tessel
