// The conformance suite itself: each of its owners and requestors does what it says.

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <cctype>
#include <chrono>
#include <csignal>
#include <cstdlib>
#include <fstream>
#include <functional>
#include <iterator>
#include <memory>
#include <optional>
#include <set>
#include <sstream>

#include "Desktop.h"

namespace tessel::desktop {

namespace {

using namespace std::chrono_literals;
using testing::AllOf;
using testing::ContainsRegex;
using testing::EndsWith;
using testing::HasSubstr;
using testing::StartsWith;

/// Exit statuses of the tool.
constexpr int ownerIsGood = 0;
constexpr int ownerIsBad = 1;
constexpr int wrongUsage = 2;
constexpr int nothingThere = 3;

std::string contentsOf(const std::filesystem::path& path)
{
    std::ifstream file(path, std::ios::binary);
    return {std::istreambuf_iterator<char>(file), {}};
}

std::vector<std::string> linesOf(const std::string& text)
{
    std::vector<std::string> lines;
    std::istringstream stream(text);
    for (std::string line; std::getline(stream, line);)
        lines.push_back(line);
    return lines;
}

/// A virtual display without anything else on it.
class SelectionOwnersTest : public testing::Test {
protected:
    using Words = std::vector<std::string>;

    SelectionOwnersTest()
        : environment_(surroundings())
        , display_({640, 480}, environment_)
    {
        environment_["DISPLAY"] = display_.name();
    }

    static Environment surroundings()
    {
        Environment environment;
        for (const auto* name : {"PATH", "ASAN_OPTIONS", "LSAN_OPTIONS", "UBSAN_OPTIONS"}) {
            if (const char* value = std::getenv(name))
                environment[name] = value;
        }
        return environment;
    }

    /// Runs the tool to its end.
    CommandResult run(Words words, Deadline deadline = Deadline()) const
    {
        words.insert(words.begin(), TESSEL_SELECTION_OWNERS);
        return runCommand(words, environment_, deadline);
    }

    /// Has an owner take the selection.
    ChildProcess& own(Words words)
    {
        words.insert(words.begin(), TESSEL_SELECTION_OWNERS);
        owners_.push_back(std::make_unique<ChildProcess>(words, environment_));
        owners_.back()->waitForLine("owned");
        return *owners_.back();
    }

    /// The bytes that a good requestor gets; none if it gets none.
    std::optional<std::string> paste(Words options = {}) const
    {
        const auto file = directory_.path() / "pasted";
        options.insert(options.begin(), {"paste", "--output", file.string()});
        if (run(options).status.number != ownerIsGood)
            return std::nullopt;
        return contentsOf(file);
    }

    void waitUntil(const std::string& awaited, const std::function<bool()>& isSo) const
    {
        const Deadline deadline;
        while (!isSo()) {
            if (deadline.hasPassed())
                throw DesktopFailure("waited in vain for " + awaited);
        }
    }
    void waitUntilNobodyOwns() const
    {
        waitUntil("the selection to be given up",
                  [&] { return run({"targets"}).status.number == nothingThere; });
    }

