// What misbehaving, slow and enormous applications cost the running program: the panel opens as always, the
// next ordinary copy is captured, the memory is given back, and the main thread is never held up.

#include "EnduranceRecord.h"

#include <algorithm>
#include <cctype>
#include <sstream>

#include "HostilePictures.h"
#include "MachineSpeed.h"
#include "ProcessFigures.h"
#include "ProgramTest.h"
#include "Sanitizers.h"
#include "SelectionWatch.h"

namespace tessel::desktop {

namespace {

/// A hold-up of the program's own making comes back every time, one of the machine's does not: so many rounds
/// may be taken until one is without.
constexpr int mostRounds = 8;
constexpr double mostMegabytesLeft = 2;
/// More than any of these tests makes.
constexpr std::size_t mostEntries = 8;
/// The largest values take their time to be encoded and sent, too.
constexpr std::chrono::milliseconds longestTransfer{120'000};

/// What an owner leaves in the history.
enum class Leaves {
    nothing,
    text,
    picture,
    lastOfMany, ///< Texts, of which the last is known.
    either,     ///< A text or nothing, as chance has it.
};

/// One owner of the clipboard.
struct Hazard {
    std::string name;
    /// The arguments for `selection-owners`, but for the file.
    std::vector<std::string> arguments;
    Leaves leaves = Leaves::nothing;
    /// The text or the bytes of the picture that it leaves. None: they are not compared.
    std::function<std::string()> value = {};
    std::string mimeType = {};
    /// Whether it would take the selection from the ordinary copy, and has to end before.
    bool endsFirst = false;
};

std::string numberedLines(std::size_t megabytes)
{
    const std::size_t bytes = megabytes << 20;
    std::string text;
    text.reserve(bytes + 64);
    while (text.size() < bytes)
        text += "line " + std::to_string(text.size()) + " of a very large text\n";
    return text;
}

Hazard worthless(const std::string& name, const std::string& owner)
{
    return {.name = name, .arguments = {owner}};
}

Hazard undecided(const std::string& name, const std::string& owner, bool endsFirst = false)
{
    return {.name = name, .arguments = {owner}, .leaves = Leaves::either, .endsFirst = endsFirst};
}

Hazard text(const std::string& name, std::vector<std::string> arguments, const std::string& value)
{
    return {name, std::move(arguments), Leaves::text, [value] { return value; }, {}};
}

Hazard picture(const std::string& name, const std::string& owner, const std::string& mimeType,
               std::function<std::string()> value)
{
    return {name, {owner}, Leaves::picture, std::move(value), mimeType};
}

Hazard brokenPicture(const std::string& name, std::function<std::string()> value)
{
    return {name, {"file"}, Leaves::nothing, std::move(value), "image/png"};
}

Hazard largePng(const std::string& name, int bitsPerSample, bool isInterlaced)
{
    return picture(name, "incr", "image/png", [=] {
        return encodeLargePng({.bitsPerSample = bitsPerSample, .isInterlaced = isInterlaced});
    });
}

Hazard smallPicture(const std::string& name, const std::string& mimeType)
{
    return picture(name, "file", mimeType, [=] { return encodeSmallPicture(mimeType); });
}

std::vector<Hazard> hazards()
{
    return {
        worthless("never answers", "mute"),
        worthless("answers its targets and nothing else", "mute-after-targets"),
        text("answers after 3 seconds", {"late", "--text", "late text"}, "late text"),
        worthless("dies before it answers", "dies-before"),
        worthless("dies in the middle of its increments", "dies-during"),
        worthless("dies before the last increment", "dies-at-end"),
        {.name = "sends one byte a second", .arguments = {"drip", "--text", std::string(1000, 'x')}},
        worthless("never finishes", "endless"),
        worthless("falls silent in the middle", "stalls"),
        worthless("lies about the type", "liar-type"),
        worthless("lies about the format", "liar-format"),
        text("claims 4 GB", {"liar-length", "--text", "not 4 GB"}, "not 4 GB"),
        worthless("claims 4 GB and sends nothing", "liar-length-mute"),
        {.name = "32 MB in one property", .arguments = {"oversized"}, .leaves = Leaves::text},
        text("writes after the end", {"writes-after-end", "--text", "written"}, "written"),
        worthless("offers everything and delivers nothing", "refuses"),
        worthless("offers everything and delivers it empty", "delivers-empty"),
        worthless("offers 100000 targets", "many-targets"),
        text("answers twice", {"answers-twice", "--text", "twice"}, "twice"),
        text("destroys its window", {"window-dies", "--text", "left behind"}, "left behind"),
        undecided("takes the selection every 10 ms", "flapping", true),
        {.name = "takes the selection 200 times in 2 seconds",
         .arguments = {"rush", "--text", "rush"},
         .leaves = Leaves::lastOfMany,
         .value = [] { return std::string("rush 200"); }},
        {.name = "200 owners in 2 seconds",
         .arguments = {"crowd", "--text", "crowd"},
         .leaves = Leaves::lastOfMany,
         .value = [] { return std::string("crowd 200"); }},
        {"100 MB of text", {"incr"}, Leaves::text, [] { return numberedLines(100); }, "UTF8_STRING"},
        picture("an empty text beside a picture", "empty-text-with-image", "image/png",
                [] { return encodeSmallPicture("image/png"); }),
        text("bytes that are no UTF-8", {"invalid-utf8"}, "good \uFFFD\uFFFD and \uFFFD good\n"),
        text("Latin-1", {"latin1"}, "Gr\u00FC\u00DFe aus K\u00F6ln"),
        text("UTF-16 in the wrong target", {"utf16"}, "Gr\u00FCn"),
        text("UTF-16 in the wrong target, not marked as such", {"utf16-unmarked"}, "Gr\u00FCn"),
        largePng("a PNG of 7680 x 4320, 8 bits", 8, false),
        largePng("a PNG of 7680 x 4320, 16 bits", 16, false),
        largePng("a PNG of 7680 x 4320, 8 bits, interlaced", 8, true),
        largePng("a PNG of 7680 x 4320, 16 bits, interlaced", 16, true),
        brokenPicture("a PNG that claims 60000 x 60000", [] { return claimingPng(60000, 60000); }),
        brokenPicture("a PNG that is cut off", &truncatedPng),
        brokenPicture("a PNG with a wrong byte", &corruptPng),
        smallPicture("JPEG", "image/jpeg"),
        smallPicture("BMP", "image/bmp"),
        smallPicture("TIFF", "image/tiff"),
        smallPicture("WebP", "image/webp"),
    };
}

/// What the rounds of a test have shown: the program at its best, and what the machine does to an idle
/// process at its worst. A busy machine sooner or later holds up the idle process as well.
class Rounds {
public:
    void add(const EnduranceFigures& figures)
    {
        slowness_ = std::max(slowness_, slowness());
        program_ = std::min(program_, figures.holdUp.programAtWork);
        idle_ = std::max(idle_, figures.holdUp.idleAtWork);
        programRun_ = std::min(programRun_, figures.holdUp.programRun);
        idleRun_ = std::max(idleRun_, figures.holdUp.idleRun);
        opening_ = std::min(opening_, figures.opening);
    }

    /// The main thread was held up, and ran, for at most a frame beyond the idle process, and the panel
    /// opened without waiting for anybody's answer.
    bool areGood() const
    {
        return program_ - idle_ <= most(frame) && programRun_ - idleRun_ <= most(frame) &&
               opening_ <= most(longestOpening);
    }

    std::string description() const
    {
        std::ostringstream text;
        text << "held up by " << program_.count() << " us at best, an idle process by " << idle_.count()
             << " us at worst; ran for " << programRun_.count() << " us at best, an idle process for "
             << idleRun_.count() << " us at worst; opened in " << opening_.count()
             << " ms at best; the machine is " << slowness_ << " times slower than usual";
        return text.str();
    }

private:
    static constexpr std::chrono::milliseconds frame{16};
    /// Fifty times what an opening takes; nobody's answer is waited for as briefly.
    static constexpr std::chrono::milliseconds longestOpening{3000};

    std::chrono::microseconds most(std::chrono::microseconds onTheUsualMachine) const
    {
        return std::chrono::duration_cast<std::chrono::microseconds>(onTheUsualMachine * slowness_);
    }

    std::chrono::microseconds program_ = std::chrono::microseconds::max();
    std::chrono::microseconds idle_{};
    std::chrono::microseconds programRun_ = std::chrono::microseconds::max();
    std::chrono::microseconds idleRun_{};
    std::chrono::milliseconds opening_ = std::chrono::milliseconds::max();
    double slowness_ = 1;
};

class EnduranceTest : public ProgramTest {
protected:
    /// Does what `hazard` does until a round leaves the main thread free, and writes down what it cost.
    void endure(const std::string& name, const std::function<void()>& hazard)
    {
        Rounds rounds;
        for (int round = 1;; ++round) {
            figures_ = EnduranceFigures{};
            figures_.hazard = name;
            copyTexts({"A"});
            program_->openPanel();
            program_->closePanel();
            megabytesBefore_ = megabytes();
            watch_.emplace(desktop_, program_->process().pid());
            hazard();
            rounds.add(figures_);
            if (HasFailure() || rounds.areGood() || isSanitized || round == mostRounds)
                break;
            tool_.reset();
            copies_.reset();
            restartProgram();
        }
        if (!isSanitized) {
            EXPECT_TRUE(rounds.areGood()) << rounds.description();
        }
        record(figures_);
    }

    double megabytes() { return anonymousMegabytes(program_->process().pid()); }

    void startTool(const std::vector<std::string>& arguments)
    {
        std::vector<std::string> command{TESSEL_SELECTION_OWNERS};
        command.insert(command.end(), arguments.begin(), arguments.end());
        tool_.emplace(command, desktop_.environment());
        tool_->waitForLine("owned", Deadline(longestTransfer));
    }

    /// The panel opens in the middle of whatever is going on.
    void openInTheMiddle()
    {
        const auto pressed = std::chrono::steady_clock::now();
        program_->openPanel();
        figures_.opening =
            std::chrono::duration_cast<std::chrono::milliseconds>(std::chrono::steady_clock::now() - pressed);
    }

    void copyAfterwards(std::size_t entriesBefore)
    {
        copies_->owner().copyText("after");
        program_->openPanel();
        program_->panel().waitForHeight(Panel::heightFor(entriesBefore + 1));
        program_->closePanel();
    }

    /// What `target` of an entry is when it is chosen.
    std::optional<std::string> chosenValue(int downPresses, const std::string& target = "UTF8_STRING")
    {
        choose(downPresses);
        return ClipboardReader(desktop_.displayName()).read(target, Deadline(longestTransfer));
    }

    void expectMemoryGivenBack()
    {
        program_->openPanel();
        for (std::size_t entry = 0; entry < mostEntries; ++entry)
            desktop_.keyboard().chord({XKB_KEY_Control_L}, XKB_KEY_BackSpace);
        copies_->owner().copyText("small");
        program_->panel().waitForHeight(Panel::heightFor(1));
        program_->closePanel();
        const auto isGivenBack = [&] {
            figures_.megabytesLeft = megabytes() - megabytesBefore_;
            return figures_.megabytesLeft <= mostMegabytesLeft;
        };
        if (!isSanitized)
            desktop_.connection().waitUntil("the memory to be given back", isGivenBack);
        isGivenBack();
    }

    std::optional<ChildProcess> tool_;
    std::optional<HoldUpWatch> watch_;
    EnduranceFigures figures_;
    double megabytesBefore_ = 0;
};

class HazardousOwnerTest : public EnduranceTest, public testing::WithParamInterface<Hazard> {
protected:
    void startOwner(const std::string& value)
    {
        const Hazard& hazard = GetParam();
        auto arguments = hazard.arguments;
        if (!hazard.mimeType.empty())
            arguments.insert(arguments.end(), {"--file", desktop_.directory().write("value", value).string(),
                                               "--mime", hazard.mimeType});
        startTool(arguments);
    }

    /// How many entries there are once the owner has had its time.
    std::size_t awaitEntries()
    {
        const Hazard& hazard = GetParam();
        if (hazard.leaves == Leaves::lastOfMany)
            tool_->waitForLine("finished");
        const bool isOneEntryMore = hazard.leaves == Leaves::text || hazard.leaves == Leaves::picture;
        if (!isOneEntryMore)
            letTheProgramTick();
        program_->openPanel();
        if (isOneEntryMore)
            program_->panel().waitForHeight(Panel::heightFor(2), Deadline(longestTransfer));
        const int height = program_->panel().find().value().frame.height;
        program_->closePanel();
        if (hazard.leaves == Leaves::nothing) {
            EXPECT_EQ(height, Panel::heightFor(1));
        }
        std::size_t count = 1;
        while (Panel::heightFor(count) < height)
            ++count;
        return count;
    }
};

TEST_P(HazardousOwnerTest, CostsNothing)
{
    const Hazard& hazard = GetParam();
    endure(hazard.name, [&] {
        const std::string value = hazard.value ? hazard.value() : std::string();
        startOwner(value);
        openInTheMiddle();
        program_->closePanel();
        auto entries = awaitEntries();
        if (hazard.endsFirst) {
            tool_->end();
            entries = awaitEntries();
        }
        copyAfterwards(entries);
        figures_.holdUp = watch_->finish();

        EXPECT_EQ(chosenValue(0), "after");
        const std::string target = hazard.leaves == Leaves::picture ? hazard.mimeType : "UTF8_STRING";
        if (hazard.leaves != Leaves::nothing && hazard.value) {
            const auto chosen = chosenValue(1, target);
            EXPECT_TRUE(chosen == value)
                << "the value was changed; it begins with \"" << chosen.value_or("").substr(0, 60) << "\"";
        }
        expectMemoryGivenBack();
    });
}

void PrintTo(const Hazard& hazard, std::ostream* stream)
{
    *stream << hazard.name;
}

/// Letters and digits of a hazard's name, for the name of its test.
std::string identifier(std::string name)
{
    std::replace_if(
        name.begin(), name.end(), [](char character) { return std::isalnum(character) == 0; }, '_');
    return name;
}

INSTANTIATE_TEST_SUITE_P(Endurance, HazardousOwnerTest, testing::ValuesIn(hazards()),
                         [](const auto& hazard) { return identifier(hazard.param.name); });

/// Whoever takes the selection back cannot draw the program into a fight for it.
TEST_F(EnduranceTest, AnOwnerThatTakesTheSelectionBackCostsNothing)
{
    endure("takes the selection back when it is taken", [&] {
        startTool({"takes-back", "--text", "mine"});
        program_->openPanel();
        program_->panel().waitForHeight(Panel::heightFor(2));
        program_->closePanel();
        SelectionWatch changes(desktop_.displayName());
        choose(1);
        constexpr std::uint64_t ourTakingAndTheirs = 2;
        changes.waitForMoreThan(ourTakingAndTheirs - 1);
        letTheProgramTick();
        EXPECT_EQ(changes.count(), ourTakingAndTheirs);
        openInTheMiddle();
        // The text that it takes the selection back with is the newest entry already.
        EXPECT_EQ(program_->panel().find().value().frame.height, Panel::heightFor(2));
        program_->closePanel();
        tool_->end();
        copyAfterwards(2);
        figures_.holdUp = watch_->finish();
        EXPECT_EQ(chosenValue(0), "after");
        expectMemoryGivenBack();
    });
}

/// An application that pastes and does not do its part of it.
struct Requestor {
    std::string name;
    std::vector<std::string> arguments;
};

void PrintTo(const Requestor& requestor, std::ostream* stream)
{
    *stream << requestor.name;
}

class HazardousRequestorTest : public EnduranceTest, public testing::WithParamInterface<Requestor> {
protected:
    static constexpr std::size_t megabytesServed = 50;

    /// From now on the program serves the text: the application that copied it is gone.
    std::string leaveLargeText()
    {
        const std::string text = numberedLines(megabytesServed);
        startTool(
            {"incr", "--file", desktop_.directory().write("value", text).string(), "--mime", "UTF8_STRING"});
        program_->openPanel();
        program_->panel().waitForHeight(Panel::heightFor(2), Deadline(longestTransfer));
        program_->closePanel();
        SelectionWatch changes(desktop_.displayName());
        tool_->end();
        changes.waitForMoreThan(0);
        return text;
    }
};

TEST_P(HazardousRequestorTest, CostsNothing)
{
    endure(GetParam().name, [&] {
        const std::string text = leaveLargeText();
        std::vector<std::string> command{TESSEL_SELECTION_OWNERS};
        command.insert(command.end(), GetParam().arguments.begin(), GetParam().arguments.end());
        ChildProcess requestor(command, desktop_.environment());
        openInTheMiddle();
        program_->closePanel();
        const auto status = requestor.waitForExit(Deadline(longestTransfer));
        EXPECT_TRUE(status.succeeded()) << status.description() << requestor.errorOutput();

        EXPECT_TRUE(ClipboardReader(desktop_.displayName()).readText(Deadline(longestTransfer)) == text)
            << "the text is not served whole any more";
        copyAfterwards(2);
        figures_.holdUp = watch_->finish();
        EXPECT_EQ(chosenValue(0), "after");
        expectMemoryGivenBack();
    });
}

INSTANTIATE_TEST_SUITE_P(
    Endurance, HazardousRequestorTest,
    testing::Values(Requestor{"vanishes while 50 MB are served", {"vanishes"}},
                    Requestor{"vanishes before it is answered", {"vanishes-before"}},
                    Requestor{"ten at once ask for 50 MB", {"ten-at-once", "--patience", "100"}},
                    Requestor{"never deletes the property", {"never-deletes", "--for", "3"}},
                    Requestor{"stops deleting the property", {"stops-deleting", "--for", "3"}},
                    Requestor{"takes a piece every 20 ms", {"lazy", "--every", "20", "--patience", "100"}},
                    Requestor{"asks 1000 times at once", {"storm"}},
                    Requestor{"destroys the window that it asks with", {"dead-window"}}),
    [](const auto& requestor) { return identifier(requestor.param.name); });

} // namespace

} // namespace tessel::desktop
