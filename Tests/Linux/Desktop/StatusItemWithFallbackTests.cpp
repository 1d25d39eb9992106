// Two status items of which one is shown at a time.

#include <gtest/gtest.h>

#include <memory>

#include "Fakes/CallLog.h"
#include "Fakes/FakeStatusItem.h"
#include "Fakes/VirtualClock.h"
#include "Fakes/VirtualMainQueue.h"
#include "StatusItemWithFallback.h"

namespace tessel::test {

namespace {

class StatusItemWithFallbackTest : public testing::Test {
protected:
    void show()
    {
        item_.setMenu({{.kind = StatusMenuRow::Kind::action, .title = "Quit", .caption = "", .chosen = {}}});
        item_.show({.title = "Clipboard", .symbolName = "", .drawIcon = {}, .openMenu = {}});
    }
    void waitInPatience() { queue_->advance(StatusItemWithFallback::patience); }

    /// Of the test, which may go before it.
    class Fallback final : public StatusItem {
    public:
        Fallback(FakeStatusItem& seen, int& count)
            : seen_(seen)
            , count_(count)
        {
            ++count_;
        }
        ~Fallback() override { --count_; }

        void show(StatusItemDescription description) override { seen_.show(std::move(description)); }
        void setMenu(std::vector<StatusMenuRow> rows) override { seen_.setMenu(std::move(rows)); }
        bool isShown() const override { return seen_.isShown(); }
        Token observe(std::function<void()> didChange) override
        {
            return seen_.observe(std::move(didChange));
        }

    private:
        FakeStatusItem& seen_;
        int& count_;
    };

    std::shared_ptr<CallLog> log_ = std::make_shared<CallLog>();
    std::shared_ptr<VirtualClock> clock_ = std::make_shared<VirtualClock>();
    std::shared_ptr<VirtualMainQueue> queue_ = std::make_shared<VirtualMainQueue>(log_, clock_);
    FakeStatusItem preferred_;
    FakeStatusItem fallback_;
    int fallbacks_ = 0;
    StatusItemWithFallback item_{
        preferred_, [this] { return std::make_unique<Fallback>(fallback_, fallbacks_); }, *queue_};
};

TEST_F(StatusItemWithFallbackTest, ThePreferredItemHasItsTimeToAppear)
{
    show();
    EXPECT_EQ(fallbacks_, 0);
    preferred_.setShown(true);
    waitInPatience();
    EXPECT_EQ(fallbacks_, 0);
    EXPECT_TRUE(item_.isShown());
}

TEST_F(StatusItemWithFallbackTest, TheFallbackComesWithItsRowsWhereThePreferredItemDoesNot)
{
    show();
    waitInPatience();
    ASSERT_EQ(fallbacks_, 1);
    EXPECT_EQ(fallback_.description->title, "Clipboard");
    EXPECT_EQ(fallback_.rows.front().title, "Quit");
    EXPECT_FALSE(item_.isShown());
    fallback_.setShown(true);
    EXPECT_TRUE(item_.isShown());
}

TEST_F(StatusItemWithFallbackTest, TheFallbackGoesAtOnceWhenThePreferredItemComes)
{
    show();
    waitInPatience();
    preferred_.setShown(true);
    EXPECT_EQ(fallbacks_, 0);
}

TEST_F(StatusItemWithFallbackTest, TheFallbackReturnsWhenThePreferredItemGoes)
{
    show();
    preferred_.setShown(true);
    preferred_.setShown(false);
    EXPECT_EQ(fallbacks_, 0);
    waitInPatience();
    EXPECT_EQ(fallbacks_, 1);
}

TEST_F(StatusItemWithFallbackTest, AMenuBarThatIsStartedAnewInTimeCallsNoFallback)
{
    show();
    preferred_.setShown(true);
    preferred_.setShown(false);
    preferred_.setShown(true);
    waitInPatience();
    EXPECT_EQ(fallbacks_, 0);
}

TEST_F(StatusItemWithFallbackTest, NewRowsGoToBoth)
{
    show();
    waitInPatience();
    item_.setMenu({{.kind = StatusMenuRow::Kind::action, .title = "About", .caption = "", .chosen = {}}});
    EXPECT_EQ(preferred_.rows.front().title, "About");
    EXPECT_EQ(fallback_.rows.front().title, "About");
}

TEST_F(StatusItemWithFallbackTest, TellsWhenEitherChanges)
{
    int told = 0;
    const Token observation = item_.observe([&] { ++told; });
    show();
    waitInPatience();
    EXPECT_EQ(told, 0);
    fallback_.setShown(true);
    EXPECT_EQ(told, 1);
    preferred_.setShown(true);
    EXPECT_EQ(told, 2);
}

} // namespace

} // namespace tessel::test
