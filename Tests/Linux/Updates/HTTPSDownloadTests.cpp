#include "Updates/HTTPSDownload.h"

#include <QtNetwork/QTcpServer>

#include <optional>

#include "UpdatesTest.h"

namespace tessel::test {
namespace {

using testing::Each;
using testing::HasSubstr;
using testing::Not;

constexpr qint64 size = 100'000; // Bytes.
constexpr std::chrono::minutes patience{10};

class HTTPSDownloadTest : public UpdatesTest {
protected:
    DownloadResult download(const QUrl& address, std::chrono::milliseconds time = patience)
    {
        std::optional<DownloadResult> result;
        const HTTPSDownload download(
            address, {size, time}, [&result](const DownloadResult& there) { result = there; }, security());
        EXPECT_EQ(result, std::nullopt) << "it is too early";
        EXPECT_TRUE(runUntil([&result] { return result.has_value(); }));
        return result.value();
    }
    DownloadResult download(const QByteArray& path) { return download(server_.address(path)); }
    DownloadResult downloadFrom(const Identity& identity)
    {
        HTTPSServer server(identity);
        server.answer("/feed", {.content = "content"});
        const DownloadResult result = download(server.address("/feed"));
        EXPECT_TRUE(server.requests().empty());
        return result;
    }
};

TEST_F(HTTPSDownloadTest, TakesEveryByte)
{
    QByteArray content;
    for (int byte = 0; byte < 70'000; ++byte)
        content += static_cast<char>(byte % 251);
    server_.answer("/feed", {.content = content});
    EXPECT_EQ(download("/feed"), DownloadResult(content));
}

TEST_F(HTTPSDownloadTest, TakesAnEmptyFile)
{
    server_.answer("/feed", {.content = ""});
    EXPECT_EQ(download("/feed"), DownloadResult(QByteArray()));
}

TEST_F(HTTPSDownloadTest, TakesAFileOfTheLargestSizeAndNoLargerOne)
{
    server_.answer("/large", {.content = QByteArray(size, 'x')});
    server_.answer("/larger", {.content = QByteArray(size + 1, 'x')});
    EXPECT_EQ(download("/large"), DownloadResult(QByteArray(size, 'x')));
    EXPECT_EQ(download("/larger"), DownloadResult(UpdateFeedFailure::tooLarge));
}

TEST_F(HTTPSDownloadTest, EndsABodyWithoutEnd)
{
    server_.answer("/feed", {.content = "", .manner = Answer::Manner::endless});
    EXPECT_EQ(download("/feed"), DownloadResult(UpdateFeedFailure::tooLarge));
}

TEST_F(HTTPSDownloadTest, SaysNothingOfItsUser)
{
    server_.answer("/feed",
                   {.content = "content", .headers = "Set-Cookie: user=1\r\nCache-Control: max-age=999\r\n"});
    QCoreApplication::setApplicationVersion(QStringLiteral("1.2"));
    download("/feed");
    download("/feed");
    ASSERT_EQ(server_.requests().size(), 2U);
    EXPECT_EQ(server_.requests()[0], server_.requests()[1]);
    EXPECT_THAT(server_.requests()[1].toStdString(), Not(HasSubstr("Cookie")));
    EXPECT_THAT(server_.requests()[1].toStdString(), HasSubstr("User-Agent: TesselClipboard/1.2\r\n"));
    EXPECT_THAT(server_.requests()[1].toStdString(), HasSubstr("Accept-Language: *\r\n"));
}

TEST_F(HTTPSDownloadTest, UnpacksNothing)
{
    const QByteArray packed = qCompress(QByteArray(1000, 'x')).sliced(4);
    server_.answer("/feed", {.content = packed, .headers = "Content-Encoding: deflate\r\n"});
    EXPECT_EQ(download("/feed"), DownloadResult(packed));
    EXPECT_THAT(server_.requests().at(0).toStdString(), HasSubstr("Accept-Encoding: identity\r\n"));
}

// Who the server is.

TEST_F(HTTPSDownloadTest, RefusesAServerThatNobodyKnows)
{
    EXPECT_EQ(downloadFrom(CertificateAuthority().issue("IP:127.0.0.1")),
              DownloadResult(UpdateFeedFailure::insecureConnection));
}

TEST_F(HTTPSDownloadTest, RefusesAServerOfAnotherName)
{
    EXPECT_EQ(downloadFrom(authority_.issue("DNS:updates.example")),
              DownloadResult(UpdateFeedFailure::insecureConnection));
}

TEST_F(HTTPSDownloadTest, RefusesAServerWhoseCertificateHasExpired)
{
    EXPECT_EQ(downloadFrom(authority_.issue("IP:127.0.0.1", CertificateAuthority::Validity::expired)),
              DownloadResult(UpdateFeedFailure::insecureConnection));
}

TEST_F(HTTPSDownloadTest, RefusesAnAddressThatIsNotEncrypted)
{
    QUrl address = server_.address("/feed");
    address.setScheme(QStringLiteral("http"));
    EXPECT_EQ(download(address), DownloadResult(UpdateFeedFailure::insecureConnection));
    EXPECT_EQ(download(QUrl(QStringLiteral("file:///etc/hostname"))),
              DownloadResult(UpdateFeedFailure::insecureConnection));
}

// Elsewhere.

TEST_F(HTTPSDownloadTest, FollowsAFewRedirects)
{
    server_.answer("/feed", Answer::redirect("/second"));
    server_.answer("/second", Answer::redirect(server_.address("/third").toEncoded()));
    server_.answer("/third", {.content = "content"});
    EXPECT_EQ(download("/feed"), DownloadResult(QByteArray("content")));
}

TEST_F(HTTPSDownloadTest, FollowsNoEndlessRedirects)
{
    server_.answer("/feed", Answer::redirect("/second"));
    server_.answer("/second", Answer::redirect("/feed"));
    EXPECT_EQ(download("/feed"), DownloadResult(UpdateFeedFailure::noFeed));
    EXPECT_EQ(server_.requests().size(), 4U);
}

TEST_F(HTTPSDownloadTest, FollowsNoRedirectToAnAddressThatIsNotEncrypted)
{
    QTcpServer plain;
    ASSERT_TRUE(plain.listen(QHostAddress::LocalHost));
    server_.answer("/feed",
                   Answer::redirect("http://127.0.0.1:" + QByteArray::number(plain.serverPort()) + "/"));
    EXPECT_EQ(download("/feed"), DownloadResult(UpdateFeedFailure::insecureConnection));
    EXPECT_FALSE(plain.hasPendingConnections());
}

TEST_F(HTTPSDownloadTest, FollowsNoRedirectToAFile)
{
    server_.answer("/feed", Answer::redirect("file:///etc/hostname"));
    EXPECT_TRUE(std::holds_alternative<UpdateFeedFailure>(download("/feed")));
}

// What goes wrong.

TEST_F(HTTPSDownloadTest, TellsAMissingFileFromATroubledServer)
{
    for (const char* status :
         {"404 Not Found", "410 Gone", "403 Forbidden", "401 Unauthorized", "418 Teapot"}) {
        server_.answer("/feed", {.content = "content", .status = status});
        EXPECT_EQ(download("/feed"), DownloadResult(UpdateFeedFailure::noFeed)) << status;
    }
    for (const char* status : {"500 Internal Server Error", "503 Service Unavailable", "599 Whatever"}) {
        server_.answer("/feed", {.content = "content", .status = status});
        EXPECT_EQ(download("/feed"), DownloadResult(UpdateFeedFailure::serverTrouble)) << status;
    }
}

TEST_F(HTTPSDownloadTest, IsOfflineWhereNobodyListens)
{
    // Nobody else can listen there while somebody has the port.
    QTcpSocket holder;
    ASSERT_TRUE(holder.bind(QHostAddress::LocalHost, 0, QAbstractSocket::DontShareAddress));
    QUrl address = server_.address("/feed");
    address.setPort(holder.localPort());
    EXPECT_EQ(download(address), DownloadResult(UpdateFeedFailure::offline));
}

TEST_F(HTTPSDownloadTest, IsOfflineWhereAConnectionEndsTooEarly)
{
    server_.answer("/feed", {.content = "content", .manner = Answer::Manner::cut});
    EXPECT_EQ(download("/feed"), DownloadResult(UpdateFeedFailure::offline));
}

TEST_F(HTTPSDownloadTest, GivesUpASilentServer)
{
    server_.answer("/feed", {.content = "", .manner = Answer::Manner::silent});
    EXPECT_EQ(download(server_.address("/feed"), std::chrono::milliseconds(500)),
              DownloadResult(UpdateFeedFailure::timedOut));
}

TEST_F(HTTPSDownloadTest, GivesUpAServerThatTrickles)
{
    server_.answer("/feed", {.content = "", .manner = Answer::Manner::trickling});
    EXPECT_EQ(download(server_.address("/feed"), std::chrono::milliseconds(500)),
              DownloadResult(UpdateFeedFailure::timedOut));
}

TEST_F(HTTPSDownloadTest, GivesUpAServerWithHeadersWithoutEnd)
{
    server_.answer("/feed", {.content = "", .manner = Answer::Manner::endlessHead});
    EXPECT_TRUE(std::holds_alternative<UpdateFeedFailure>(
        download(server_.address("/feed"), std::chrono::milliseconds(500))));
}

// Its end.

TEST_F(HTTPSDownloadTest, DestroyedInTheMiddleItClosesTheConnection)
{
    server_.answer("/feed", {.content = "", .manner = Answer::Manner::trickling});
    bool isDone = false;
    auto download = std::make_unique<HTTPSDownload>(
        server_.address("/feed"), HTTPSDownload::Limits{size, patience},
        [&isDone](const DownloadResult&) { isDone = true; }, security());
    ASSERT_TRUE(runUntil([this] { return !server_.requests().empty(); }));
    EXPECT_EQ(server_.openConnections(), 1);
    download.reset();
    EXPECT_TRUE(runUntil([this] { return server_.openConnections() == 0; }));
    EXPECT_FALSE(isDone);
}

TEST_F(HTTPSDownloadTest, MayBeDestroyedByItsOwnResult)
{
    server_.answer("/feed", {.content = "content"});
    std::unique_ptr<HTTPSDownload> download;
    bool isDone = false;
    download = std::make_unique<HTTPSDownload>(
        server_.address("/feed"), HTTPSDownload::Limits{size, patience},
        [&](const DownloadResult&) {
            isDone = true;
            download.reset();
        },
        security());
    EXPECT_TRUE(runUntil([&isDone] { return isDone; }));
}

} // namespace
} // namespace tessel::test
