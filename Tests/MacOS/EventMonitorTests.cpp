#include <optional>
#include <vector>

#include "AppKitEventMonitors.h"
#include "Support/MacOSTest.h"
#include "Support/System.h"

namespace tessel::test {
namespace {

class EventMonitorTests : public MacOSTest {
protected:
    /// Adds the monitor that the program has: for key-down events, which are event type 10.
    std::optional<EventMonitorToken> addMonitor(EventMonitors::Handler handler)
    {
        expectCall("[NSEvent addLocalMonitorForEventsMatchingMask:1024 handler:^]", Object{"monitor"});
        return monitors->addLocalMonitor(1024, std::move(handler));
    }

    /// A key-down event reaches the application. False: it was consumed.
    bool press(std::int64_t keyCode, std::int64_t modifierFlags)
    {
        expectCall("[press keyCode]", keyCode);
        expectCall("[press modifierFlags]", modifierFlags);
        return deliverKeyDown("press");
    }

    std::optional<AppKitEventMonitors> monitors{std::in_place};
};

TEST_F(EventMonitorTests, TheMonitorSeesTheKeyCodeAndEveryModifierBit)
{
    std::vector<KeyEvent> seen;
    const auto token = addMonitor([&seen](const KeyEvent& event) {
        seen.push_back(event);
        return EventOutcome::passOn;
    });
    press(53, 0x100108);
    ASSERT_EQ(seen.size(), 1U);
    EXPECT_EQ(seen[0].keyCode, 53);
    EXPECT_EQ(static_cast<std::uint64_t>(seen[0].modifierFlags), 0x100108U);
    expectCall("[NSEvent removeMonitor:monitor]");
    monitors->removeMonitor(*token);
}

TEST_F(EventMonitorTests, AnEventThatIsPassedOnGoesOn)
{
    const auto token = addMonitor([](const KeyEvent&) { return EventOutcome::passOn; });
    EXPECT_TRUE(press(12, 0));
    expectCall("[NSEvent removeMonitor:monitor]");
    monitors->removeMonitor(*token);
}

TEST_F(EventMonitorTests, AnEventThatIsConsumedGoesNoFurther)
{
    const auto token = addMonitor([](const KeyEvent&) { return EventOutcome::consumed; });
    EXPECT_FALSE(press(53, 0));
    expectCall("[NSEvent removeMonitor:monitor]");
    monitors->removeMonitor(*token);
}

TEST_F(EventMonitorTests, AMonitorThatIsRemovedSeesNothingMore)
{
    const auto token = addMonitor([](const KeyEvent&) { return EventOutcome::consumed; });
    expectCall("[NSEvent removeMonitor:monitor]");
    monitors->removeMonitor(*token);
    EXPECT_TRUE(deliverKeyDown("press"));
}

TEST_F(EventMonitorTests, IsToldWhenTheSystemGivesNoMonitor)
{
    expectCall("[NSEvent addLocalMonitorForEventsMatchingMask:1024 handler:^]", Nil{});
    EXPECT_EQ(monitors->addLocalMonitor(1024, [](const KeyEvent&) { return EventOutcome::passOn; }),
              std::nullopt);
}

TEST_F(EventMonitorTests, RefusesEventsThatAreNoKeyPresses)
{
    EXPECT_EQ(monitors->addLocalMonitor(2048, [](const KeyEvent&) { return EventOutcome::passOn; }),
              std::nullopt);
}

TEST_F(EventMonitorTests, RemovesWhatIsLeftWhenItGoes)
{
    addMonitor([](const KeyEvent&) { return EventOutcome::passOn; });
    expectCall("[NSEvent removeMonitor:monitor]");
    monitors.reset();
}

TEST_F(EventMonitorTests, RemovingAMonitorTwiceReachesTheSystemOnce)
{
    const auto token = addMonitor([](const KeyEvent&) { return EventOutcome::passOn; });
    expectCall("[NSEvent removeMonitor:monitor]");
    monitors->removeMonitor(*token);
    monitors->removeMonitor(*token);
}

} // namespace
} // namespace tessel::test
