#include "Desktop.h"

namespace tessel {
namespace {

using X11AccessibilityTrustTests = BareDesktop;

TEST_F(X11AccessibilityTrustTests, aPlainServerIsTrustedWithoutAPrompt)
{
    EXPECT_TRUE(room.accessibilityTrust->isProcessTrusted());
    EXPECT_TRUE(room.accessibilityTrust->isProcessTrustedWithOptions(TrustPrompt::show));
    EXPECT_EQ(trustPrompts, 0);
}

TEST_F(X11AccessibilityTrustTests, aWaylandSessionIsNotTrustedAndThePromptIsShownOnRequest)
{
    qputenv("WAYLAND_DISPLAY", "wayland-0");
    int prompts = 0;
    X11AccessibilityTrust trust(*room.connection, [&] { ++prompts; });
    qunsetenv("WAYLAND_DISPLAY");
    EXPECT_FALSE(trust.isProcessTrusted());
    EXPECT_FALSE(trust.isProcessTrustedWithOptions(TrustPrompt::suppress));
    EXPECT_EQ(prompts, 0);
    EXPECT_FALSE(trust.isProcessTrustedWithOptions(TrustPrompt::show));
    EXPECT_EQ(prompts, 1);
}

TEST(SessionFacts, everythingHasToBeInPlace)
{
    EXPECT_TRUE(reachesOtherApplications({true, false, false}));
    EXPECT_FALSE(reachesOtherApplications({false, false, false}));
    EXPECT_FALSE(reachesOtherApplications({true, true, false}));
    EXPECT_FALSE(reachesOtherApplications({true, false, true}));
}

} // namespace
} // namespace tessel
