// The program as the owner of the clipboard, before the conformance suite for selections.

#include "ProgramTest.h"
#include "SelectionWatch.h"

namespace tessel::desktop {

namespace {

class ConformanceTest : public ProgramTest {
protected:
    void expectGood(std::vector<std::string> arguments)
    {
        arguments.insert(arguments.begin(), TESSEL_SELECTION_OWNERS);
        const auto result = runCommand(arguments, desktop_.environment());
        EXPECT_TRUE(result.status.succeeded()) << result.output << result.errorOutput;
    }
};

TEST_F(ConformanceTest, AChosenTextIsServedByTheBook)
{
    copyTexts({"A", "B"});
    choose(1);
    expectGood({"check"});
    EXPECT_EQ(ClipboardReader(desktop_.displayName()).readText(), "A");
}

TEST_F(ConformanceTest, ALargeTextIsServedByTheBook)
{
    const std::string text(std::size_t{3} << 20, 'x');
    copyTexts({"A", text, "B"});
    choose(1);
    expectGood({"check"});
    expectGood({"takes-over"});
}

TEST_F(ConformanceTest, AnApplicationsTextIsSavedWhenItAsksForThat)
{
    expectGood({"save-targets", "--text", "saved"});
    EXPECT_EQ(ClipboardReader(desktop_.displayName()).readText(), "saved");
}

TEST_F(ConformanceTest, ARivalThatCopiesEveryTextIsNotFought)
{
    copyTexts({"A"});
    ChildProcess rival({TESSEL_SELECTION_OWNERS, "rival"}, desktop_.environment());
    rival.waitForLine("owned");
    SelectionWatch changes(desktop_.displayName());
    copies_->owner().copyText("B");
    // The copy, and what the rival makes of it.
    changes.waitForMoreThan(1);
    letTheProgramTick();
    EXPECT_EQ(changes.count(), 2U);
    choose(1);
    changes.waitForMoreThan(3);
    letTheProgramTick();
    EXPECT_EQ(changes.count(), 4U);
}

} // namespace

} // namespace tessel::desktop
