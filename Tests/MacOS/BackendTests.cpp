#include <cstdlib>
#include <memory>

#include <sys/resource.h>

#include "Backend.h"
#include "Support/AppearanceTest.h"
#include "Support/System.h"

namespace tessel::test {
namespace {

class BackendTests : public AppearanceTest {};

TEST_F(BackendTests, IsMadeAndEndsInTheOneOrder)
{
    expectCall("[NSPasteboard generalPasteboard]", Object{"pasteboard"});
    expectCall("[NSUserDefaults standardUserDefaults]", Object{"defaults"});
    expectAppearanceRead();
    expectAppearanceObserved();
    expectCall("[NSMenu init]", Object{"menu"});
    expectCall("[menu setAutoenablesItems:NO]");
    // What the program remembers is in a domain of its own, beside the settings.
    expectCall("[NSUserDefaults initWithSuiteName:@\"org.tesselclipboard.TesselClipboard.state\"]",
               Object{"state"});
    auto backend = std::make_unique<Backend>(Backend::Rules{.imageFingerprint = {}, .showTrustPrompt = {}});
    expectNoMore();
    EXPECT_NE(backend->windowHost(), nullptr);
    EXPECT_TRUE(backend->nativeWindows().blendsTranslucentWindows());
    EXPECT_EQ(backend->appearance().settings().colorScheme, ColorScheme::light);
    expectCall("[state setDouble:5 forKey:@\"last\"]");
    backend->rememberedState().setDouble("last", 5);
    backend->noteStartupID("token");

    expectAppearanceLetGo();
    backend.reset();
}

TEST_F(BackendTests, TheUpdaterIsTheSystemsOwn)
{
    EXPECT_EQ(installedUpdateSource().feed, nullptr);
}

TEST_F(BackendTests, EveryClaimIsGrantedAndNobodyElseIsReached)
{
    const auto remote = makeRemoteControl();
    EXPECT_EQ(remote->claim([](const RemoteRequest&) {
        ADD_FAILURE();
        return Obedience::obeyed;
    }),
              Claim::granted);
    EXPECT_EQ(remote->send({RemoteCommand::quit, ""}), Delivery::noChannel);
    EXPECT_EQ(takeStartupID(), "");
}

TEST_F(BackendTests, ADisplayIsThereInASessionWithAWindowServer)
{
    ::unsetenv("QT_QPA_PLATFORM");
    expectCall("CGSessionCopyCurrentDictionary()", Object{"session"});
    EXPECT_TRUE(displayIsAvailable());
    expectCall("CGSessionCopyCurrentDictionary()", Nil{});
    EXPECT_FALSE(displayIsAvailable());
}

TEST_F(BackendTests, WhoeverAsksForAnotherPlatformOfTheToolkitNeedsNoWindowServer)
{
    ::setenv("QT_QPA_PLATFORM", "offscreen", 1);
    EXPECT_TRUE(displayIsAvailable());
    ::unsetenv("QT_QPA_PLATFORM");
}

TEST_F(BackendTests, LeavesNoCoreFile)
{
    rlimit before = {};
    ASSERT_EQ(::getrlimit(RLIMIT_CORE, &before), 0);
    rlimit open = {before.rlim_max, before.rlim_max};
    ASSERT_EQ(::setrlimit(RLIMIT_CORE, &open), 0);
    keepMemoryToOurselves();
    rlimit after = {};
    ASSERT_EQ(::getrlimit(RLIMIT_CORE, &after), 0);
    EXPECT_EQ(after.rlim_cur, 0U);
    EXPECT_EQ(after.rlim_max, before.rlim_max);
    ASSERT_EQ(::setrlimit(RLIMIT_CORE, &before), 0);
}

} // namespace
} // namespace tessel::test
