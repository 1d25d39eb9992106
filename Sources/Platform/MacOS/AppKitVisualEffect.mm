#import "AppKitVisualEffect.h"

#import <AppKit/AppKit.h>
#import <QuartzCore/QuartzCore.h>

namespace tessel {

struct AppKitVisualEffect::Native {
    NSVisualEffectView* view;
};

AppKitVisualEffect::AppKitVisualEffect()
    : native_(new Native{[[NSVisualEffectView alloc] initWithFrame:NSRect{}]})
{}

AppKitVisualEffect::~AppKitVisualEffect() = default;

NativeWindowHandle AppKitVisualEffect::view() const
{
    return NativeWindowHandle{reinterpret_cast<std::uintptr_t>((__bridge void*)native_->view)};
}

void AppKitVisualEffect::setCornerRadius(double radius)
{
    native_->view.wantsLayer = YES;
    CALayer* const layer = native_->view.layer;
    layer.cornerRadius = radius;
    layer.cornerCurve = kCACornerCurveContinuous;
    layer.masksToBounds = YES;
}

void AppKitVisualEffect::setMaterial(VisualEffectMaterial material)
{
    native_->view.material = static_cast<NSVisualEffectMaterial>(material);
}

void AppKitVisualEffect::setBlendingMode(VisualEffectBlendingMode blendingMode)
{
    native_->view.blendingMode = static_cast<NSVisualEffectBlendingMode>(blendingMode);
}

void AppKitVisualEffect::setState(VisualEffectState state)
{
    native_->view.state = static_cast<NSVisualEffectState>(state);
}

} // namespace tessel
