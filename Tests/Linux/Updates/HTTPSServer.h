#pragma once

#include <QtCore/QByteArray>
#include <QtCore/QMap>
#include <QtCore/QObject>
#include <QtCore/QTimer>
#include <QtCore/QUrl>
#include <QtNetwork/QSslServer>
#include <QtNetwork/QTcpSocket>

#include <vector>

#include "CertificateAuthority.h"

namespace tessel::test {

/// How a server answers a request.
struct Answer {
    enum class Manner {
        whole,       ///< Everything, and then it closes the connection.
        trickling,   ///< The headers, and then a byte now and then, for ever.
        endless,     ///< The headers, and then more and more.
        endlessHead, ///< One header after the other.
        silent,      ///< Nothing.
        cut,         ///< It promises more than it sends before it closes the connection.
    };

    QByteArray content;
    QByteArray status = "200 OK";
    QByteArray headers = {}; ///< Each with the end of its line.
    Manner manner = Manner::whole;

    static Answer redirect(const QByteArray& address);
};

/// A web server on the loopback interface, in the event loop of this thread.
class HTTPSServer final : public QObject {
    Q_OBJECT

public:
    explicit HTTPSServer(const Identity& identity);

    void answer(const QByteArray& path, const Answer& answer) { answers_[path] = answer; }
    QUrl address(const QByteArray& path) const;

    /// The requests that have come, each with its headers.
    const std::vector<QByteArray>& requests() const { return requests_; }
    /// The connections that are open and have been encrypted.
    int openConnections() const { return openConnections_; }

private:
    void serve(QTcpSocket* socket);
    void respond(QTcpSocket* socket, const QByteArray& request);
    void goOn(QTcpSocket* socket, const Answer& answer);

    QSslServer server_;
    QMap<QByteArray, Answer> answers_;
    std::vector<QByteArray> requests_;
    int openConnections_ = 0;
};

} // namespace tessel::test
