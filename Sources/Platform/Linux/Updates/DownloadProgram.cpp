// `tessel-clipboard-download <https address> <largest size>`: writes a file of the network to its output. It
// is a process of its own, so that no byte of the network, and nothing that reads such bytes, comes into the
// one that has the history. Why there is no file is told by the exit status (`DownloadResult.h`).

#include <QtCore/QCoreApplication>
#include <QtCore/QUrl>
#include <QtNetwork/QNetworkProxyFactory>
#include <QtNetwork/QSslCertificate>
#include <QtNetwork/QSslConfiguration>

#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <optional>

#include "Updates/DownloadResult.h"
#include "Updates/HTTPSDownload.h"

namespace tessel {

namespace {

/// Whoever started this gives up no later. It is for the case that nobody is left to end it.
constexpr std::chrono::seconds timeLimit{30};

/// What the system trusts, or what the user has told all programs to trust instead.
QSslConfiguration security()
{
    QSslConfiguration configuration = QSslConfiguration::defaultConfiguration();
    const QString file = qEnvironmentVariable("SSL_CERT_FILE");
    if (!file.isEmpty())
        configuration.setCaCertificates(QSslCertificate::fromPath(file));
    return configuration;
}

int statusOf(const DownloadResult& result)
{
    if (const auto* failure = std::get_if<UpdateFeedFailure>(&result))
        return exitStatusOf(*failure);
    const auto& content = std::get<QByteArray>(result);
    const auto size = static_cast<std::size_t>(content.size());
    const bool isWritten =
        std::fwrite(content.constData(), 1, size, stdout) == size && std::fflush(stdout) == 0;
    return isWritten ? EXIT_SUCCESS : EXIT_FAILURE;
}

} // namespace

} // namespace tessel

int main(int argumentCount, char** arguments)
{
    const QCoreApplication application(argumentCount, arguments);
    QCoreApplication::setApplicationVersion(QStringLiteral(TESSEL_VERSION));
    const QStringList words = QCoreApplication::arguments();
    bool isNumber = false;
    const qint64 size = words.value(2).toLongLong(&isNumber);
    if (words.size() != 3 || !isNumber || size < 0) {
        std::fputs("Usage: tessel-clipboard-download <https address> <largest size in bytes>\n", stderr);
        return EXIT_FAILURE;
    }
    QNetworkProxyFactory::setUseSystemConfiguration(true);
    const tessel::HTTPSDownload download(
        QUrl(words.at(1), QUrl::StrictMode), {size, tessel::timeLimit},
        [](const tessel::DownloadResult& result) { QCoreApplication::exit(tessel::statusOf(result)); },
        tessel::security());
    return QCoreApplication::exec();
}
