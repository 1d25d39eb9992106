// Owners of the clipboard that misbehave.

#include "ProgramTest.h"

namespace tessel::desktop {

namespace {

class HostileOwnerTest : public ProgramTest {
protected:
    /// Becomes the owner of the clipboard, in the given manner.
    void startOwner(const std::string& manner)
    {
        owner_.emplace(std::vector<std::string>{TESSEL_SELECTION_OWNERS, manner}, desktop_.environment());
        owner_->waitForLine("owned");
    }

    std::optional<ChildProcess> owner_;
};

TEST_F(HostileOwnerTest, AnOwnerThatNeverAnswersDelaysNothing)
{
    copyTexts({"A", "B"});
    startOwner("mute");
    program_->openPanel();
    letTheProgramTick();
    program_->panel().waitForHeight(Panel::heightFor(2));

    copies_->copyText("C");
    program_->closePanel();
    expectEntryCount(3);
}

TEST_F(HostileOwnerTest, AnOwnerThatDisappearsLeavesItsLastValueToPaste)
{
    copyTexts({"A", "B"});
    copies_.reset(); // The owner of the clipboard goes away with its connection.
    desktop_.connection().waitUntil("the clipboard to have an owner again", [&] {
        return desktop_.connection().selectionOwner("CLIPBOARD") != XCB_WINDOW_NONE;
    });
    EXPECT_EQ(ClipboardReader(desktop_.displayName()).readText(), "B");
    letTheProgramTick();
    expectEntryCount(2);
}

TEST_F(HostileOwnerTest, ASecretIsNeverRecorded)
{
    copyTexts({"A", "B"});
    for (const auto* manner : {"secret", "secret-last"}) {
        startOwner(manner);
        letTheProgramTick();
        expectEntryCount(2);
    }
}

} // namespace

} // namespace tessel::desktop
