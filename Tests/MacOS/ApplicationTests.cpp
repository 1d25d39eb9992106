#include <memory>

#include "AppKitApplication.h"
#include "Support/MacOSTest.h"
#include "Support/System.h"

namespace tessel::test {
namespace {

class ApplicationTests : public MacOSTest {
protected:
    AppKitApplication application;
};

TEST_F(ApplicationTests, ActivatesItselfIgnoringOtherApplications)
{
    expectCall("[NSApplication sharedApplication]", Object{"application"});
    expectCall("[application activateIgnoringOtherApps:YES]");
    application.activate(IgnoringOtherApps::yes);
}

TEST_F(ApplicationTests, ActivatesItselfWithoutIgnoringOtherApplicationsWhenThatIsAskedFor)
{
    expectCall("[NSApplication sharedApplication]", Object{"application"});
    expectCall("[application activateIgnoringOtherApps:NO]");
    application.activate(IgnoringOtherApps::no);
}

TEST_F(ApplicationTests, TerminatesWithoutASender)
{
    expectCall("[NSApplication sharedApplication]", Object{"application"});
    expectCall("[application terminate:nil]");
    application.terminate();
}

TEST_F(ApplicationTests, IsActiveWhenTheSystemSaysSo)
{
    expectCall("[NSApplication sharedApplication]", Object{"application"});
    expectCall("[application isActive]", true);
    EXPECT_TRUE(application.isActive());
    expectCall("[NSApplication sharedApplication]", Object{"application"});
    expectCall("[application isActive]", false);
    EXPECT_FALSE(application.isActive());
}

TEST_F(ApplicationTests, TellsOfBecomingActiveAndOfNoLongerBeingItUntilTheTokenIsDropped)
{
    expectCall("[NSNotificationCenter defaultCenter]", Object{"center"});
    expectCall(
        "[center addObserverForName:@\"NSApplicationDidBecomeActiveNotification\" object:nil queue:nil "
        "usingBlock:^]",
        Object{"becoming"});
    expectCall(
        "[center addObserverForName:@\"NSApplicationDidResignActiveNotification\" object:nil queue:nil "
        "usingBlock:^]",
        Object{"resigning"});
    int changes = 0;
    Token token =
        application.observeActivity([&changes, step = std::make_shared<int>(1)] { changes += *step; });

    notify("becoming");
    EXPECT_EQ(changes, 1);
    notify("resigning");
    EXPECT_EQ(changes, 2);

    expectCall("[center removeObserver:becoming]");
    expectCall("[center removeObserver:resigning]");
    token.reset();
}

} // namespace
} // namespace tessel::test
