#include <cstdlib>
#include <random>

#include <gtest/gtest.h>

#include "ClipboardFixture.h"

namespace tessel {
namespace {

/// Sequences of random events, each from one number. `TESSEL_SEED` replays one of them.
class RandomEvents : public ::testing::TestWithParam<unsigned>, protected ClipboardFixture {
protected:
    static constexpr int stepCount = 600;
    static constexpr AtomID property = 9000;

    struct Requestor {
        WindowID window;
        bool isLazy; ///< Never takes anything away.
    };

    unsigned seed() const
    {
        const char* chosen = std::getenv("TESSEL_SEED");
        return chosen ? static_cast<unsigned>(std::strtoul(chosen, nullptr, 10)) : GetParam();
    }

    int below(int bound) { return std::uniform_int_distribution(0, bound - 1)(random_); }
    bool oneIn(int count) { return below(count) == 0; }

    std::string randomBytes(int mostBytes)
    {
        std::string bytes(static_cast<std::size_t>(below(mostBytes + 1)), 'x');
        for (char& byte : bytes)
            byte = static_cast<char>(oneIn(20) ? below(256) : 'a' + below(26));
        return bytes;
    }

    AtomID randomTarget()
    {
        const AtomID targets[] = {atoms().utf8String,  atoms().plainTextUTF8, atoms().string,
                                  atoms().text,        atoms().png,           atoms().jpeg,
                                  atoms().html,        atoms().uriList,       atoms().multiple,
                                  atoms().timestamp,   atoms().targets,       atoms().bmp,
                                  atoms().compoundText};
        return targets[below(static_cast<int>(std::size(targets)))];
    }

    FakeTarget randomValue(AtomID target)
    {
        FakeTarget value;
        value.value = {oneIn(10) ? randomTarget() : target, oneIn(15) ? 32 : 8,
                       randomBytes(oneIn(4) ? 5000 : 50)};
        if (value.value.format == 32)
            value.value.bytes.resize(value.value.bytes.size() / 4 * 4);
        if (oneIn(3))
            value.incrementBytes = static_cast<std::size_t>(4 * (1 + below(300)));
        if (oneIn(8))
            value.silentAfter = static_cast<std::size_t>(below(4));
        if (oneIn(8))
            value.announced = static_cast<std::uint32_t>(random_());
        value.isMissing = oneIn(20);
        return value;
    }

    FakeOwner randomOwner()
    {
        std::map<AtomID, FakeTarget> targets;
        for (int count = below(6); count > 0; --count) {
            const AtomID target = randomTarget();
            targets[target] = randomValue(target);
        }
        if (oneIn(10))
            targets[atoms().passwordManagerHint] = utf8Target(atoms(), oneIn(2) ? "secret" : "other");
        FakeOwner owner = ownerOf(atoms(), std::move(targets));
        if (oneIn(10))
            owner.targets[atoms().targets] = randomValue(atoms().targets);
        if (oneIn(15))
            owner.targets.erase(atoms().targets);
        owner.isMute = oneIn(12);
        return owner;
    }

    void takeByOther()
    {
        display.takeClipboard(randomOwner());
        ++ownerCount_;
    }

    void clearByOther()
    {
        display.clearClipboard();
        ++clearCount_;
    }

    void writeOurs()
    {
        auto value = std::make_shared<SelectionValue>();
        if (!oneIn(4))
            value->text = std::make_shared<const std::string>(randomBytes(6000));
        if (oneIn(4))
            value->picture = {std::make_shared<const std::string>("picture"), "image/png"};
        coordinator.write(++generation_, std::move(value), display.now);
        if (oneIn(5))
            coordinator.offerPrimary(std::make_shared<const SelectionValue>());
    }

    void requestOurs()
    {
        if (oneIn(3) || requestors_.empty())
            requestors_.push_back({display.createForeignWindow(), oneIn(5)});
        const WindowID window = requestors_[randomIndex()].window;
        if (oneIn(4))
            display.setProperty(
                window, property,
                {atoms().atomPair, 32,
                 atomBytes({randomTarget(), 9001, randomTarget(), oneIn(5) ? noAtom : 9002})});
        const AtomID selection = oneIn(6)   ? atoms().primary
                                 : oneIn(6) ? atoms().clipboardManager
                                            : atoms().clipboard;
        const AtomID target =
            selection == atoms().clipboardManager && oneIn(2) ? atoms().saveTargets : randomTarget();
        display.request(window, selection, target, oneIn(10) ? noAtom : property);
    }

