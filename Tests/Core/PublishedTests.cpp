#include <memory>
#include <vector>

#include <gmock/gmock.h>

#include "Support/Observable.h"
#include "Support/Published.h"

namespace tessel::test {
namespace {

using testing::ElementsAre;

class PublishedTest : public testing::Test {
protected:
    Observable owner;
    Published<int> value{owner, 1};
    std::vector<int> told;

    Token observeWithName(int name)
    {
        return owner.observe([this, name] { told.push_back(name); });
    }
};

TEST_F(PublishedTest, TellsItsObserversBeforeItReplacesTheValue)
{
    const Token token = owner.observe([this] { told.push_back(*value); });
    value = 2;
    EXPECT_THAT(told, ElementsAre(1));
    EXPECT_EQ(*value, 2);
}

TEST_F(PublishedTest, RunsItsChangeHandlerAfterItHasReplacedTheValue)
{
    std::vector<int> handled;
    std::function<void()> handler;
    Published<int> handledValue(owner, 1, [&] { handler(); });
    handler = [&] { handled.push_back(*handledValue); };
    handledValue = 2;
    EXPECT_THAT(handled, ElementsAre(2));
}

TEST_F(PublishedTest, RunsNoHandlerForItsInitialValue)
{
    int runs = 0;
    const Published<int> handledValue(owner, 1, [&] { ++runs; });
    EXPECT_EQ(runs, 0);
    EXPECT_EQ(*handledValue, 1);
}

TEST_F(PublishedTest, AnnouncesAndHandlesEveryAssignmentEvenOfTheSameValue)
{
    int runs = 0;
    Published<int> handledValue(owner, 1, [&] { ++runs; });
    const Token token = observeWithName(7);
    handledValue = 1;
    handledValue = 1;
    EXPECT_THAT(told, ElementsAre(7, 7));
    EXPECT_EQ(runs, 2);
}

TEST_F(PublishedTest, LetsItsHandlerAssignAgain)
{
    Published<int>* pointer = nullptr;
    Published<int> clamped(owner, 1, [&] {
        if (**pointer > 10)
            *pointer = 10;
    });
    pointer = &clamped;
    const Token token = owner.observe([&] { told.push_back(*clamped); });
    clamped = 50;
    EXPECT_EQ(*clamped, 10);
    EXPECT_THAT(told, ElementsAre(1, 50));
}

TEST_F(PublishedTest, TellsItsObserversInTheOrderInWhichTheyCame)
{
    const Token first = observeWithName(1);
    const Token second = observeWithName(2);
    owner.announceChange();
    EXPECT_THAT(told, ElementsAre(1, 2));
}

TEST_F(PublishedTest, TellsADroppedObserverNothing)
{
    Token first = observeWithName(1);
    const Token second = observeWithName(2);
    first.reset();
    value = 2;
    EXPECT_THAT(told, ElementsAre(2));
}

TEST_F(PublishedTest, ReplacingATokenDropsItsObserver)
{
    Token token = observeWithName(1);
    token = observeWithName(2);
    value = 2;
    EXPECT_THAT(told, ElementsAre(2));
}

TEST_F(PublishedTest, AMovedTokenStillObserves)
{
    Token token = observeWithName(1);
    const Token moved = std::move(token);
    value = 2;
    EXPECT_THAT(told, ElementsAre(1));
    EXPECT_TRUE(static_cast<bool>(moved));
}

TEST_F(PublishedTest, AnObserverMayDropItselfWhileItIsTold)
{
    Token self;
    self = owner.observe([&] {
        told.push_back(1);
        self.reset();
    });
    const Token other = observeWithName(2);
    value = 2;
    value = 3;
    EXPECT_THAT(told, ElementsAre(1, 2, 2));
}

TEST_F(PublishedTest, AnObserverMayDropALaterOneWhichIsThenNotTold)
{
    Token later;
    const Token first = owner.observe([&] {
        told.push_back(1);
        later.reset();
    });
    later = observeWithName(2);
    const Token last = observeWithName(3);
    value = 2;
    EXPECT_THAT(told, ElementsAre(1, 3));
}

TEST_F(PublishedTest, AnObserverMayDropAnEarlierOne)
{
    Token earlier = observeWithName(1);
    const Token second = owner.observe([&] {
        told.push_back(2);
        earlier.reset();
    });
    const Token last = observeWithName(3);
    value = 2;
    value = 3;
    EXPECT_THAT(told, ElementsAre(1, 2, 3, 2, 3));
}

TEST_F(PublishedTest, AnObserverThatIsAddedInACallbackIsToldFromTheNextChangeOn)
{
    std::vector<Token> added;
    const Token first = owner.observe([&] {
        told.push_back(1);
        if (added.empty())
            added.push_back(observeWithName(2));
    });
    value = 2;
    EXPECT_THAT(told, ElementsAre(1));
    value = 3;
    EXPECT_THAT(told, ElementsAre(1, 1, 2));
}

TEST_F(PublishedTest, AnObserverMayReplaceItselfOnEveryCall)
{
    Token self;
    std::function<void()> renew = [&] {
        told.push_back(1);
        ASSERT_LT(told.size(), 10U) << "The renewed observer is told of the same change for ever.";
        self = owner.observe(renew);
    };
    self = owner.observe(renew);
    value = 2;
    value = 3;
    EXPECT_THAT(told, ElementsAre(1, 1));
}

TEST_F(PublishedTest, AnObserverMayChangeAnotherValue)
{
    Published<int> other(owner, 1);
    const Token token = owner.observe([&] {
        told.push_back(*value);
        if (told.size() == 1)
            other = 5;
    });
    value = 2;
    EXPECT_THAT(told, ElementsAre(1, 1));
    EXPECT_EQ(*other, 5);
    EXPECT_EQ(*value, 2);
}

TEST_F(PublishedTest, ATokenMayOutliveWhatItObserves)
{
    auto shortLived = std::make_unique<Observable>();
    Token token = shortLived->observe([] {});
    shortLived.reset();
    token.reset();
    EXPECT_FALSE(static_cast<bool>(token));
}

TEST_F(PublishedTest, ADroppedObserverReleasesWhatItHolds)
{
    const auto held = std::make_shared<int>(1);
    Token token = owner.observe([held] {});
    EXPECT_EQ(held.use_count(), 2);
    token.reset();
    EXPECT_EQ(held.use_count(), 1);
}

} // namespace
} // namespace tessel::test
