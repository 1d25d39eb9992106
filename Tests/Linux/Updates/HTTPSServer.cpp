#include "HTTPSServer.h"

#include <QtNetwork/QHostAddress>
#include <QtNetwork/QSslConfiguration>

#include <chrono>
#include <memory>
#include <stdexcept>

namespace tessel::test {

namespace {

constexpr std::chrono::milliseconds trickleInterval{20};
constexpr qsizetype pieceSize = 16'384; // Bytes.

QByteArray headOf(const Answer& answer)
{
    QByteArray head = "HTTP/1.1 " + answer.status + "\r\n" + answer.headers;
    const qsizetype missing = answer.manner == Answer::Manner::cut ? 1 : 0;
    if (answer.manner == Answer::Manner::whole || answer.manner == Answer::Manner::cut)
        head += "Content-Length: " + QByteArray::number(answer.content.size() + missing) + "\r\n";
    return head + "Connection: close\r\n";
}

} // namespace

Answer Answer::redirect(const QByteArray& address)
{
    return {.content = "Not here.", .status = "302 Found", .headers = "Location: " + address + "\r\n"};
}

HTTPSServer::HTTPSServer(const Identity& identity)
{
    QSslConfiguration configuration = QSslConfiguration::defaultConfiguration();
    configuration.setLocalCertificate(identity.certificate);
    configuration.setPrivateKey(identity.key);
    server_.setSslConfiguration(configuration);
    connect(&server_, &QTcpServer::pendingConnectionAvailable, this, [this] {
        while (QTcpSocket* socket = server_.nextPendingConnection())
            serve(socket);
    });
    if (!server_.listen(QHostAddress::LocalHost))
        throw std::runtime_error("The server cannot listen.");
}

QUrl HTTPSServer::address(const QByteArray& path) const
{
    return QUrl(QStringLiteral("https://127.0.0.1:%1").arg(server_.serverPort()) + QString::fromLatin1(path));
}

void HTTPSServer::serve(QTcpSocket* socket)
{
    ++openConnections_;
    connect(socket, &QAbstractSocket::disconnected, this, [this, socket] {
        --openConnections_;
        socket->deleteLater();
    });
    const auto request = std::make_shared<QByteArray>();
    const auto read = [this, socket, request] {
        *request += socket->readAll();
        if (!request->endsWith("\r\n\r\n"))
            return;
        requests_.push_back(*request);
        respond(socket, *request);
    };
    connect(socket, &QIODevice::readyRead, this, read);
    read();
}

void HTTPSServer::respond(QTcpSocket* socket, const QByteArray& request)
{
    const QByteArray path = request.split(' ').value(1);
    const Answer answer = answers_.value(path, {.content = "Nothing here.", .status = "404 Not Found"});
    if (answer.manner == Answer::Manner::silent)
        return;
    socket->write(headOf(answer));
    if (answer.manner != Answer::Manner::endlessHead)
        socket->write("\r\n" + answer.content);
    goOn(socket, answer);
}

void HTTPSServer::goOn(QTcpSocket* socket, const Answer& answer)
{
    switch (answer.manner) {
    case Answer::Manner::whole:
    case Answer::Manner::cut:
        return socket->disconnectFromHost();
    case Answer::Manner::trickling: {
        auto* timer = new QTimer(socket);
        timer->callOnTimeout(socket, [socket] { socket->write("x"); });
        return timer->start(trickleInterval);
    }
    case Answer::Manner::endless:
    case Answer::Manner::endlessHead: {
        const bool isHead = answer.manner == Answer::Manner::endlessHead;
        const QByteArray piece = isHead ? "More: of it\r\n" : QByteArray(pieceSize, 'x');
        auto* timer = new QTimer(socket);
        timer->callOnTimeout(socket, [socket, piece] {
            if (socket->bytesToWrite() < pieceSize)
                socket->write(piece);
        });
        timer->start(0);
        return;
    }
    case Answer::Manner::silent:
        return;
    }
}

} // namespace tessel::test
