// Owners of the clipboard that misbehave.

#include <algorithm>

#include "ClientFiles.h"
#include "Heartbeat.h"
#include "ProgramTest.h"

namespace tessel::desktop {

namespace {

/// Far above what an opening takes, also on a busy machine under sanitizers, and far below what a wait for an
/// answer takes.
constexpr auto longestOpening = 2s;

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
    const BusAddress idle{"org.tessel.Idle", "/heartbeat"};
    ChildProcess idleProgram({clientFile("qt-heartbeat").string(), idle.name}, desktop_.environment());
    idleProgram.waitForLine("ready");

    startOwner("mute");
    Heartbeat heartbeat(desktop_.busAddress(), Program::busAddress());
    Heartbeat idleHeartbeat(desktop_.busAddress(), idle);
    const auto pressed = std::chrono::steady_clock::now();
    program_->openPanel();
    EXPECT_LT(std::chrono::steady_clock::now() - pressed, longestOpening);
    letTheProgramTick();
    const auto heldUp = heartbeat.finish().longest - idleHeartbeat.finish().longest;
    EXPECT_LT(heldUp, 300ms) << "the main thread was held up";
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

/// By the manner of the owner.
class MisbehavingOwnerTest : public HostileOwnerTest, public testing::WithParamInterface<const char*> {};

TEST_P(MisbehavingOwnerTest, ThePanelOpensAndTheNextCopyIsCaptured)
{
    copyTexts({"A", "B"});
    startOwner(GetParam());
    const auto pressed = std::chrono::steady_clock::now();
    program_->openPanel();
    EXPECT_LT(std::chrono::steady_clock::now() - pressed, longestOpening);
    program_->closePanel();
    letTheProgramTick();
    // One that takes the selection again and again has to stop first.
    if (GetParam() == std::string("flapping"))
        owner_->end();

    copies_->owner().copyText("after");
    copies_->owner().waitForRequest("UTF8_STRING");
    letTheProgramTick();
    TextClient target(desktop_, TextClientKind::gtk);
    choose(0);
    target.waitForText("after");
}

INSTANTIATE_TEST_SUITE_P(Manners, MisbehavingOwnerTest,
                         testing::Values("mute-after-targets", "dies-before", "dies-during", "dies-at-end",
                                         "refuses", "drip", "endless", "stalls", "liar-type", "liar-format",
                                         "liar-length", "flapping", "no-targets"),
                         [](const auto& manner) {
                             std::string name = manner.param;
                             std::replace(name.begin(), name.end(), '-', '_');
                             return name;
                         });

} // namespace

} // namespace tessel::desktop
