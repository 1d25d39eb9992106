#include <optional>

#include "AppKitAppearance.h"
#include "Support/AppearanceTest.h"
#include "Support/System.h"

namespace tessel::test {
namespace {

class AppearanceTests : public AppearanceTest {
protected:
    ~AppearanceTests() override
    {
        if (!appearance)
            return;
        expectAppearanceLetGo();
        appearance.reset();
    }

    void make(const std::string& scheme = "NSAppearanceNameAqua", bool reducesMotion = false)
    {
        expectAppearanceRead(scheme, reducesMotion);
        expectAppearanceObserved();
        appearance.emplace();
        expectNoMore();
        endTurn();
    }

    std::optional<AppKitAppearance> appearance;
};

TEST_F(AppearanceTests, IsLightWithAnAccentColorAndMotion)
{
    make();
    EXPECT_EQ(appearance->settings(), (AppearanceSettings{.colorScheme = ColorScheme::light,
                                                          .accentColor = SystemColor{0.25, 0.5, 1},
                                                          .reducesMotion = false}));
}

TEST_F(AppearanceTests, IsDarkWhenThatMatchesBest)
{
    make("NSAppearanceNameDarkAqua");
    EXPECT_EQ(appearance->settings().colorScheme, ColorScheme::dark);
}

TEST_F(AppearanceTests, ReducesMotionWhenTheSystemSaysSo)
{
    make("NSAppearanceNameAqua", true);
    EXPECT_TRUE(appearance->settings().reducesMotion);
}

TEST_F(AppearanceTests, AnAccentColorThatHasNoEqualInSRGBIsNone)
{
    expectScheme("NSAppearanceNameAqua");
    expectCall("[NSColor controlAccentColor]", Object{"accent"});
    expectCall("[NSColorSpace sRGBColorSpace]", Object{"sRGB"});
    expectCall("[accent colorUsingColorSpace:sRGB]", Nil{});
    expectMotion(false);
    expectAppearanceObserved();
    appearance.emplace();
    EXPECT_EQ(appearance->settings().accentColor, std::nullopt);
}

TEST_F(AppearanceTests, TellsOfAnotherEffectiveAppearanceUntilTheTokenIsDropped)
{
    make();
    int changes = 0;
    Token token = appearance->observe([&changes] { ++changes; });
    expectAppearanceRead("NSAppearanceNameDarkAqua");
    changeObservedValue("effectiveAppearance");
    EXPECT_EQ(changes, 1);
    EXPECT_EQ(appearance->settings().colorScheme, ColorScheme::dark);

    token.reset();
    expectAppearanceRead("NSAppearanceNameAqua");
    changeObservedValue("effectiveAppearance");
    EXPECT_EQ(changes, 1);
    EXPECT_EQ(appearance->settings().colorScheme, ColorScheme::light);
}

TEST_F(AppearanceTests, ReadsAgainWhenTheSystemsColorsOrItsDisplayOptionsChange)
{
    make();
    int changes = 0;
    const Token token = appearance->observe([&changes] { ++changes; });
    expectAppearanceRead("NSAppearanceNameDarkAqua");
    notify("colors");
    EXPECT_EQ(changes, 1);
    expectAppearanceRead("NSAppearanceNameDarkAqua", true);
    notify("display options");
    EXPECT_EQ(changes, 2);
    EXPECT_TRUE(appearance->settings().reducesMotion);
}

TEST_F(AppearanceTests, TellsOfNoChangeWhereThereIsNone)
{
    make();
    int changes = 0;
    const Token token = appearance->observe([&changes] { ++changes; });
    expectAppearanceRead();
    notify("colors");
    EXPECT_EQ(changes, 0);
}

} // namespace
} // namespace tessel::test
