#include <algorithm>
#include <set>

#include <gtest/gtest.h>

#include "ClipboardFixture.h"
#include "SeededRuns.h"

namespace tessel {
namespace {

/// Every event that there is, in any order: other owners that come, lie, fall silent and die; our own writes;
/// requestors that ask for anything, read at their own pace, and die; others that take PRIMARY and the part
/// of the clipboard manager; time. Texts are framed by their number, so that half of one, or a mixture, is
/// seen.
class RandomEvents : public ClipboardFixture {
public:
    explicit RandomEvents(std::uint64_t seed)
        : random_(seed)
    {
        display.eventsOvertakeReplies = random_.oneIn(2);
        if (random_.oneIn(2)) {
            display.takeClipboard(randomOwner());
            display.forgetEvents();
            coordinator.keepPresentValue();
        }
        coordinator.becomeClipboardManager();
    }

    void step()
    {
        switch (random_.below(14)) {
        case 0:
            return takeByOther();
        case 1:
            return random_.oneIn(3) ? writeOurs() : requestOurs();
        case 2:
            return random_.oneIn(3) ? display.killOwner() : readByOthers();
        case 3:
            return random_.oneIn(3) ? clearByOther() : readByOthers();
        case 4:
            return requestOurs();
        case 5:
            return random_.oneIn(4) ? killRequestor() : convertPictures();
        case 6:
            return display.passTime(std::chrono::milliseconds(random_.below(random_.oneIn(5) ? 15000 : 100)));
        case 7:
            return random_.oneIn(4) ? moveOtherSelections() : readByOthers();
        default:
            display.deliverOne();
        }
    }

    /// Lets everything come to its end.
    void settle()
    {
        for (int round = 0; round < 200; ++round) {
            display.deliverAll();
            convertPictures();
            readByOthers();
            display.passTime(std::chrono::seconds(1));
        }
        display.deliverAll();
    }

    /// What holds at any time.
    void expectNothingWrong()
    {
        ASSERT_LE(display.requestors.size(), 1U + SelectionReceiver::mostRetiredWindows);
        for (; checkedReports_ < reports.size(); ++checkedReports_)
            expectGoodReport(reports[checkedReports_]);
    }

    /// What holds when everything has come to its end.
    void expectNothingLeft()
    {
        EXPECT_TRUE(display.requestors.empty()) << "a requestor window was left behind";
        EXPECT_TRUE(display.watched.empty()) << "a requestor is still served";
        EXPECT_FALSE(coordinator.deadline()) << "something is still awaited";
        EXPECT_LE(display.createdRequestors, ownerCount_ + 1) << "a second transfer from one owner";
        EXPECT_LE(reports.size(), ownerCount_ + clearCount_) << "more reports than owners";
        EXPECT_TRUE(!isLatestForeign_ || reports.size() > reportsBeforeLatest_)
            << "the last owner was not reported";
        for (const Requestor& requestor : requestors_) {
            const auto answers =
                std::ranges::count(display.notices, requestor.window, &SelectionNotice::requestor);
            EXPECT_EQ(answers, requestor.requestCount) << "of requestor " << requestor.window;
        }
    }

    /// Whatever has happened: the next owner is received, once, and our next write is served.
    void expectThatLifeGoesOn()
    {
        reports.clear();
        display.takeClipboard(ownerOf(atoms(), {{atoms().utf8String, utf8Target(atoms(), "at last")}}));
        settle();
        ASSERT_EQ(reports.size(), 1U);
        EXPECT_EQ(reports[0].generation, generation_);
        EXPECT_EQ(*reports[0].received.value.text, "at last");
        display.killOwner();
        settle();
        EXPECT_TRUE(display.isOwnedByUs(atoms().clipboard));
        const auto kept = paste(atoms().clipboard, atoms().utf8String);
        EXPECT_TRUE(kept && kept->bytes == "at last") << "it did not outlive its owner";
        writeText(++generation_, "ours");
        settle();
        EXPECT_EQ(reports.size(), 1U);
        const auto written = paste(atoms().clipboard, atoms().utf8String);
        EXPECT_TRUE(written && written->bytes == "ours");
        EXPECT_TRUE(paste(atoms().clipboardManager, atoms().timestamp) || isManagerTaken_);
    }

