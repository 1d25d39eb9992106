#include "Panel/VisualEffectBlurView.h"

namespace tessel {

VisualEffectView* VisualEffectBlurView::makeView(QWidget* parent) const
{
    auto* view = new VisualEffectView(parent);
    updateView(*view);
    return view;
}

void VisualEffectBlurView::updateView(VisualEffectView& view) const
{
    view.setMaterial(material);
    view.setBlendingMode(blendingMode);
    view.setState(VisualEffectState::active);
}

} // namespace tessel
