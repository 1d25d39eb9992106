#include <optional>

#include "AppKitVisualEffect.h"
#include "Support/MacOSTest.h"

namespace tessel::test {
namespace {

class VisualEffectTests : public MacOSTest {
protected:
    VisualEffectTests()
    {
        expectCall("[NSVisualEffectView initWithFrame:{{0, 0}, {0, 0}}]", Object{"effect"});
        effect.emplace();
    }

    std::optional<AppKitVisualEffect> effect;
};

TEST_F(VisualEffectTests, TheHUDMaterialIsNumber13)
{
    expectCall("[effect setMaterial:13]");
    effect->setMaterial(VisualEffectMaterial::hudWindow);
}

TEST_F(VisualEffectTests, TheWindowBackgroundIsNumber12)
{
    expectCall("[effect setMaterial:12]");
    effect->setMaterial(VisualEffectMaterial::windowBackground);
}

TEST_F(VisualEffectTests, BlendsBehindTheWindowAsNumber0AndWithinItAsNumber1)
{
    expectCall("[effect setBlendingMode:0]");
    effect->setBlendingMode(VisualEffectBlendingMode::behindWindow);
    expectCall("[effect setBlendingMode:1]");
    effect->setBlendingMode(VisualEffectBlendingMode::withinWindow);
}

TEST_F(VisualEffectTests, TheActiveStateIsNumber1)
{
    expectCall("[effect setState:1]");
    effect->setState(VisualEffectState::active);
}

TEST_F(VisualEffectTests, EverySettingReachesTheViewWhetherOrNotItChanges)
{
    for (int updates = 0; updates < 2; ++updates) {
        expectCall("[effect setMaterial:13]");
        expectCall("[effect setBlendingMode:0]");
        expectCall("[effect setState:1]");
        effect->setMaterial(VisualEffectMaterial::hudWindow);
        effect->setBlendingMode(VisualEffectBlendingMode::behindWindow);
        effect->setState(VisualEffectState::active);
    }
}

TEST_F(VisualEffectTests, TheMaterialIsClippedToContinuousCorners)
{
    expectCall("[effect setWantsLayer:YES]");
    expectCall("[effect layer]", Object{"layer"});
    expectCall("[layer setCornerRadius:14]");
    expectCall("[layer setCornerCurve:@\"continuous\"]");
    expectCall("[layer setMasksToBounds:YES]");
    effect->setCornerRadius(14);
}

} // namespace
} // namespace tessel::test
