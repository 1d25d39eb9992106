#include "Updates/DownloadProcess.h"

#include <QtCore/QCoreApplication>
#include <QtCore/QTemporaryFile>

#include <cerrno>
#include <filesystem>
#include <optional>

#include <sys/wait.h>

#include "TemporaryDirectory.h"
#include "UpdatesTest.h"

namespace tessel::test {
namespace {

constexpr qint64 size = 100'000; // Bytes.

class DownloadProcessTest : public UpdatesTest {
protected:
    DownloadProcessTest()
    {
        // The processes trust what the environment names.
        EXPECT_TRUE(certificates_.open());
        certificates_.write(authority_.certificate().toPem());
        certificates_.flush();
        qputenv("SSL_CERT_FILE", certificates_.fileName().toLocal8Bit());
        qputenv("no_proxy", "127.0.0.1");
    }

    /// Those that were ended are still to be buried, and their objects to be deleted.
    void TearDown() override
    {
        EXPECT_TRUE(runUntil([] { return !hasChildren(); }));
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    }

    static bool hasChildren()
    {
        siginfo_t child{};
        return waitid(P_ALL, 0, &child, WEXITED | WNOHANG | WNOWAIT) == 0 || errno != ECHILD;
    }

    DownloadResult download(const QUrl& address,
                            const QString& program = QStringLiteral(TESSEL_DOWNLOAD_PROGRAM))
    {
        std::optional<DownloadResult> result;
        const Token token = downloadByProcess(program, address, size,
                                              [&result](const DownloadResult& there) { result = there; });
        EXPECT_EQ(result, std::nullopt) << "it is too early";
        EXPECT_TRUE(runUntil([&result] { return result.has_value(); }));
        return result.value();
    }

    QTemporaryFile certificates_;
};

TEST_F(DownloadProcessTest, HandsOverEveryByte)
{
    QByteArray content;
    for (int byte = 0; byte < size; ++byte)
        content += static_cast<char>(byte % 251);
    server_.answer("/feed", {.content = content});
    EXPECT_EQ(download(server_.address("/feed")), DownloadResult(content));
}

TEST_F(DownloadProcessTest, HandsOverEachFailure)
{
    server_.answer("/larger", {.content = QByteArray(size + 1, 'x')});
    server_.answer("/trouble", {.content = "", .status = "500 Internal Server Error"});
    EXPECT_EQ(download(server_.address("/none")), DownloadResult(UpdateFeedFailure::noFeed));
    EXPECT_EQ(download(server_.address("/larger")), DownloadResult(UpdateFeedFailure::tooLarge));
    EXPECT_EQ(download(server_.address("/trouble")), DownloadResult(UpdateFeedFailure::serverTrouble));
    qunsetenv("SSL_CERT_FILE");
    EXPECT_EQ(download(server_.address("/feed")), DownloadResult(UpdateFeedFailure::insecureConnection));
}

TEST_F(DownloadProcessTest, SaysWhereItsProgramIsMissingOrUseless)
{
    const QUrl address = server_.address("/feed");
    for (const char* program : {"/nowhere/tessel-clipboard-download", "/bin/false", "/dev/null"})
        EXPECT_EQ(download(address, QString::fromLatin1(program)),
                  DownloadResult(UpdateFeedFailure::incomplete))
            << program;
}

TEST_F(DownloadProcessTest, EndsAProcessThatSaysTooMuch)
{
    const desktop::TemporaryDirectory directory;
    const auto program = directory.write("endless", "#!/bin/sh\nexec cat /dev/zero\n");
    std::filesystem::permissions(program, std::filesystem::perms::owner_all);
    EXPECT_EQ(download(server_.address("/feed"), QString::fromStdString(program.string())),
              DownloadResult(UpdateFeedFailure::tooLarge));
}

TEST_F(DownloadProcessTest, EndsTheProcessOfWhatIsCancelled)
{
    server_.answer("/feed", {.content = "", .manner = Answer::Manner::trickling});
    bool isDone = false;
    Token token = downloadByProcess(QStringLiteral(TESSEL_DOWNLOAD_PROGRAM), server_.address("/feed"), size,
                                    [&isDone](const DownloadResult&) { isDone = true; });
    ASSERT_TRUE(runUntil([this] { return !server_.requests().empty(); }));
    token.reset();
    EXPECT_TRUE(runUntil([this] { return server_.openConnections() == 0; }));
    EXPECT_FALSE(isDone);
}

} // namespace
} // namespace tessel::test