    void readByOthers()
    {
        for (const Requestor& requestor : requestors_) {
            if (requestor.isLazy || oneIn(3))
                continue;
            for (const AtomID name : {property, AtomID{9001}, AtomID{9002}})
                display.takeProperty(requestor.window, name);
        }
    }

    void killRequestor()
    {
        if (requestors_.empty())
            return;
        const std::size_t index = randomIndex();
        display.destroyForeignWindow(requestors_[index].window);
        requestors_.erase(requestors_.begin() + static_cast<std::ptrdiff_t>(index));
    }

    void convertPictures()
    {
        for (const auto& [offer, target] : std::exchange(wantedPictures, {})) {
            const auto bytes = oneIn(3) ? nullptr : std::make_shared<const std::string>(randomBytes(3000));
            coordinator.pictureConverted(offer, target, bytes, display.now);
        }
    }

    void step()
    {
        switch (below(14)) {
        case 0:
            return takeByOther();
        case 1:
            return oneIn(3) ? writeOurs() : requestOurs();
        case 2:
            return oneIn(3) ? display.killOwner() : readByOthers();
        case 3:
            return oneIn(3) ? clearByOther() : readByOthers();
        case 4:
            return requestOurs();
        case 5:
            return oneIn(4) ? killRequestor() : convertPictures();
        case 6:
            return display.passTime(std::chrono::milliseconds(below(oneIn(5) ? 15000 : 100)));
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

    std::size_t randomIndex()
    {
        return static_cast<std::size_t>(below(static_cast<int>(requestors_.size())));
    }

    std::mt19937 random_{seed()};
    WriteGeneration generation_ = 0;
    std::size_t ownerCount_ = 0;
    std::size_t clearCount_ = 0;
    std::vector<Requestor> requestors_;
};

TEST_P(RandomEvents, HoldWhatIsPromised)
{
    SCOPED_TRACE("TESSEL_SEED=" + std::to_string(seed()));
    coordinator.becomeClipboardManager();
    for (int number = 0; number < stepCount; ++number) {
        step();
        ASSERT_LE(display.requestors.size(), 1U + SelectionReceiver::mostRetiredWindows);
        for (const Report& report : reports) {
            ASSERT_LE(report.generation, generation_);
            ASSERT_TRUE(report.received.readability == Readability::readable ||
                        report.received.value.isEmpty());
        }
    }
    settle();
    EXPECT_TRUE(display.requestors.empty()) << "a requestor window was left behind";
    EXPECT_TRUE(display.watched.empty()) << "a requestor is still served";
    EXPECT_FALSE(coordinator.deadline()) << "something is still awaited";
    EXPECT_LE(display.createdRequestors, ownerCount_) << "a second transfer from one owner";
    EXPECT_LE(reports.size(), ownerCount_ + clearCount_) << "more reports than owners";

    // Whatever has happened: the next owner is received, once, and our next write is served.
    reports.clear();
    display.takeClipboard(ownerOf(atoms(), {{atoms().utf8String, utf8Target(atoms(), "at last")}}));
    settle();
    ASSERT_EQ(reports.size(), 1U);
    EXPECT_EQ(reports[0].generation, generation_);
    EXPECT_EQ(*reports[0].received.value.text, "at last");
    writeText(++generation_, "ours");
    settle();
    EXPECT_EQ(reports.size(), 1U);
    EXPECT_EQ(paste(atoms().clipboard, atoms().utf8String)->bytes, "ours");
}

/// One owner after the other, each given the time it needs: exactly one report for each.
TEST_P(RandomEvents, EachOwnerThatIsGivenTimeIsReportedExactlyOnce)
{
    SCOPED_TRACE("TESSEL_SEED=" + std::to_string(seed()));
    for (std::size_t owner = 1; owner <= 50; ++owner) {
        takeByOther();
        settle();
        ASSERT_EQ(reports.size(), owner);
        if (oneIn(3))
            display.killOwner();
        settle();
        ASSERT_EQ(reports.size(), owner) << "the death of an owner was reported";
        if (oneIn(5))
            writeOurs();
        settle();
        ASSERT_EQ(reports.size(), owner) << "our own write was reported";
    }
}

INSTANTIATE_TEST_SUITE_P(Seeds, RandomEvents, ::testing::Range(1U, 101U));

} // namespace
} // namespace tessel
