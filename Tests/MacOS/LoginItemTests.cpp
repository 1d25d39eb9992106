#include "ServiceManagementLoginItem.h"
#include "Support/MacOSTest.h"

namespace tessel::test {
namespace {

class LoginItemTests : public MacOSTest {
protected:
    /// Every call goes to the login item of the application itself.
    void expectApplicationsItem() { expectCall("[SMAppService mainAppService]", Object{"service"}); }

    LoginItemStatus statusWhenTheSystemSays(std::int64_t status)
    {
        expectApplicationsItem();
        expectCall("[service status]", status);
        return item.status();
    }

    ServiceManagementLoginItem item;
};

TEST_F(LoginItemTests, OnlyStatusOneIsEnabled)
{
    EXPECT_EQ(statusWhenTheSystemSays(0), LoginItemStatus::notRegistered);
    EXPECT_EQ(statusWhenTheSystemSays(1), LoginItemStatus::enabled);
    EXPECT_EQ(statusWhenTheSystemSays(2), LoginItemStatus::requiresApproval);
    EXPECT_EQ(statusWhenTheSystemSays(3), LoginItemStatus::notFound);
    EXPECT_EQ(statusWhenTheSystemSays(4), LoginItemStatus::notFound);
}

TEST_F(LoginItemTests, RegistersAndDropsTheError)
{
    expectApplicationsItem();
    expectCall("[service registerAndReturnError:NULL]", true);
    EXPECT_TRUE(item.registerItem());
    expectApplicationsItem();
    expectCall("[service registerAndReturnError:NULL]", false);
    EXPECT_FALSE(item.registerItem());
}

TEST_F(LoginItemTests, UnregistersAndDropsTheError)
{
    expectApplicationsItem();
    expectCall("[service unregisterAndReturnError:NULL]", true);
    EXPECT_TRUE(item.unregisterItem());
    expectApplicationsItem();
    expectCall("[service unregisterAndReturnError:NULL]", false);
    EXPECT_FALSE(item.unregisterItem());
}

} // namespace
} // namespace tessel::test
