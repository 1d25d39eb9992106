#pragma once

#include "NativeWindows.h"

namespace tessel {

/// What the view toolkit's windows ask of AppKit. A handle is an `NSView*`; the window is the one that the
/// view is in. A view that is in no window yet asks for nothing.
class AppKitNativeWindows final : public NativeWindows {
public:
    /// Whether a window may become main is for its class to say.
    void preparePanel(NativeWindowHandle window, const PanelTraits& traits) override;
    void makeKeyAndOrderFront(NativeWindowHandle window) override;
    void orderFront(NativeWindowHandle window) override;
    /// Always.
    bool blendsTranslucentWindows() const override;
    /// Never changes.
    Token observeBlending(std::function<void()> didChange) override;
    Token observeOcclusion(NativeWindowHandle window, std::function<void(bool isCovered)> didChange) override;
    /// No: a view of the system's does that (`VisualEffect`), and not the window.
    bool blursBehindWindows() const override;
    /// Does nothing.
    void blurBehind(NativeWindowHandle window, const PixelRegion& region) override;
    /// Does nothing: what a window does not draw is not there, neither for the eye nor for the pointer.
    void cutToShape(NativeWindowHandle window, const PixelRegion& shape) override;
    /// All empty: a picture of the screen would need the user's permission.
    std::vector<ScreenPicture> picturesOfScreen(NativeWindowHandle window,
                                                std::span<const ScreenPictureRequest> requests) override;
};

} // namespace tessel
