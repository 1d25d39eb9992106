#include "AppKitWorkspace.h"
#include "Support/MacOSTest.h"

namespace tessel::test {
namespace {

class WorkspaceTests : public MacOSTest {
protected:
    std::shared_ptr<RunningApplication> frontmostApplication(Answer application)
    {
        expectCall("[NSWorkspace sharedWorkspace]", Object{"workspace"});
        expectCall("[workspace frontmostApplication]", std::move(application));
        return workspace.frontmostApplication();
    }

    AppKitWorkspace workspace;
};

TEST_F(WorkspaceTests, KnowsTheFrontmostApplicationAndItsProcess)
{
    const auto editor = frontmostApplication(Object{"editor"});
    ASSERT_TRUE(editor);
    expectCall("[editor processIdentifier]", 4242);
    EXPECT_EQ(editor->processIdentifier(), ProcessIdentifier{4242});
}

TEST_F(WorkspaceTests, ThereMayBeNoFrontmostApplication)
{
    EXPECT_EQ(frontmostApplication(Nil{}), nullptr);
}

TEST_F(WorkspaceTests, ActivatesAnApplicationWithOptionTwo)
{
    const auto editor = frontmostApplication(Object{"editor"});
    expectCall("[editor activateWithOptions:2]", true);
    EXPECT_TRUE(editor->activate(static_cast<ActivationOptions>(2)));
}

TEST_F(WorkspaceTests, AnApplicationThatHasQuitCannotBeActivated)
{
    const auto editor = frontmostApplication(Object{"editor"});
    expectCall("[editor activateWithOptions:2]", false);
    EXPECT_FALSE(editor->activate(static_cast<ActivationOptions>(2)));
}

TEST_F(WorkspaceTests, OpensAnAddressWithTheSharedWorkspace)
{
    expectCall(
        "[NSURL "
        "URLWithString:@\"x-apple.systempreferences:com.apple.preference.security?Privacy_Accessibility\"]",
        Object{"address"});
    expectCall("[NSWorkspace sharedWorkspace]", Object{"workspace"});
    expectCall("[workspace openURL:address]", true);
    workspace.openURL("x-apple.systempreferences:com.apple.preference.security?Privacy_Accessibility");
}

TEST_F(WorkspaceTests, AnAddressThatDoesNotParseIsNotOpened)
{
    expectCall("[NSURL URLWithString:@\"not an address\"]", Nil{});
    workspace.openURL("not an address");
}

TEST_F(WorkspaceTests, AnAddressThatIsNoTextIsNotOpened)
{
    workspace.openURL("\xFF");
}

} // namespace
} // namespace tessel::test
