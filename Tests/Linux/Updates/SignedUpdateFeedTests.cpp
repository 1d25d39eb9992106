#include "Updates/SignedUpdateFeed.h"

#include <QtCore/QTimer>

#include <memory>
#include <optional>

#include "FeedKey.h"
#include "Updates/HTTPSDownload.h"
#include "UpdatesTest.h"

namespace tessel::test {
namespace {

using testing::SizeIs;

QByteArray feedWith(const QByteArray& version)
{
    return "<rss xmlns:sparkle=\"http://www.andymatuschak.org/xml-namespaces/sparkle\"><channel><item>"
           "<sparkle:version>" +
           version + "</sparkle:version></item></channel></rss>";
}

class SignedUpdateFeedTest : public UpdatesTest {
protected:
    SignedUpdateFeed::Download download()
    {
        return [this](const QUrl& address, qint64 largestSize, std::function<void(DownloadResult)> done) {
            auto download = std::make_shared<HTTPSDownload>(
                address, HTTPSDownload::Limits{largestSize, std::chrono::minutes(10)}, std::move(done),
                security());
            return Token([download]() mutable { download.reset(); });
        };
    }
    UpdateFeedResult load(const QByteArray& path = "/feed.xml")
    {
        return load({server_.address(path), key_.publicKey()}, download(), std::chrono::minutes(10));
    }
    static UpdateFeedResult load(const SignedUpdateFeed::Source& source,
                                 const SignedUpdateFeed::Download& download,
                                 std::chrono::milliseconds timeLimit)
    {
        SignedUpdateFeed feed(source, download, timeLimit);
        std::optional<UpdateFeedResult> result;
        const Token loading = feed.load([&result](const UpdateFeedResult& there) { result = there; });
        EXPECT_EQ(result, std::nullopt) << "it is too early";
        EXPECT_TRUE(runUntil([&result] { return result.has_value(); }));
        return result.value();
    }
    void publish(const QByteArray& feed) { publish(feed, key_.sign(feed)); }
    void publish(const QByteArray& feed, const QByteArray& signature)
    {
        server_.answer("/feed.xml", {.content = feed});
        server_.answer("/feed.xml.sig", {.content = signature});
    }

