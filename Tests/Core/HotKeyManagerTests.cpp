#include <gmock/gmock.h>

#include "Fakes/FakeDesktop.h"
#include "HotKey/HotKeyManager.h"

namespace tessel::test {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

using Registration = FakeHotKeyCenter::Registration;

constexpr EventHotKeyID clipIdentifier = {0x434C4950, 1};

class HotKeyManagerTest : public testing::Test {
protected:
    std::shared_ptr<CallLog> log = std::make_shared<CallLog>();
    std::shared_ptr<FakeHotKeyCenter> center = std::make_shared<FakeHotKeyCenter>(log);
    int presses = 0;

    std::unique_ptr<HotKeyManager> makeManager(HotKeyPreset preset = HotKeyPreset::cmdShiftV)
    {
        return std::make_unique<HotKeyManager>(center, preset, [this] { ++presses; });
    }
};

TEST_F(HotKeyManagerTest, InstallsItsHandlerAndThenRegisters)
{
    const auto manager = makeManager(HotKeyPreset::ctrlShiftV);
    EXPECT_THAT(log->effects(), ElementsAre("hotKey.installHandler", "hotKey.register 9 0x1200"));
    EXPECT_THAT(center->registrations(), ElementsAre(Registration{9, 0x1200, clipIdentifier}));
    EXPECT_EQ(manager->preset(), HotKeyPreset::ctrlShiftV);
}

TEST_F(HotKeyManagerTest, RegistersEveryPresetUnderTheSameIdentifier)
{
    const auto manager = makeManager();
    for (const HotKeyPreset preset : allHotKeyPresets) {
        manager->updatePreset(preset);
        EXPECT_THAT(center->registrations(),
                    ElementsAre(Registration{9, carbonModifiers(preset), clipIdentifier}));
        EXPECT_EQ(manager->preset(), preset);
    }
}

TEST_F(HotKeyManagerTest, LeavesTheRegistrationAloneWhenThePresetStays)
{
    const auto manager = makeManager();
    log->forget();
    manager->updatePreset(HotKeyPreset::cmdShiftV);
    EXPECT_THAT(log->effects(), IsEmpty());
}

TEST_F(HotKeyManagerTest, UnregistersTheOldPresetBeforeItRegistersTheNewOne)
{
    const auto manager = makeManager();
    log->forget();
    manager->updatePreset(HotKeyPreset::cmdOptionV);
    EXPECT_THAT(log->effects(), ElementsAre("hotKey.unregister 9 0x0300", "hotKey.register 9 0x0900"));
}

TEST_F(HotKeyManagerTest, AnswersOnlyToTheNewPresetAfterAChange)
{
    const auto manager = makeManager();
    manager->updatePreset(HotKeyPreset::cmdOptionV);
    EXPECT_EQ(center->press(9, 0x0300), std::nullopt);
    EXPECT_EQ(presses, 0);
    EXPECT_EQ(center->press(9, 0x0900), 0);
    EXPECT_EQ(presses, 1);
}

TEST_F(HotKeyManagerTest, CallsBackOnceForEachPress)
{
    const auto manager = makeManager();
    EXPECT_EQ(center->deliver(clipIdentifier), 0);
    EXPECT_EQ(center->deliver(clipIdentifier), 0);
    EXPECT_EQ(presses, 2);
}

TEST_F(HotKeyManagerTest, HandlesButIgnoresOtherIdentifiers)
{
    const auto manager = makeManager();
    for (const std::uint32_t id : {0U, 2U, 0xFFFFFFFFU})
        EXPECT_EQ(center->deliver(EventHotKeyID{clipIdentifier.signature, id}), 0);
    EXPECT_EQ(presses, 0);
}

TEST_F(HotKeyManagerTest, DoesNotCompareTheSignature)
{
    const auto manager = makeManager();
    EXPECT_EQ(center->deliver(EventHotKeyID{0x12345678, 1}), 0);
    EXPECT_EQ(presses, 1);
}

TEST_F(HotKeyManagerTest, HandlesButIgnoresAnEventThatCannotBeRead)
{
    const auto manager = makeManager();
    EXPECT_EQ(center->deliver(std::nullopt), 0);
    EXPECT_EQ(presses, 0);
}

TEST_F(HotKeyManagerTest, UnregistersAndThenRemovesItsHandlerAtItsEnd)
{
    auto manager = makeManager();
    manager->updatePreset(HotKeyPreset::ctrlShiftV);
    log->forget();
    manager.reset();
    EXPECT_THAT(log->effects(), ElementsAre("hotKey.unregister 9 0x1200", "hotKey.removeHandler"));
    EXPECT_EQ(center->deliver(clipIdentifier), std::nullopt);
}

TEST_F(HotKeyManagerTest, HasNothingToUnregisterWhereTheSystemRefused)
{
    center->refusesRegistrations = true;
    auto manager = makeManager();
    log->forget();
    manager.reset();
    EXPECT_THAT(log->effects(), ElementsAre("hotKey.removeHandler"));
}

TEST_F(HotKeyManagerTest, TriesAgainWithTheNextPresetWhereTheSystemRefused)
{
    center->refusesRegistrations = true;
    const auto manager = makeManager();
    EXPECT_EQ(manager->preset(), HotKeyPreset::cmdShiftV);
    log->forget();
    center->refusesRegistrations = false;
    manager->updatePreset(HotKeyPreset::cmdOptionV);
    EXPECT_THAT(log->effects(), ElementsAre("hotKey.register 9 0x0900"));
    EXPECT_EQ(center->press(9, 0x0900), 0);
    EXPECT_EQ(presses, 1);
}

TEST_F(HotKeyManagerTest, ForgetsTheOldRegistrationWhereTheSystemRefusesTheNewOne)
{
    auto manager = makeManager();
    center->refusesRegistrations = true;
    manager->updatePreset(HotKeyPreset::cmdOptionV);
    EXPECT_THAT(center->registrations(), IsEmpty());
    EXPECT_EQ(manager->preset(), HotKeyPreset::cmdOptionV);
    log->forget();
    manager->updatePreset(HotKeyPreset::ctrlShiftV);
    manager.reset();
    EXPECT_THAT(log->effects(), ElementsAre("hotKey.register 9 0x1200", "hotKey.removeHandler"));
}

TEST_F(HotKeyManagerTest, RemovesNoHandlerWhereTheSystemRefusedIt)
{
    center->refusesHandlers = true;
    auto manager = makeManager();
    EXPECT_EQ(center->registrations().size(), 1U);
    log->forget();
    manager.reset();
    EXPECT_THAT(log->effects(), ElementsAre("hotKey.unregister 9 0x0300"));
}

// The hot key of the application.

class HotKey : public testing::Test {
protected:
    FakeDesktop desktop;
    AppState& state = desktop.launch();
};

TEST_F(HotKey, TogglesThePanelOnTheNextTurnOnly)
{
    desktop.log->forget();
    EXPECT_EQ(desktop.hotKeyCenter->press(9, 0x0300), 0);
    EXPECT_THAT(desktop.log->everything(), ElementsAre("queue.async"));
    EXPECT_EQ(desktop.panel(), nullptr);
    desktop.queue->runPending();
    EXPECT_NE(desktop.panel(), nullptr);
}

TEST_F(HotKey, PressedTwiceInQuickSuccessionOpensAndClosesThePanel)
{
    desktop.hotKeyCenter->press(9, 0x0300);
    desktop.hotKeyCenter->press(9, 0x0300);
    desktop.log->forget();
    desktop.queue->runPending();
    EXPECT_EQ(desktop.panel(), nullptr);
    EXPECT_THAT(desktop.log->effects(), testing::IsSupersetOf({"panel.showWindow", "panel.close"}));
}

TEST_F(HotKey, FollowsThePresetThatTheUserChooses)
{
    state.hotKeyPreset = HotKeyPreset::cmdOptionV;
    desktop.pressHotKey(HotKeyPreset::cmdShiftV);
    EXPECT_EQ(desktop.panel(), nullptr);
    desktop.pressHotKey(HotKeyPreset::cmdOptionV);
    EXPECT_NE(desktop.panel(), nullptr);
}

TEST_F(HotKey, StaysRegisteredWhenTheActivePresetIsChosenAgain)
{
    desktop.log->forget();
    state.hotKeyPreset = HotKeyPreset::cmdShiftV;
    EXPECT_THAT(desktop.log->effects(), ElementsAre("defaults.write tesselclipboard.hotKeyPreset"));
}

} // namespace
} // namespace tessel::test
