#pragma once

#include "Panel/VisualEffectView.h"

namespace tessel {

/// Puts a window material behind content: describes a `VisualEffectView`, makes it, and keeps it up to date.
/// The material is drawn as active whether or not its window has the focus.
struct VisualEffectBlurView {
    VisualEffectMaterial material;
    VisualEffectBlendingMode blendingMode;

    /// The view belongs to `parent`.
    VisualEffectView* makeView(QWidget* parent) const;
    /// Sets all three properties again.
    void updateView(VisualEffectView& view) const;
};

} // namespace tessel
