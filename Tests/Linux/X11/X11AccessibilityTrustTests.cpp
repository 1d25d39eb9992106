#include "Desktop.h"
#include "OtherWindow.h"
#include "WaitUntil.h"

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

TEST_F(X11AccessibilityTrustTests, aSessionThatSaysThatItIsOnWaylandIsNotTrusted)
{
    qputenv("XDG_SESSION_TYPE", "wayland");
    X11AccessibilityTrust onWayland(*room.connection, {});
    qputenv("XDG_SESSION_TYPE", "x11");
    X11AccessibilityTrust onX11(*room.connection, {});
    qunsetenv("XDG_SESSION_TYPE");
    EXPECT_FALSE(onWayland.isProcessTrusted());
    EXPECT_TRUE(onX11.isProcessTrusted());
}

TEST_F(X11AccessibilityTrustTests, aServerWithoutSyntheticKeysIsNotTrustedAndNothingIsPosted)
{
    ChildProcess server({"Xvfb", "-displayfd", "%fd", "-noreset", "-extension", "XTEST"});
    const auto connection = std::make_shared<X11Connection>(":" + server.firstLine());
    ASSERT_TRUE(connection->isAlive());
    X11AccessibilityTrust trust(*connection, {});
    EXPECT_FALSE(trust.isProcessTrusted());

    const auto keyboard = std::make_shared<X11Keyboard>(connection);
    const auto hotKeys =
        std::make_shared<X11HotKeyCenter>(connection, keyboard, room.toolkitWindows, room.userTime);
    X11KeyStrokes strokes(connection, keyboard, hotKeys, {});
    strokes.postKeyStroke(VirtualKey::v, ModifierFlags::command, std::nullopt);
    EXPECT_TRUE(waitUntil([&] { return !strokes.isBusy(); }));
    EXPECT_TRUE(connection->isAlive());
}

TEST_F(X11AccessibilityTrustTests, whereNothingCanBePastedNoKeyIsKeptFromAnybody)
{
    room = {};
    qputenv("XDG_SESSION_TYPE", "wayland");
    room = makeX11Room({});
    qunsetenv("XDG_SESSION_TYPE");
    OtherWindow target;
    target.show();
    target.takeFocus();
    target.synchronize();
    const auto application = room.workspace->frontmostApplication();
    ASSERT_TRUE(application);
    typist.press(Key::returnKey);
    typist.synchronize();
    application->activate(ActivationOptions::ignoringOtherApps);
    room.connection->currentServerTime();
    EXPECT_TRUE(target.grabKeyboard());
    target.ungrabKeyboard();
    typist.release(Key::returnKey);
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
