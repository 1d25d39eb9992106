#include "Windows/TrayNotice.h"

#include <gtest/gtest.h>

#include <optional>

#include "Fakes/FakeDefaultsStore.h"
#include "Fakes/VirtualMainQueue.h"

namespace tessel::test {
namespace {

class TrayNoticeTest : public testing::Test {
protected:
    void start()
    {
        notice.emplace(TrayNotice::Needs{.queue = queue,
                                         .remembered = remembered,
                                         .isItemShown = [this] { return isItemShown; },
                                         .isAnotherWindowOpen = [this] { return isAnotherWindowOpen; },
                                         .observeItem =
                                             [this](std::function<void()> didChange) {
                                                 itemDidChange = std::move(didChange);
                                                 return Token([this] { itemDidChange = nullptr; });
                                             },
                                         .show = [this] { ++shownCount; },
                                         .hide = [this] { ++hiddenCount; }});
    }
    /// Long enough for everything that could still come.
    void waitLong() { queue->advance(100 * TrayNotice::patience); }

    std::shared_ptr<CallLog> log = std::make_shared<CallLog>();
    std::shared_ptr<VirtualMainQueue> queue =
        std::make_shared<VirtualMainQueue>(log, std::make_shared<VirtualClock>());
    FakeDefaultsStore remembered{log};
    bool isItemShown = false;
    bool isAnotherWindowOpen = false;
    int shownCount = 0;
    int hiddenCount = 0;
    std::function<void()> itemDidChange;
    std::optional<TrayNotice> notice;
};

TEST_F(TrayNoticeTest, WithoutAMenuBarTheUserIsToldAfterTheMenuBarsTime)
{
    start();
    queue->advance(TrayNotice::patience - 0.1);
    EXPECT_EQ(shownCount, 0);
    queue->advance(0.1);
    EXPECT_EQ(shownCount, 1);
    waitLong();
    EXPECT_EQ(shownCount, 1);
}

TEST_F(TrayNoticeTest, AMenuBarThatComesInTimeSaysItAll)
{
    start();
    queue->advance(TrayNotice::patience - 0.1);
    isItemShown = true;
    queue->advance(0.1);
    isItemShown = false;
    waitLong();
    EXPECT_EQ(shownCount, 0);
    EXPECT_FALSE(remembered.number(TrayNotice::shownKey)) << "another desktop may have none";
}

TEST_F(TrayNoticeTest, ItIsSaidOnceForAll)
{
    start();
    waitLong();
    start();
    waitLong();
    EXPECT_EQ(shownCount, 1);
    EXPECT_EQ(queue->jobCount(), 0U);
}

TEST_F(TrayNoticeTest, AnotherWindowIsNotCovered)
{
    isAnotherWindowOpen = true;
    start();
    queue->advance(5 * TrayNotice::patience);
    EXPECT_EQ(shownCount, 0);
    isAnotherWindowOpen = false;
    queue->advance(TrayNotice::patience);
    EXPECT_EQ(shownCount, 1);
}

TEST_F(TrayNoticeTest, AMenuBarThatComesWhileItWaitsForAnotherWindowSaysItAll)
{
    isAnotherWindowOpen = true;
    start();
    queue->advance(TrayNotice::patience);
    isItemShown = true;
    queue->advance(TrayNotice::patience);
    isAnotherWindowOpen = false;
    isItemShown = false;
    waitLong();
    EXPECT_EQ(shownCount, 0);
}

TEST_F(TrayNoticeTest, ItIsTakenBackWhenAMenuBarComesAfterAll)
{
    start();
    queue->advance(TrayNotice::patience);
    itemDidChange();
    EXPECT_EQ(hiddenCount, 0) << "it is still not shown";
    isItemShown = true;
    itemDidChange();
    EXPECT_EQ(hiddenCount, 1);
}

TEST_F(TrayNoticeTest, NothingComesOfOneThatIsGone)
{
    start();
    notice.reset();
    waitLong();
    EXPECT_EQ(shownCount, 0);
}

TEST_F(TrayNoticeTest, WhatIsNoNumberIsNotTakenForHavingBeenSaid)
{
    remembered.setString(TrayNotice::shownKey, "broken");
    start();
    waitLong();
    EXPECT_EQ(shownCount, 1);
}

} // namespace
} // namespace tessel::test
