#include <cmath>
#include <limits>

#include <gmock/gmock.h>

#include "Fakes/FakeDesktop.h"

namespace tessel::test {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;
using testing::Pair;
using testing::VariantWith;

const std::string policyKey = "tesselclipboard.quickClearPolicy";
const std::string secondsKey = "tesselclipboard.quickClearCustomSeconds";
const std::string presetKey = "tesselclipboard.hotKeyPreset";
const std::string opacityKey = "tesselclipboard.panelTintOpacity";

class Settings : public testing::Test {
protected:
    FakeDesktop desktop;

    auto wrote(const std::string& key, double value) { return Pair(key, VariantWith<double>(value)); }
    auto wrote(const std::string& key, const std::string& value)
    {
        return Pair(key, VariantWith<std::string>(value));
    }
};

// What is read at start-up.

TEST_F(Settings, HaveTheirDefaultsWhereNothingIsStored)
{
    const AppState& state = desktop.launch();
    EXPECT_EQ(*state.quickClearPolicy, QuickClearPolicy::never);
    EXPECT_EQ(*state.quickClearCustomSeconds, 900);
    EXPECT_EQ(*state.hotKeyPreset, HotKeyPreset::cmdShiftV);
    EXPECT_EQ(*state.panelTintOpacity, 0.25);
}

TEST_F(Settings, AreReadFromTheirKeys)
{
    desktop.defaults->putStored(policyKey, "oneDay");
    desktop.defaults->putStored(secondsKey, 45.5);
    desktop.defaults->putStored(presetKey, "ctrlShiftV");
    desktop.defaults->putStored(opacityKey, 0.5);
    const AppState& state = desktop.launch();
    EXPECT_EQ(*state.quickClearPolicy, QuickClearPolicy::oneDay);
    EXPECT_EQ(*state.quickClearCustomSeconds, 45.5);
    EXPECT_EQ(*state.hotKeyPreset, HotKeyPreset::ctrlShiftV);
    EXPECT_EQ(*state.panelTintOpacity, 0.5);
}

TEST_F(Settings, KeysAreTheDocumentedOnes)
{
    EXPECT_EQ(AppState::quickClearPolicyKey, policyKey);
    EXPECT_EQ(AppState::quickClearCustomSecondsKey, secondsKey);
    EXPECT_EQ(AppState::hotKeyPresetKey, presetKey);
    EXPECT_EQ(AppState::panelOpacityKey, opacityKey);
    EXPECT_EQ(AppState::defaultPanelOpacity, 0.25);
    EXPECT_EQ(AppState::maxItems, 100U);
}

TEST_F(Settings, StoredSecondsBelowTheRangeAreReadAsItsLowerEnd)
{
    desktop.defaults->putStored(secondsKey, 5.0);
    EXPECT_EQ(*desktop.launch().quickClearCustomSeconds, 30);
}

TEST_F(Settings, StoredSecondsAboveTheRangeAreReadAsItsUpperEnd)
{
    desktop.defaults->putStored(secondsKey, 100'000.0);
    EXPECT_EQ(*desktop.launch().quickClearCustomSeconds, 21'600);
}

TEST_F(Settings, StoredSecondsAtTheEndsOfTheRangeStand)
{
    desktop.defaults->putStored(secondsKey, 30.0);
    EXPECT_EQ(*desktop.launch().quickClearCustomSeconds, 30);
    desktop.defaults->putStored(secondsKey, 21'600.0);
    EXPECT_EQ(*desktop.launch().quickClearCustomSeconds, 21'600);
}

TEST_F(Settings, ATextStoredInPlaceOfTheSecondsGivesTheDefault)
{
    desktop.defaults->putStored(secondsKey, "60");
    EXPECT_EQ(*desktop.launch().quickClearCustomSeconds, 900);
}

TEST_F(Settings, AnUnknownStoredPolicyMeansNever)
{
    for (const auto* text : {"weekly", "", "OneDay", "custom ", "CUSTOM"}) {
        desktop.defaults->putStored(policyKey, text);
        EXPECT_EQ(*desktop.launch().quickClearPolicy, QuickClearPolicy::never) << text;
    }
    desktop.defaults->putStored(policyKey, 1.0);
    EXPECT_EQ(*desktop.launch().quickClearPolicy, QuickClearPolicy::never);
}

TEST_F(Settings, EveryStoredPolicyIsKnown)
{
    for (const QuickClearPolicy policy : allQuickClearPolicies) {
        desktop.defaults->putStored(policyKey, rawValue(policy));
        EXPECT_EQ(*desktop.launch().quickClearPolicy, policy) << rawValue(policy);
    }
}

TEST_F(Settings, AnUnknownStoredPresetMeansTheDefaultOne)
{
    for (const auto* text : {"foo", "", "CmdOptionV", "CTRLSHIFTV", "cmdOptionV "}) {
        desktop.defaults->putStored(presetKey, text);
        EXPECT_EQ(*desktop.launch().hotKeyPreset, HotKeyPreset::cmdShiftV) << text;
    }
    desktop.defaults->putStored(presetKey, 2.0);
    EXPECT_EQ(*desktop.launch().hotKeyPreset, HotKeyPreset::cmdShiftV);
}

TEST_F(Settings, AStoredOpacityBeyondTheRangeStandsUntilItIsChanged)
{
    for (const double opacity : {0.95, 0.0, 1.0, 0.05, -3.0}) {
        desktop.defaults->putStored(opacityKey, opacity);
        EXPECT_EQ(*desktop.launch().panelTintOpacity, opacity);
    }
}

TEST_F(Settings, ATextStoredInPlaceOfTheOpacityGivesTheDefault)
{
    desktop.defaults->putStored(opacityKey, "0.5");
    EXPECT_EQ(*desktop.launch().panelTintOpacity, 0.25);
}

TEST_F(Settings, StartingWritesNothing)
{
    desktop.defaults->putStored(secondsKey, 5.0);
    desktop.defaults->putStored(policyKey, "weekly");
    desktop.launch();
    EXPECT_THAT(desktop.defaults->writes(), IsEmpty());
}

TEST_F(Settings, SurviveARelaunch)
{
    AppState& state = desktop.launch();
    state.quickClearPolicy = QuickClearPolicy::custom;
    state.quickClearCustomSeconds = 60;
    state.hotKeyPreset = HotKeyPreset::cmdOptionV;
    state.panelTintOpacity = 0.6;
    const AppState& next = desktop.launch();
    EXPECT_EQ(*next.quickClearPolicy, QuickClearPolicy::custom);
    EXPECT_EQ(*next.quickClearCustomSeconds, 60);
    EXPECT_EQ(*next.hotKeyPreset, HotKeyPreset::cmdOptionV);
    EXPECT_EQ(*next.panelTintOpacity, 0.6);
}

// What a change writes.

TEST_F(Settings, SecondsBelowTheRangeBecomeItsLowerEndWithOneWrite)
{
    AppState& state = desktop.launch();
    state.quickClearCustomSeconds = 10;
    EXPECT_EQ(*state.quickClearCustomSeconds, 30);
    EXPECT_THAT(desktop.defaults->writes(), ElementsAre(wrote(secondsKey, 30)));
}

TEST_F(Settings, SecondsAboveTheRangeBecomeItsUpperEndWithOneWrite)
{
    AppState& state = desktop.launch();
    state.quickClearCustomSeconds = std::numeric_limits<double>::infinity();
    EXPECT_EQ(*state.quickClearCustomSeconds, 21'600);
    EXPECT_THAT(desktop.defaults->writes(), ElementsAre(wrote(secondsKey, 21'600)));
}

TEST_F(Settings, WhatIsNotANumberSettlesAtTheLowerEndWithOneWrite)
{
    AppState& state = desktop.launch();
    state.quickClearCustomSeconds = std::numeric_limits<double>::quiet_NaN();
    state.panelTintOpacity = std::numeric_limits<double>::quiet_NaN();
    EXPECT_EQ(*state.quickClearCustomSeconds, 30);
    EXPECT_EQ(*state.panelTintOpacity, 0.1);
    EXPECT_THAT(desktop.defaults->writes(), ElementsAre(wrote(secondsKey, 30), wrote(opacityKey, 0.1)));
}

TEST_F(Settings, SecondsInTheRangeAreWrittenAsTheyAre)
{
    AppState& state = desktop.launch();
    state.quickClearCustomSeconds = 45.5;
    EXPECT_THAT(desktop.defaults->writes(), ElementsAre(wrote(secondsKey, 45.5)));
}

TEST_F(Settings, AnOpacityAboveTheRangeBecomesItsUpperEndWithOneWrite)
{
    AppState& state = desktop.launch();
    state.panelTintOpacity = 0.8;
    EXPECT_EQ(*state.panelTintOpacity, 0.7);
    EXPECT_THAT(desktop.defaults->writes(), ElementsAre(wrote(opacityKey, 0.7)));
}

TEST_F(Settings, AnOpacityBelowTheRangeBecomesItsLowerEndWithOneWrite)
{
    AppState& state = desktop.launch();
    state.panelTintOpacity = 0;
    EXPECT_EQ(*state.panelTintOpacity, 0.1);
    EXPECT_THAT(desktop.defaults->writes(), ElementsAre(wrote(opacityKey, 0.1)));
}

TEST_F(Settings, AStoredOpacityBeyondTheRangeIsClampedByTheNextChangeEvenToItself)
{
    desktop.defaults->putStored(opacityKey, 0.95);
    AppState& state = desktop.launch();
    state.panelTintOpacity = 0.95;
    EXPECT_EQ(*state.panelTintOpacity, 0.7);
    EXPECT_THAT(desktop.defaults->writes(), ElementsAre(wrote(opacityKey, 0.7)));
}

TEST_F(Settings, AnExcessOfNoMoreThanTheEpsilonIsLeftAsItIs)
{
    AppState& state = desktop.launch();
    // Two units in the last place above 0.7 are exactly the epsilon away from it.
    const double atEpsilon = std::nextafter(std::nextafter(0.7, 1), 1);
    ASSERT_EQ(atEpsilon - 0.7, std::numeric_limits<double>::epsilon());
    state.panelTintOpacity = atEpsilon;
    EXPECT_EQ(*state.panelTintOpacity, atEpsilon);
    EXPECT_THAT(desktop.defaults->writes(), ElementsAre(wrote(opacityKey, atEpsilon)));

    state.panelTintOpacity = std::nextafter(atEpsilon, 1);
    EXPECT_EQ(*state.panelTintOpacity, 0.7);
}

TEST_F(Settings, APolicyIsWrittenAsItsName)
{
    AppState& state = desktop.launch();
    state.quickClearPolicy = QuickClearPolicy::custom;
    state.quickClearPolicy = QuickClearPolicy::oneDay;
    state.quickClearPolicy = QuickClearPolicy::never;
    EXPECT_THAT(
        desktop.defaults->writes(),
        ElementsAre(wrote(policyKey, "custom"), wrote(policyKey, "oneDay"), wrote(policyKey, "never")));
}

TEST_F(Settings, APresetIsWrittenAsItsName)
{
    AppState& state = desktop.launch();
    state.hotKeyPreset = HotKeyPreset::ctrlShiftV;
    state.hotKeyPreset = HotKeyPreset::cmdOptionV;
    EXPECT_THAT(desktop.defaults->writes(),
                ElementsAre(wrote(presetKey, "ctrlShiftV"), wrote(presetKey, "cmdOptionV")));
}

TEST_F(Settings, AnAssignmentOfTheSameValueIsWrittenToo)
{
    AppState& state = desktop.launch();
    state.quickClearPolicy = QuickClearPolicy::never;
    state.quickClearCustomSeconds = 900;
    state.hotKeyPreset = HotKeyPreset::cmdShiftV;
    state.panelTintOpacity = 0.25;
    EXPECT_EQ(desktop.defaults->writes().size(), 4U);
}

TEST_F(Settings, APresetIsWrittenBeforeItIsRegistered)
{
    AppState& state = desktop.launch();
    desktop.log->forget();
    state.hotKeyPreset = HotKeyPreset::cmdOptionV;
    EXPECT_THAT(
        desktop.log->everything(),
        ElementsAre("defaults.write " + presetKey, "hotKey.unregister 9 0x0300", "hotKey.register 9 0x0900"));
}

TEST_F(Settings, AnOpacityTriggersNothingButItsWrite)
{
    AppState& state = desktop.launch();
    desktop.log->forget();
    state.panelTintOpacity = 0.9;
    EXPECT_THAT(desktop.log->everything(), ElementsAre("defaults.write " + opacityKey));
}

TEST_F(Settings, ObserversAreToldBeforeTheSettingAndBeforeItsClampedForm)
{
    AppState& state = desktop.launch();
    std::vector<double> valuesBefore;
    const Token token = state.observe([&] { valuesBefore.push_back(*state.quickClearCustomSeconds); });
    state.quickClearCustomSeconds = 10;
    EXPECT_THAT(valuesBefore, ElementsAre(900, 10));
}

} // namespace
} // namespace tessel::test
