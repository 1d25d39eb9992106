#include <optional>

#include "Support/MacOSTest.h"
#include "UserDefaultsStore.h"

namespace tessel::test {
namespace {

class DefaultsTests : public MacOSTest {
protected:
    DefaultsTests()
    {
        expectCall("[NSUserDefaults standardUserDefaults]", Object{"defaults"});
        store.emplace();
    }

    std::optional<UserDefaultsStore> store;
};

TEST_F(DefaultsTests, ReadsAString)
{
    expectCall("[defaults objectForKey:@\"tesselclipboard.hotKeyPreset\"]", "ctrlShiftV");
    EXPECT_EQ(store->string("tesselclipboard.hotKeyPreset"), "ctrlShiftV");
}

TEST_F(DefaultsTests, AMissingKeyIsNoString)
{
    expectCall("[defaults objectForKey:@\"tesselclipboard.hotKeyPreset\"]", Nil{});
    EXPECT_EQ(store->string("tesselclipboard.hotKeyPreset"), std::nullopt);
}

TEST_F(DefaultsTests, ANumberIsNoString)
{
    expectCall("[defaults objectForKey:@\"tesselclipboard.hotKeyPreset\"]", 3.0);
    EXPECT_EQ(store->string("tesselclipboard.hotKeyPreset"), std::nullopt);
}

TEST_F(DefaultsTests, ReadsANumber)
{
    expectCall("[defaults objectForKey:@\"tesselclipboard.panelTintOpacity\"]", 0.95);
    EXPECT_EQ(store->number("tesselclipboard.panelTintOpacity"), 0.95);
}

TEST_F(DefaultsTests, AMissingKeyIsNoNumber)
{
    expectCall("[defaults objectForKey:@\"tesselclipboard.panelTintOpacity\"]", Nil{});
    EXPECT_EQ(store->number("tesselclipboard.panelTintOpacity"), std::nullopt);
}

TEST_F(DefaultsTests, AStringIsNoNumberEvenIfItReadsLikeOne)
{
    expectCall("[defaults objectForKey:@\"tesselclipboard.quickClearCustomSeconds\"]", "900");
    EXPECT_EQ(store->number("tesselclipboard.quickClearCustomSeconds"), std::nullopt);
}

TEST_F(DefaultsTests, WritesAStringAsAnObject)
{
    expectCall("[defaults setObject:@\"oneDay\" forKey:@\"tesselclipboard.quickClearPolicy\"]");
    store->setString("tesselclipboard.quickClearPolicy", "oneDay");
}

TEST_F(DefaultsTests, WritesANumberAsADouble)
{
    expectCall("[defaults setDouble:0.25 forKey:@\"tesselclipboard.panelTintOpacity\"]");
    store->setDouble("tesselclipboard.panelTintOpacity", 0.25);
}

} // namespace
} // namespace tessel::test
