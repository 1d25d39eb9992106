// `tessel-update-server <directory> [whole|trickling]`: serves <directory>/feed.xml, where it is there, with
// a signature of its own, and writes beside it whose word about the server has to count (authority.pem) and
// what an installation that uses this feed says (xdg/tessel-clipboard/updates.json). It prints "ready", and
// runs until it is ended.

#include <QtCore/QCoreApplication>
#include <QtCore/QDir>
#include <QtCore/QFile>
#include <QtCore/QJsonDocument>
#include <QtCore/QJsonObject>

#include <cstdio>
#include <stdexcept>

#include "FeedKey.h"
#include "HTTPSServer.h"

namespace tessel::test {

namespace {

void write(const QString& path, const QByteArray& content)
{
    QFile file(path);
    if (!file.open(QIODevice::WriteOnly) || file.write(content) != content.size())
        throw std::runtime_error("A file cannot be written.");
}

void writeInstallation(const QDir& directory, const QUrl& feed, const FeedKey& key)
{
    directory.mkpath(QStringLiteral("xdg/tessel-clipboard"));
    const QJsonObject configuration = {
        {QStringLiteral("feed"), feed.toString()},
        {QStringLiteral("publicKey"), QString::fromLatin1(key.publicKey().toBase64())}};
    write(directory.filePath(QStringLiteral("xdg/tessel-clipboard/updates.json")),
          QJsonDocument(configuration).toJson());
}

} // namespace

} // namespace tessel::test

int main(int argumentCount, char** arguments)
{
    using namespace tessel::test;
    const QCoreApplication application(argumentCount, arguments);
    const QDir directory(QCoreApplication::arguments().value(1));
    const CertificateAuthority authority;
    HTTPSServer server(authority.issue("IP:127.0.0.1"));
    const FeedKey key;
    QFile feed(directory.filePath(QStringLiteral("feed.xml")));
    if (feed.open(QIODevice::ReadOnly)) {
        const bool trickles = QCoreApplication::arguments().value(2) == QLatin1String("trickling");
        const QByteArray content = feed.readAll();
        server.answer("/feed.xml", {.content = content,
                                    .manner = trickles ? Answer::Manner::trickling : Answer::Manner::whole});
        server.answer("/feed.xml.sig", {.content = key.sign(content)});
    }
    write(directory.filePath(QStringLiteral("authority.pem")), authority.certificate().toPem());
    writeInstallation(directory, server.address("/feed.xml"), key);
    std::puts("ready");
    std::fflush(stdout);
    return QCoreApplication::exec();
}