    FeedKey key_;
};

TEST_F(SignedUpdateFeedTest, HasTheItemsOfASignedFeed)
{
    publish(feedWith("1.2"));
    const auto result = load();
    ASSERT_TRUE(std::holds_alternative<std::vector<UpdateItem>>(result));
    const auto& items = std::get<std::vector<UpdateItem>>(result);
    ASSERT_THAT(items, SizeIs(1));
    EXPECT_EQ(items[0].version, "1.2");
}

TEST_F(SignedUpdateFeedTest, FindsTheSignatureBehindThePath)
{
    server_.answer("/feed?channel=a%20b", {.content = feedWith("1.2")});
    server_.answer("/feed.sig?channel=a%20b", {.content = key_.sign(feedWith("1.2"))});
    EXPECT_TRUE(std::holds_alternative<std::vector<UpdateItem>>(load("/feed?channel=a%20b")));
}

TEST_F(SignedUpdateFeedTest, DoesNotTrustAWrongSignature)
{
    const QByteArray feed = feedWith("1.2");
    for (const QByteArray& signature :
         {FeedKey().sign(feed), key_.sign(feedWith("1.1")), QByteArray("no signature"), QByteArray(),
          key_.sign(feed).chopped(4), QByteArray(5000, 'A')}) {
        publish(feed, signature);
        EXPECT_EQ(load(), UpdateFeedResult(UpdateFeedFailure::notTrusted));
    }
}

TEST_F(SignedUpdateFeedTest, DoesNotTrustAFeedWithoutASignature)
{
    server_.answer("/feed.xml", {.content = feedWith("1.2")});
    EXPECT_EQ(load(), UpdateFeedResult(UpdateFeedFailure::notTrusted));
}

TEST_F(SignedUpdateFeedTest, SaysNothingOfADamagedFeedThatNobodyHasSigned)
{
    publish("<rss", "no signature");
    EXPECT_EQ(load(), UpdateFeedResult(UpdateFeedFailure::notTrusted));
    publish("<rss");
    EXPECT_EQ(load(), UpdateFeedResult(UpdateFeedFailure::damaged));
}

TEST_F(SignedUpdateFeedTest, TellsWhyThereIsNoFeed)
{
    EXPECT_EQ(load(), UpdateFeedResult(UpdateFeedFailure::noFeed));
    server_.answer("/feed.xml", {.content = "", .status = "500 Internal Server Error"});
    EXPECT_EQ(load(), UpdateFeedResult(UpdateFeedFailure::serverTrouble));
    server_.answer("/feed.xml", {.content = "", .manner = Answer::Manner::endless});
    EXPECT_EQ(load(), UpdateFeedResult(UpdateFeedFailure::tooLarge));
    publish(feedWith("1.2"));
    server_.answer("/feed.xml.sig", {.content = "", .status = "503 Service Unavailable"});
    EXPECT_EQ(load(), UpdateFeedResult(UpdateFeedFailure::serverTrouble));
}

TEST_F(SignedUpdateFeedTest, TakesAFeedOfAMegabyteAndNoLargerOne)
{
    QByteArray feed = feedWith("1.2");
    const QByteArray end = "</channel></rss>";
    const qsizetype missing = SignedUpdateFeed::largestFeed - feed.size();
    feed.replace(end, QByteArray(missing, ' ') + end);
    publish(feed);
    EXPECT_TRUE(std::holds_alternative<std::vector<UpdateItem>>(load()));
    feed += ' ';
    publish(feed);
    EXPECT_EQ(load(), UpdateFeedResult(UpdateFeedFailure::tooLarge));
}

TEST_F(SignedUpdateFeedTest, HasOneTimeLimitForBothFiles)
{
    // Each of them would be there in time. However late this thread runs, its timers do so in order.
    static constexpr std::chrono::milliseconds limit{500};
    const auto slowly = [this](const QUrl& address, qint64, std::function<void(DownloadResult)> done) {
        const bool isFeed = address.path() == QStringLiteral("/feed.xml");
        const QByteArray content = isFeed ? feedWith("1.2") : key_.sign(feedWith("1.2"));
        auto timer = std::make_shared<QTimer>();
        timer->setSingleShot(true);
        timer->callOnTimeout([content, done = std::move(done)] { done(content); });
        timer->start(limit * 7 / 10);
        return Token([timer]() mutable { timer.reset(); });
    };
    EXPECT_EQ(load({server_.address("/feed.xml"), key_.publicKey()}, slowly, limit),
              UpdateFeedResult(UpdateFeedFailure::timedOut));
    EXPECT_TRUE(std::holds_alternative<std::vector<UpdateItem>>(
        load({server_.address("/feed.xml"), key_.publicKey()}, slowly, std::chrono::minutes(10))));
}

TEST_F(SignedUpdateFeedTest, CancelledAnywhereItClosesItsConnection)
{
    publish(feedWith("1.2"));
    server_.answer("/slow.xml", {.content = "", .manner = Answer::Manner::trickling});
    server_.answer("/feed.xml.sig", {.content = "", .manner = Answer::Manner::silent});
    for (const auto& [path, awaited] :
         {std::pair("/slow.xml", "/slow.xml "), std::pair("/feed.xml", "/feed.xml.sig ")}) {
        SignedUpdateFeed feed({server_.address(path), key_.publicKey()}, download());
        bool isDone = false;
        Token loading = feed.load([&isDone](const UpdateFeedResult&) { isDone = true; });
        ASSERT_TRUE(runUntil([&, text = awaited] {
            return !server_.requests().empty() && server_.requests().back().contains(text);
        }));
        loading.reset();
        EXPECT_TRUE(runUntil([this] { return server_.openConnections() == 0; }));
        EXPECT_FALSE(isDone);
    }
}

TEST_F(SignedUpdateFeedTest, LoadsAnewEachTime)
{
    publish(feedWith("1.1"));
    load();
    publish(feedWith("1.2"));
    EXPECT_EQ(std::get<std::vector<UpdateItem>>(load()).at(0).version, "1.2");
}

} // namespace
} // namespace tessel::test