    void takeByOther()
    {
        noteForeignChange();
        display.takeClipboard(randomOwner());
        ++ownerCount_;
    }
    void killOwner() { display.killOwner(); }
    void writeOurs()
    {
        isLatestForeign_ = false;
        auto value = std::make_shared<SelectionValue>();
        if (!random_.oneIn(4))
            value->text = std::make_shared<const std::string>(framedText(6000));
        if (random_.oneIn(4))
            value->picture = {std::make_shared<const std::string>("picture"), "image/png"};
        coordinator.write(++generation_, std::move(value), display.now);
        if (random_.oneIn(5)) {
            auto primary = std::make_shared<SelectionValue>();
            primary->text = std::make_shared<const std::string>(framedText(3000));
            coordinator.offerPrimary(std::move(primary));
        }
    }
    bool oneIn(std::size_t count) { return random_.oneIn(count); }

private:
    static constexpr std::string_view hush = "hush, this is secret";

    struct Conversation {
        AtomID target = noAtom;
        bool isIncremental = false;
        bool isMuddled = false; ///< Asked for twice under one name, or half read.
        std::string text = {};
    };
    struct Requestor {
        WindowID window = noWindow;
        bool isLazy = false; ///< Never takes anything away.
        int requestCount = 0;
        std::map<AtomID, Conversation> conversations = {};
    };

    std::string randomBytes(std::size_t mostBytes)
    {
        std::string bytes(random_.below(mostBytes + 1), 'x');
        for (char& byte : bytes)
            byte = random_.oneIn(20) ? random_.byte() : static_cast<char>('a' + random_.below(26));
        return bytes;
    }
    std::string framedText(std::size_t mostBytes)
    {
        const std::string number = std::to_string(++textCount_);
        return "<" + number + ":" + randomBytes(mostBytes) + ":" + number + ">";
    }
    static bool isFramed(const std::string& text)
    {
        const std::size_t colon = text.find(':');
        if (colon == std::string::npos || text.front() != '<')
            return false;
        return text.ends_with(":" + text.substr(1, colon - 1) + ">");
    }

    AtomID randomTarget()
    {
        return random_.oneOf(std::vector{atoms().utf8String, atoms().plainTextUTF8, atoms().string,
                                         atoms().text, atoms().png, atoms().jpeg, atoms().html,
                                         atoms().uriList, atoms().multiple, atoms().timestamp,
                                         atoms().targets, atoms().bmp, atoms().compoundText});
    }
    bool isText(AtomID target) const
    {
        return target == atoms().utf8String || target == atoms().plainTextUTF8 || target == atoms().string ||
               target == atoms().text;
    }

    FakeTarget randomValue(AtomID target, std::string text)
    {
        FakeTarget value;
        value.value = {random_.oneIn(10) ? randomTarget() : target, random_.oneIn(15) ? 32 : 8,
                       std::move(text)};
        if (value.value.format == 32)
            value.value.bytes.resize(value.value.bytes.size() / 4 * 4);
        if (random_.oneIn(3))
            value.incrementBytes = 4 * (1 + random_.below(300));
        if (random_.oneIn(8))
            value.silentAfter = random_.below(4);
        if (random_.oneIn(8))
            value.announced = random_.number();
        value.isMissing = random_.oneIn(20);
        return value;
    }

