#include "AXAccessibilityTrust.h"
#include "Support/MacOSTest.h"

namespace tessel::test {
namespace {

class AccessibilityTrustTests : public MacOSTest {
protected:
    AXAccessibilityTrust trust;
};

TEST_F(AccessibilityTrustTests, AsksWhetherTheProcessIsTrustedWithoutAnyOptions)
{
    expectCall("AXIsProcessTrusted()", true);
    EXPECT_TRUE(trust.isProcessTrusted());
    expectCall("AXIsProcessTrusted()", false);
    EXPECT_FALSE(trust.isProcessTrusted());
}

TEST_F(AccessibilityTrustTests, ThePromptIsTheSingleOptionAndIsTrue)
{
    expectCall("AXIsProcessTrustedWithOptions(@{@\"AXTrustedCheckOptionPrompt\": @YES})", false);
    EXPECT_FALSE(trust.isProcessTrustedWithOptions(TrustPrompt::show));
}

TEST_F(AccessibilityTrustTests, WithoutAPromptTheOptionIsFalse)
{
    expectCall("AXIsProcessTrustedWithOptions(@{@\"AXTrustedCheckOptionPrompt\": @NO})", true);
    EXPECT_TRUE(trust.isProcessTrustedWithOptions(TrustPrompt::suppress));
}

} // namespace
} // namespace tessel::test
