#pragma once

#include <memory>

#include "VisualEffect.h"

namespace tessel {

/// An `NSVisualEffectView`.
class AppKitVisualEffect final : public VisualEffect {
public:
    AppKitVisualEffect();
    ~AppKitVisualEffect() override;

    NativeWindowHandle view() const override;
    void setCornerRadius(double radius) override;
    void setMaterial(VisualEffectMaterial material) override;
    void setBlendingMode(VisualEffectBlendingMode blendingMode) override;
    void setState(VisualEffectState state) override;

private:
    struct Native;
    std::unique_ptr<Native> native_;
};

} // namespace tessel