    TemporaryDirectory directory_;
    Environment environment_;
    VirtualDisplay display_;
    std::vector<std::unique_ptr<ChildProcess>> owners_;
};

/// What a requestor sees of an owner.
struct Encounter {
    std::string owner;     ///< With its options.
    std::string requestor; ///< With its options.
    int status;
    std::string seen; ///< A regular expression.
};

void PrintTo(const Encounter& encounter, std::ostream* stream)
{
    *stream << encounter.owner << " meets " << encounter.requestor;
}

std::vector<std::string> wordsOf(const std::string& text)
{
    std::istringstream stream(text);
    return {std::istream_iterator<std::string>(stream), {}};
}

/// What each owner looks like to a requestor that can tell.
const std::vector<Encounter>& encounters()
{
    static const std::vector<Encounter> all = {
        {"text", "paste", ownerIsGood, "24 bytes of UTF8_STRING in one property"},
        {"text --selection PRIMARY", "paste --selection PRIMARY", ownerIsGood, "24 bytes"},
        {"file --file /bin/true --mime application/x-thing", "paste --target application/x-thing",
         ownerIsGood, "bytes of application/x-thing"},
        {"incr --size 2", "paste", ownerIsGood, "2097152 bytes of UTF8_STRING in 16 increments"},
        {"rich-text", "every-target", ownerIsGood, "text/html: 31 bytes of text/html"},
        {"text-with-image", "every-target", ownerIsGood, "image/png: 79 bytes of image/png"},
        {"empty-text-with-image", "every-target", ownerIsGood, "UTF8_STRING: 0 bytes.*image/png: 79 bytes"},
        {"secret", "targets", ownerIsGood, "^x-kde-passwordManagerHint\nUTF8_STRING\n"},
        {"secret-last", "targets", ownerIsGood, "charset=utf-8\nx-kde-passwordManagerHint\n"},

        {"latin1", "paste --target STRING", ownerIsGood, "14 bytes of STRING"},
        {"text-target", "paste --target TEXT", ownerIsGood, "14 bytes of STRING"},
        {"compound-text", "paste --target COMPOUND_TEXT", ownerIsGood, "12 bytes of COMPOUND_TEXT"},
        {"invalid-utf8", "paste", ownerIsBad, "is not valid UTF-8"},
        {"utf16", "paste --target text/plain;charset=utf-8", ownerIsBad, "is not valid UTF-8"},
        {"utf16-big-endian", "paste --target text/plain;charset=utf-8", ownerIsBad, "is not valid UTF-8"},
        {"utf16-unmarked", "paste --target text/plain;charset=utf-8", ownerIsBad, "is not valid UTF-8"},
        {"utf16-big-endian-unmarked", "paste --target text/plain;charset=utf-8", ownerIsBad,
         "is not valid UTF-8"},
        {"jpeg-as-png", "paste --target image/png", ownerIsBad, "does not begin as such data begins"},
        {"broken-png", "paste --target image/png", ownerIsBad, "does not end as such data ends"},

        {"mute", "targets --patience 300ms", ownerIsBad, "no answer"},
        {"mute-after-targets", "targets", ownerIsGood, "5 targets"},
        {"mute-after-targets", "paste --patience 300ms", ownerIsBad, "no answer"},
        {"stalls", "paste --patience 4", ownerIsBad, "unfinished: 8 bytes in 2 increments"},
        // 8 increments are the whole text, and more come than that.
        {"endless --size 1", "lazy --every 10 --patience 1.2", ownerIsGood, "time was over.*unfinished: "},
        {"dies-before", "paste --patience 300ms", ownerIsBad, "no answer"},
        {"dies-before", "vanishes-before --patience 300ms", ownerIsBad,
         "then a good requestor: (no answer|refused)"},
        {"dies-during", "paste --patience 4", ownerIsBad, "unfinished: 12 bytes in 3 increments"},
        {"dies-at-end", "paste --patience 4", ownerIsBad, "unfinished: 24 bytes in 6 increments"},

        {"liar-length", "paste", ownerIsBad, "announces 4294967295 bytes and sends 24"},
        {"liar-length-mute", "paste --patience 4", ownerIsBad, "unfinished: 0 bytes in 0 increments"},
        {"modest-length", "paste", ownerIsGood, "1048576 bytes of UTF8_STRING in 16 increments"},
        {"no-length", "paste", ownerIsBad, "24 bytes.*announces increments without one size"},
        {"empty-incr", "paste", ownerIsGood, "0 bytes of UTF8_STRING in 0 increments"},
        {"oversized --size 1", "paste", ownerIsBad, "sends 1048576 bytes in one property"},
        {"writes-after-end", "quiet-afterwards", ownerIsBad, "wrote the property after the end"},

        {"liar-type", "paste", ownerIsBad, "is of the type INTEGER, not UTF8_STRING"},
        {"liar-format", "paste", ownerIsBad, "has 32 bits to an item, not 8"},
        {"refuses", "every-target", ownerIsBad, "UTF8_STRING is listed: refused"},
        {"refuses-everything", "targets", ownerIsBad, "refused"},
        {"delivers-empty", "every-target", ownerIsBad, "image/png is listed: 0 bytes"},
        {"delivers-empty", "paste", ownerIsGood, "0 bytes of UTF8_STRING"},
        {"answers-twice", "quiet-afterwards", ownerIsBad, "answered 2 times"},
        {"answers-twice", "in-order", ownerIsBad, "another order"},
        {"answers-other-selection", "paste", ownerIsBad, "answers for the selection SECONDARY"},
        {"answers-other-target", "paste", ownerIsBad, "answers for the target DRAWABLE"},
        {"answers-other-property", "paste", ownerIsBad, "no property; answers with the property CUT_BUFFER0"},
        {"ignores-time", "stale-time", ownerIsBad, "served a request from before it had the selection"},
        {"ignores-obsolete", "no-property --patience 300ms", ownerIsBad, "no answer"},

        {"no-targets", "targets", ownerIsBad, "refused"},
        {"targets-type", "targets", ownerIsBad, "of the type SELECTION_OWNERS_TYPE, not ATOM"},
        {"targets-format", "targets", ownerIsBad, "has 8 bits to an item, not 32"},
        {"many-targets", "targets", ownerIsBad, "400020 bytes of ATOM"},
        {"many-targets", "paste", ownerIsGood, "24 bytes"},
        {"no-timestamp", "timestamp", ownerIsBad, "refused"},
        {"no-multiple", "multiple", ownerIsBad, "refused"},
        {"careless-multiple", "multiple-mixed", ownerIsBad, "does not replace the target"},

        {"flapping", "paste", ownerIsGood, "24 bytes"},
        {"incr --size 1", "takes-over", ownerIsGood, "1048576 bytes of UTF8_STRING in 8 increments"},
        {"stalls", "takes-over --patience 4", ownerIsBad, "unfinished: 8 bytes in 2 increments"},
        {"incr --size 1", "ten-at-once", ownerIsGood, "10 times the same 1048576 bytes"},
        {"incr --size 1", "vanishes", ownerIsGood,
         "disconnected, unfinished: 262144 bytes in 2 increments; then"},
        {"incr --size 1", "never-deletes --for 0", ownerIsGood, "took nothing.*: 1048576 bytes"},
        {"incr --size 1", "stops-deleting --for 0", ownerIsGood, "unfinished: 262144 bytes.*: 1048576 bytes"},
        {"text", "storm --count 100", ownerIsGood, "100 requests at once, all answered"},
        {"mute", "storm --count 100 --patience 300ms", ownerIsBad, "0 of 100 requests answered"},
        // Something owns the manager's selection, and knows no SAVE_TARGETS.
        {"text --selection CLIPBOARD_MANAGER", "save-targets", ownerIsBad, "SAVE_TARGETS was refused"},
        {"text", "save-targets", nothingThere, "nobody owns CLIPBOARD_MANAGER"},
    };
    return all;
}

class EncounterTest : public SelectionOwnersTest, public testing::WithParamInterface<Encounter> {};

TEST_P(EncounterTest, IsAsAnnounced)
{
    own(wordsOf(GetParam().owner));
    const auto result = run(wordsOf(GetParam().requestor));
    EXPECT_EQ(result.status.number, GetParam().status);
    // The value itself goes to the standard output, and what is said of it to the other.
    const bool isText = !GetParam().requestor.starts_with("paste");
    EXPECT_THAT((isText ? result.output : "") + result.errorOutput, ContainsRegex(GetParam().seen));
}

INSTANTIATE_TEST_SUITE_P(Owners, EncounterTest, testing::ValuesIn(encounters()), [](const auto& encounter) {
    std::string name = std::to_string(encounter.index) + "_" + encounter.param.owner + "_meets_" +
                       wordsOf(encounter.param.requestor).front();
    std::ranges::replace_if(
        name, [](char letter) { return std::isalnum(letter) == 0; }, '_');
    return name;
});

TEST_F(SelectionOwnersTest, ATextArrivesByteForByte)
{
    const std::string text = "Gr\xC3\xBC\xC3\x9F"
                             "e, \xE4\xB8\x96\xE7\x95\x8C\t\"quoted\"\n";
    own({"text", "--text", text});
    EXPECT_EQ(paste(), text);
}

TEST_F(SelectionOwnersTest, AFileArrivesInIncrementsByteForByte)
{
    std::string bytes;
    for (int number = 0; number < 200'000; ++number)
        bytes += static_cast<char>(number * 7 + number / 256);
    const auto file = directory_.write("bytes", bytes);
    own({"incr", "--file", file.string(), "--mime", "image/x-thing"});
    EXPECT_EQ(paste({"--target", "image/x-thing"}), bytes);
}

TEST_F(SelectionOwnersTest, ALateOwnerAnswersAfterThreeSecondsAndADripSendsOneByteASecond)
{
    own({"late"});
    own({"drip", "--text", "ab", "--selection", "PRIMARY"});
    const auto asked = std::chrono::steady_clock::now();
    ChildProcess late({TESSEL_SELECTION_OWNERS, "paste"}, environment_);
    EXPECT_EQ(paste({"--selection", "PRIMARY"}), "ab");
    EXPECT_GE(std::chrono::steady_clock::now() - asked, 3s) << "one for each byte, one for the end";
    EXPECT_TRUE(late.waitForExit().succeeded());
    EXPECT_GE(std::chrono::steady_clock::now() - asked, 3s);
}

TEST_F(SelectionOwnersTest, AnOwnerThatDiesIsGone)
{
    for (const auto* manner : {"dies-before", "dies-during", "dies-at-end"}) {
        auto& owner = own({manner});
        ChildProcess requestor({TESSEL_SELECTION_OWNERS, "paste"}, environment_);
        EXPECT_TRUE(owner.waitForExit().succeeded()) << manner;
    }
}

TEST_F(SelectionOwnersTest, ARushAndACrowdEndWithTheTwoHundredth)
{
    auto& rush = own({"rush", "--text", "of a rush"});
    auto& crowd = own({"crowd", "--text", "of a crowd", "--selection", "PRIMARY"});
    rush.waitForLine("finished");
    crowd.waitForLine("finished");
    EXPECT_EQ(paste(), "of a rush 200");
    EXPECT_EQ(paste({"--selection", "PRIMARY"}), "of a crowd 200");
}

TEST_F(SelectionOwnersTest, AFlappingOwnerTakesTheSelectionAgainAndAgain)
{
    own({"flapping"});
    const auto file = (directory_.path() / "time").string();
    std::set<std::string> times;
    waitUntil("three times", [&] {
        const auto result = run({"paste", "--target", "TIMESTAMP", "--output", file});
        times.insert(contentsOf(file));
        return times.size() >= 3;
    });
}

TEST_F(SelectionOwnersTest, AnOwnerThatTakesBackHasTheLastWord)
{
    own({"takes-back", "--text", "mine"});
    own({"text", "--text", "yours"});
    waitUntil("the selection to be taken back", [&] { return paste() == "mine"; });
}

TEST_F(SelectionOwnersTest, ARivalTakesTheSelectionWithTheTextOfEverybodyElse)
{
    own({"rival"});
    for (const std::string text : {"first", "second"}) {
        auto& other = own({"text", "--text", text});
        // Only the rival's goes on when the other one is gone.
        waitUntil("the rival to copy",
                  [&] { return run({"every-target"}).output.find("plain") == std::string::npos; });
        other.end();
        EXPECT_EQ(paste(), text);
    }
}

TEST_F(SelectionOwnersTest, AnOwnerThatClearsOrLosesItsWindowKeepsItsConnection)
{
    for (const auto* manner : {"clears", "window-dies"}) {
        auto& owner = own({manner});
        EXPECT_TRUE(paste()) << manner;
        waitUntilNobodyOwns();
        EXPECT_TRUE(owner.isRunning()) << manner;
    }
}

TEST_F(SelectionOwnersTest, AnOwnerThatLeavesIsGone)
{
    for (const auto* manner : {"leaves", "secret-fast"}) {
        EXPECT_TRUE(own({manner}).waitForExit().succeeded()) << manner;
        waitUntilNobodyOwns();
    }
}

TEST_F(SelectionOwnersTest, AnOwnerStaysForTheGivenTime)
{
    EXPECT_TRUE(own({"text", "--for", "100ms"}).waitForExit().succeeded());
}

TEST_F(SelectionOwnersTest, AnOwnerEndsWellWhenItIsAskedTo)
{
    auto& owner = own({"text"});
    owner.signal(SIGTERM);
    EXPECT_TRUE(owner.waitForExit().succeeded());
}

TEST_F(SelectionOwnersTest, ALazyRequestorTakesItsTime)
{
    own({"incr", "--size", "1"});
    const auto asked = std::chrono::steady_clock::now();
    const auto result = run({"lazy", "--every", "50"});
    EXPECT_EQ(result.status.number, ownerIsGood);
    EXPECT_THAT(result.output, HasSubstr("1048576 bytes of UTF8_STRING in 8 increments"));
    // The announcement, 8 increments, and the end.
    EXPECT_GE(std::chrono::steady_clock::now() - asked, 500ms);
}

TEST_F(SelectionOwnersTest, AHostileRequestorKeepsItUpForTheGivenTime)
{
    own({"incr", "--size", "1"});
    for (const auto* requestor : {"never-deletes", "stops-deleting"}) {
        const auto asked = std::chrono::steady_clock::now();
        EXPECT_EQ(run({requestor, "--for", "400ms"}).status.number, ownerIsGood);
        EXPECT_GE(std::chrono::steady_clock::now() - asked, 400ms) << requestor;
    }
}

/// The verdicts of a check, such as "ok    paste", in order.
std::vector<std::string> verdictsOf(const CommandResult& result)
{
    std::vector<std::string> verdicts;
    for (const auto& line : linesOf(result.output))
        verdicts.push_back(line.substr(0, line.find("  (")));
    return verdicts;
}

/// The requestors that are part of a check, in order.
const std::vector<std::string>& checkedRequestors()
{
    static const std::vector<std::string> names = {"paste",         "every-target",    "quiet-afterwards",
                                                   "in-order",      "ten-at-once",     "targets",
                                                   "timestamp",     "unknown-target",  "stale-time",
                                                   "multiple",      "multiple-mixed",  "same-property-twice",
                                                   "dead-window",   "vanishes-before", "vanishes",
                                                   "never-deletes", "stops-deleting",  "lazy",
                                                   "storm",         "no-property"};
    return names;
}

TEST_F(SelectionOwnersTest, GoodOwnersPassTheWholeCheck)
{
    std::vector<std::string> expected;
    for (const auto& name : checkedRequestors())
        expected.push_back("ok    " + name);
    for (const Words& owner :
         {Words{"text"}, Words{"incr", "--size", "1"}, Words{"text-with-image"}, Words{"latin1"}}) {
        own(owner);
        const auto result = run({"check"});
        EXPECT_EQ(result.status.number, ownerIsGood) << owner.front();
        EXPECT_EQ(verdictsOf(result), expected) << result.output;
    }
}

TEST_F(SelectionOwnersTest, AMuteOwnerFailsTheWholeCheckInBoundedTime)
{
    std::vector<std::string> expected;
    for (const auto& name : checkedRequestors())
        expected.push_back("FAIL  " + name);
    own({"mute"});
    const auto result = run({"check", "--patience", "50ms"});
    EXPECT_EQ(result.status.number, ownerIsBad);
    EXPECT_EQ(verdictsOf(result), expected) << result.output;
}

TEST_F(SelectionOwnersTest, ACheckSaysWhatTheOwnerBreaksAndNothingElse)
{
    own({"no-timestamp"});
    const auto result = run({"check"});
    EXPECT_EQ(result.status.number, ownerIsBad);
    auto verdicts = verdictsOf(result);
    std::erase_if(verdicts, [](const auto& verdict) { return verdict.starts_with("ok"); });
    EXPECT_THAT(verdicts, testing::ElementsAre("FAIL  timestamp", "FAIL  stale-time", "FAIL  multiple"));
}

TEST_F(SelectionOwnersTest, ACheckGoesOnWhenTheOwnerDies)
{
    own({"dies-before"});
    const auto result = run({"check", "--patience", "300ms"});
    EXPECT_EQ(result.status.number, ownerIsBad);
    EXPECT_EQ(verdictsOf(result).front(), "FAIL  paste");
    EXPECT_THAT(result.output, AllOf(HasSubstr("nobody owns CLIPBOARD"), EndsWith("changed meanwhile\n")));
}

/// A program of somebody else's: xclip 0.13 serves text to good requestors, and knows no targets but TARGETS
/// and that of the text. It answers all others with the text. An X error ends it, and with it most of what is
/// hostile: one requestor that is gone too early, or at the latest an obsolete one.
TEST_F(SelectionOwnersTest, ACheckOfXclipFindsWhatItLacks)
{
    const auto file = directory_.write("text", "of xclip\n");
    ChildProcess xclip({"xclip", "-quiet", "-selection", "clipboard", "-in", file.string()}, environment_);
    waitUntil("xclip to own the selection", [&] { return paste() == "of xclip\n"; });
    const auto result = run({"check", "--patience", "4"});
    EXPECT_EQ(result.status.number, ownerIsBad);
    EXPECT_THAT(verdictsOf(result),
                testing::IsSupersetOf({"ok    paste", "ok    every-target", "ok    ten-at-once",
                                       "FAIL  targets", "FAIL  timestamp", "FAIL  unknown-target",
                                       "FAIL  stale-time", "FAIL  multiple", "FAIL  no-property"}))
        << result.output;
}

TEST_F(SelectionOwnersTest, WrongUsageIsExplained)
{
    for (const Words& words :
         {Words{}, Words{"no-such-name"}, Words{"text", "--no-such-option"}, Words{"text", "--for"},
          Words{"text", "--for", "soon"}, Words{"file"}, Words{"incr", "--size", "-1"}}) {
        const auto result = run(words);
        EXPECT_EQ(result.status.number, wrongUsage);
        EXPECT_THAT(result.errorOutput, AllOf(StartsWith("selection-owners: "), HasSubstr("usage: ")));
    }
}

TEST_F(SelectionOwnersTest, NoOwnerAndNoDisplayAreToldFromABadOwner)
{
    for (const auto* words : {"paste", "check", "storm"})
        EXPECT_EQ(run({words}).status.number, nothingThere) << words;
    environment_["DISPLAY"] = ":987654";
    for (const auto* words : {"paste", "check", "text"})
        EXPECT_EQ(run({words}).status.number, nothingThere) << words;
}

/// Every name in the list.
std::set<std::string> namesIn(const std::string& markdown)
{
    std::set<std::string> names;
    for (const auto& line : linesOf(markdown)) {
        if (line.starts_with("| `"))
            names.insert(line.substr(3, line.find('`', 3) - 3));
    }
    return names;
}

TEST_F(SelectionOwnersTest, TheListHasEveryNameWithItsSection)
{
    const auto list = run({"--list"}).output;
    const auto names = namesIn(run({"--list-markdown"}).output);
    EXPECT_GT(names.size(), 70U);
    for (const auto& name : names)
        EXPECT_THAT(list, ContainsRegex("\n  " + name + " \\(ICCCM (obeys|breaks) 2\\.[0-9.]+"));
}

TEST_F(SelectionOwnersTest, EveryNameIsPlayedInATest)
{
    // Those of the tests that are not in the table.
    std::set<std::string> played = {"late",   "drip",        "rush",   "crowd",       "takes-back", "rival",
                                    "clears", "window-dies", "leaves", "secret-fast", "lazy"};
    played.insert(checkedRequestors().begin(), checkedRequestors().end());
    for (const auto& encounter : encounters()) {
        played.insert(wordsOf(encounter.owner).front());
        played.insert(wordsOf(encounter.requestor).front());
    }
    EXPECT_EQ(namesIn(run({"--list-markdown"}).output), played);
}

TEST_F(SelectionOwnersTest, ThePageInTheDocumentationHasTheTables)
{
    const auto page = contentsOf(std::filesystem::path(TESSEL_DOCUMENTATION) / "SelectionOwners.md");
    EXPECT_THAT(page, HasSubstr(run({"--list-markdown"}).output))
        << "Replace the tables in SelectionOwners.md by what selection-owners --list-markdown prints.";
}

} // namespace

} // namespace tessel::desktop
