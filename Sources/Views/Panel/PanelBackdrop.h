#pragma once

#include <array>
#include <memory>

#include <QtCore/QRect>

#include "NativeWindows.h"
#include "Panel/CardEdgeView.h"
#include "Panel/ClipboardPanelWindow.h"
#include "Panel/VisualEffectView.h"

namespace tessel {

/// Gives the panel's window what is behind it. Where a compositing manager blurs that, it is asked to.
/// Elsewhere the window is given a picture of the screen, taken before it is shown; that one does not follow
/// the window when it is moved. Without a compositing manager the corners are cut by shape as well.
class PanelBackdrop {
public:
    /// Both must outlive this object.
    PanelBackdrop(ClipboardPanelWindow& window, NativeWindows& nativeWindows);

    /// The window is about to be shown at the place where it is. Waits for the window system once.
    void windowWillShow();
    /// The window, which is on the screen, is about to be given another geometry, in points.
    void windowWillChange(const QRect& geometry);
    /// Drops what the screen showed: a closed panel keeps no picture of anything.
    void windowDidHide();
    /// The window may have another extent, or be on a screen of another scale.
    void fit();

private:
    /// How much of a pixel at the edge must be covered for it to belong to the window.
    int leastCoverage() const;
    void takePictures();
    void setCorner(std::size_t corner, const ScreenPicture& picture, QPoint cardOrigin);
    double ratio() const { return window_.devicePixelRatioF(); }
    QSize pixelSize(const QSize& size) const;
    std::array<PixelRectangle, cardCornerCount> cornerRectangles(const QSize& size) const;

    ClipboardPanelWindow& window_;
    NativeWindows& nativeWindows_;
    WindowBlending blending_ = WindowBlending::translucent;
    bool isBlurred_ = false;
    CardCorners corners_;
    /// What `fit` has fitted the window for.
    QSize fittedSize_;
    double fittedRatio_ = 0;
};

} // namespace tessel
