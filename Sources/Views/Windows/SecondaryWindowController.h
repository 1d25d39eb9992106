#pragma once

#include <memory>

#include "NativeWindows.h"
#include "Screens.h"
#include "Support/Retirement.h"
#include "WindowController.h"

namespace tessel {

/// Owns a window beside the panel: the settings, the about or the onboarding window.
class SecondaryWindowController final : public WindowController {
public:
    /// `nativeWindows` and `screens` must outlive this object.
    SecondaryWindowController(std::unique_ptr<QWidget, Retirement> window, NativeWindows& nativeWindows,
                              const Screens& screens);

    bool hasWindow() const override { return true; }
    bool isWindowVisible() const override { return window_->isVisible() && !window_->isMinimized(); }
    /// The first time in the middle of the screen in use, later where it was.
    void showWindow() override;
    void close() override { window_->hide(); }

    QWidget& window() const { return *window_; }

private:
    void center();

    std::unique_ptr<QWidget, Retirement> window_;
    NativeWindows& nativeWindows_;
    const Screens& screens_;
    bool isPlaced_ = false;
};

} // namespace tessel