    FakeOwner randomOwner()
    {
        std::map<AtomID, FakeTarget> targets;
        const bool isSecret = random_.oneIn(10);
        for (std::size_t count = random_.below(6); count > 0; --count) {
            const AtomID target = randomTarget();
            targets[target] =
                randomValue(target, isSecret ? std::string(hush) : framedText(random_.oneIn(4) ? 5000 : 50));
        }
        if (isSecret || random_.oneIn(10))
            targets[atoms().passwordManagerHint] = utf8Target(atoms(), isSecret ? "secret" : "other");
        targets.erase(atoms().targets);
        FakeOwner owner = ownerOf(atoms(), std::move(targets));
        if (!isSecret && random_.oneIn(10))
            owner.targets[atoms().targets] = randomValue(atoms().targets, randomBytes(500));
        if (!isSecret && random_.oneIn(15))
            owner.targets.erase(atoms().targets);
        owner.isMute = random_.oneIn(12);
        return owner;
    }

    void noteForeignChange()
    {
        isLatestForeign_ = true;
        reportsBeforeLatest_ = reports.size();
    }
    void clearByOther()
    {
        noteForeignChange();
        display.clearClipboard();
        ++clearCount_;
    }
    void moveOtherSelections()
    {
        const AtomID selection = random_.oneIn(2) ? atoms().primary : atoms().clipboardManager;
        if (display.isOwnedByUs(selection)) {
            display.takeByStranger(selection);
            isManagerTaken_ = isManagerTaken_ || selection == atoms().clipboardManager;
        } else if (isManagerTaken_ && selection == atoms().clipboardManager) {
            display.killStranger(selection);
            isManagerTaken_ = false;
        }
    }

    void requestOurs()
    {
        if (random_.oneIn(3) || requestors_.empty())
            requestors_.push_back({display.createForeignWindow(), random_.oneIn(5)});
        Requestor& requestor = requestors_[random_.below(requestors_.size())];
        const bool isRepeated = random_.oneIn(8) && !requestor.conversations.empty();
        const AtomID property = isRepeated ? requestor.conversations.begin()->first : nextProperty_++;
        const AtomID selection = random_.oneIn(6)   ? atoms().primary
                                 : random_.oneIn(6) ? atoms().clipboardManager
                                                    : atoms().clipboard;
        const AtomID target =
            selection == atoms().clipboardManager && random_.oneIn(2) ? atoms().saveTargets : randomTarget();
        if (!display.isOwnedByUs(selection))
            return;
        if (target == atoms().multiple && !random_.oneIn(6))
            writePairs(requestor, property);
        const bool isObsolete = random_.oneIn(10);
        converse(requestor, isObsolete ? target : property, target);
        const auto time = random_.oneIn(5) ? std::optional(currentTime) : std::nullopt;
        display.request(requestor.window, selection, target, isObsolete ? noAtom : property, time);
        ++requestor.requestCount;
    }
    void writePairs(Requestor& requestor, AtomID property)
    {
        std::vector<AtomID> pairs;
        for (std::size_t count = random_.below(4); count > 0; --count) {
            const AtomID target = randomTarget();
            pairs.push_back(target);
            pairs.push_back(random_.oneIn(5) ? noAtom : nextProperty_++);
            if (pairs.back() != noAtom)
                converse(requestor, pairs.back(), target);
        }
        display.setProperty(requestor.window, property, {atoms().atomPair, 32, atomBytes(pairs)});
        if (requestor.conversations.contains(property))
            requestor.conversations[property].isMuddled = true;
    }
    void converse(Requestor& requestor, AtomID property, AtomID target)
    {
        const bool isThere = requestor.conversations.contains(property);
        requestor.conversations[property] = {target};
        requestor.conversations[property].isMuddled = isThere;
    }

