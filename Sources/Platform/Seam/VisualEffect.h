#pragma once

#include "NativeWindows.h"

namespace tessel {

/// `NSVisualEffectMaterial`: what a material is for.
enum class VisualEffectMaterial { windowBackground = 12, hudWindow = 13 };

/// `NSVisualEffectBlendingMode`: what shines through.
enum class VisualEffectBlendingMode {
    behindWindow = 0, ///< What is behind the window.
    withinWindow = 1, ///< What the window shows beneath the view.
};

/// `NSVisualEffectState`
enum class VisualEffectState { followsWindowActiveState = 0, active = 1, inactive = 2 };

/// A view of the system's own that draws a material behind a window's content (`NSVisualEffectView`).
class VisualEffect {
public:
    virtual ~VisualEffect() = default;

    /// Lives as long as this object.
    virtual NativeWindowHandle view() const = 0;
    /// Points, of continuous corners to which the material is clipped.
    virtual void setCornerRadius(double radius) = 0;
    virtual void setMaterial(VisualEffectMaterial material) = 0;
    virtual void setBlendingMode(VisualEffectBlendingMode blendingMode) = 0;
    virtual void setState(VisualEffectState state) = 0;
};

} // namespace tessel
