#include <limits>

#include <gmock/gmock.h>

#include "Fakes/FakeDesktop.h"
#include "History/DurationText.h"
#include "Settings/QuickClearPresets.h"
#include "Settings/SettingsRules.h"

namespace tessel::test {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;
using testing::Key;

std::vector<std::string> labels()
{
    std::vector<std::string> labels;
    for (const double preset : quickClearPresets)
        labels.push_back(shortDurationLabel(preset));
    return labels;
}

std::vector<std::string> selectedLabels(QuickClearPolicy policy, double customSeconds)
{
    std::vector<std::string> selected;
    for (const double preset : quickClearPresets) {
        if (isPresetSelected(preset, policy, customSeconds))
            selected.push_back(shortDurationLabel(preset));
    }
    return selected;
}

TEST(QuickClearPreset, HasAShortLabel)
{
    EXPECT_THAT(labels(), ElementsAre("30s", "5m", "15m", "1h", "3h", "6h", "24h"));
}

TEST(ShortDurationLabel, TruncatesToTheLargestWholeUnit)
{
    EXPECT_EQ(shortDurationLabel(59.9), "59s");
    EXPECT_EQ(shortDurationLabel(60), "1m");
    EXPECT_EQ(shortDurationLabel(3599), "59m");
    EXPECT_EQ(shortDurationLabel(3600), "1h");
    EXPECT_EQ(shortDurationLabel(5400), "1h");
    EXPECT_EQ(shortDurationLabel(86400), "24h");
    EXPECT_EQ(shortDurationLabel(0), "0s");
    EXPECT_EQ(shortDurationLabel(-7200.5), "-7200s");
}

TEST(QuickClearPreset, OfCustomSecondsIsSelectedToTheNearestSecond)
{
    EXPECT_THAT(selectedLabels(QuickClearPolicy::custom, 299.6), ElementsAre("5m"));
    EXPECT_THAT(selectedLabels(QuickClearPolicy::custom, 299.5), ElementsAre("5m"));
    EXPECT_THAT(selectedLabels(QuickClearPolicy::custom, 300.4), ElementsAre("5m"));
    EXPECT_THAT(selectedLabels(QuickClearPolicy::custom, 299.4), IsEmpty());
    EXPECT_THAT(selectedLabels(QuickClearPolicy::custom, 45), IsEmpty());
}

TEST(QuickClearPreset, OfADayIsSelectedUnderItsPolicyOnly)
{
    EXPECT_THAT(selectedLabels(QuickClearPolicy::oneDay, 300), ElementsAre("24h"));
    EXPECT_THAT(selectedLabels(QuickClearPolicy::never, 300), IsEmpty());
    EXPECT_TRUE(isPresetSelected(86400.9, QuickClearPolicy::oneDay, 300));
}

TEST(QuickClearPreset, IsNamedByThePolicyInForce)
{
    EXPECT_EQ(quickClearValueText(QuickClearPolicy::custom, 9000), "2h 30m");
    for (const double seconds : {30.0, 9000.0, 21600.0}) {
        EXPECT_EQ(quickClearValueText(QuickClearPolicy::oneDay, seconds), "24h");
        EXPECT_EQ(quickClearValueText(QuickClearPolicy::never, seconds), "Infinity");
    }
}

TEST(QuickClearPreset, ChosenSetsTheSecondsThenThePolicy)
{
    FakeDesktop desktop;
    AppState& state = desktop.launch();
    desktop.defaults->forgetWrites();
    state.selectPreset(3600);
    EXPECT_EQ(*state.quickClearCustomSeconds, 3600);
    EXPECT_EQ(*state.quickClearPolicy, QuickClearPolicy::custom);
    EXPECT_THAT(desktop.defaults->writes(), ElementsAre(Key("tesselclipboard.quickClearCustomSeconds"),
                                                        Key("tesselclipboard.quickClearPolicy")));
}

TEST(QuickClearPreset, OfADayLeavesTheSecondsAsTheyWere)
{
    FakeDesktop desktop;
    AppState& state = desktop.launch();
    state.selectPreset(300);
    state.selectPreset(86400);
    EXPECT_EQ(*state.quickClearPolicy, QuickClearPolicy::oneDay);
    EXPECT_EQ(*state.quickClearCustomSeconds, 300);
}

TEST(TintPercent, IsTruncated)
{
    EXPECT_EQ(tintPercent(0.25), 25);
    EXPECT_EQ(tintPercent(0.699), 69);
    EXPECT_EQ(tintPercent(0.95), 95);
    EXPECT_EQ(tintPercent(-0.999), -99);
}

class ImpossiblePresetDeathTest : public testing::TestWithParam<double> {};

TEST_P(ImpossiblePresetDeathTest, StopsTheProcess)
{
    FakeDesktop desktop;
    AppState& state = desktop.launch();
    EXPECT_DEATH(shortDurationLabel(GetParam()), "Fatal error");
    EXPECT_DEATH(isPresetSelected(GetParam(), QuickClearPolicy::custom, 30), "Fatal error");
    EXPECT_DEATH(isPresetSelected(GetParam(), QuickClearPolicy::oneDay, 30), "Fatal error");
    EXPECT_DEATH(state.selectPreset(GetParam()), "Fatal error");
}

INSTANTIATE_TEST_SUITE_P(Values, ImpossiblePresetDeathTest,
                         testing::Values(std::numeric_limits<double>::quiet_NaN(),
                                         std::numeric_limits<double>::infinity(), 0x1p63));

} // namespace
} // namespace tessel::test