    void readByOthers()
    {
        for (Requestor& requestor : requestors_) {
            if (requestor.isLazy || random_.oneIn(3))
                continue;
            for (auto& [property, conversation] : requestor.conversations)
                read(requestor.window, property, conversation);
        }
    }
    void read(WindowID window, AtomID property, Conversation& conversation)
    {
        const auto piece = display.takeProperty(window, property);
        if (!piece)
            return;
        EXPECT_EQ(piece->bytes.find(hush), std::string::npos) << "a secret was given away";
        if (piece->type == atoms().incr) {
            conversation.isMuddled = conversation.isMuddled || conversation.isIncremental;
            conversation.isIncremental = true;
            return;
        }
        conversation.text += piece->bytes;
        if (conversation.isIncremental && !piece->bytes.empty())
            return;
        const bool isText = this->isText(conversation.target) && !conversation.isMuddled;
        EXPECT_TRUE(!isText || isFramed(conversation.text)) << "half a text, or two: " << conversation.text;
        conversation.isMuddled = true; // There is nothing more to come.
    }

    void killRequestor()
    {
        if (requestors_.empty())
            return;
        const std::size_t index = random_.below(requestors_.size());
        display.destroyForeignWindow(requestors_[index].window);
        requestors_.erase(requestors_.begin() + static_cast<std::ptrdiff_t>(index));
    }

    void convertPictures()
    {
        const auto wanted = std::exchange(wantedPictures, {});
        for (const auto& [offer, target] : wanted) {
            const auto bytes =
                random_.oneIn(3) ? nullptr : std::make_shared<const std::string>(randomBytes(3000));
            coordinator.pictureConverted(offer, target, bytes, display.now);
        }
    }

    void expectGoodReport(const Report& report)
    {
        ASSERT_LE(report.generation, generation_);
        const SelectionValue& value = report.received.value;
        ASSERT_TRUE(report.received.readability == Readability::readable || value.isEmpty());
        if (!value.text || value.text->empty())
            return;
        ASSERT_NE(*value.text, hush) << "a secret was reported";
        ASSERT_TRUE(isFramed(*value.text)) << "half a text, or two: " << *value.text;
        const std::string name = value.text->substr(0, value.text->find(':'));
        ASSERT_TRUE(reportedTexts_.insert(name).second) << "reported twice: " << name;
    }

    SeededRandom random_;
    WriteGeneration generation_ = 0;
    std::size_t ownerCount_ = 0;
    std::size_t clearCount_ = 0;
    std::size_t textCount_ = 0;
    std::size_t checkedReports_ = 0;
    std::size_t reportsBeforeLatest_ = 0;
    bool isLatestForeign_ = false; ///< Whether the clipboard's last change was another's.
    bool isManagerTaken_ = false;
    AtomID nextProperty_ = 10000;
    std::set<std::string> reportedTexts_;
    std::vector<Requestor> requestors_;
};

TEST(RandomEvents, HoldWhatIsPromised)
{
    forEachSeed(200, [](std::uint64_t seed) {
        constexpr int stepCount = 600;
        RandomEvents run(seed);
        for (int number = 0; number < stepCount && !::testing::Test::HasFailure(); ++number) {
            run.step();
            run.expectNothingWrong();
        }
        run.settle();
        run.expectNothingWrong();
        run.expectNothingLeft();
        run.expectThatLifeGoesOn();
    });
}

/// One owner after the other, each given the time it needs: exactly one report for each.
TEST(RandomEvents, EachOwnerThatIsGivenTimeIsReportedExactlyOnce)
{
    forEachSeed(40, [](std::uint64_t seed) {
        RandomEvents run(seed);
        run.settle();
        for (std::size_t owner = 1; owner <= 50; ++owner) {
            run.takeByOther();
            run.settle();
            ASSERT_EQ(run.reports.size(), owner);
            if (run.oneIn(3))
                run.killOwner();
            run.settle();
            ASSERT_EQ(run.reports.size(), owner) << "the death of an owner was reported";
            if (run.oneIn(5))
                run.writeOurs();
            run.settle();
            ASSERT_EQ(run.reports.size(), owner) << "our own write was reported";
        }
    });
}

} // namespace
} // namespace tessel
