#pragma once

#include <QtCore/QByteArray>
#include <QtCore/QObject>
#include <QtCore/QTimer>
#include <QtCore/QUrl>
#include <QtNetwork/QNetworkAccessManager>
#include <QtNetwork/QNetworkReply>
#include <QtNetwork/QSslConfiguration>

#include <chrono>
#include <functional>

#include "Updates/DownloadResult.h"

namespace tessel {

/// Loads one file over HTTPS, from a server that proves who it is, and from there to a few other such
/// addresses at most. It neither keeps nor sends cookies, credentials or caches, and says no more about its
/// user than what it needs.
class HTTPSDownload final : public QObject {
    Q_OBJECT

public:
    struct Limits {
        qint64 size;                    ///< Bytes of the file.
        std::chrono::milliseconds time; ///< For everything, however lively the server is.
    };

    /// `done` runs once, on a later turn of the main loop, and may destroy this object. `security` says whose
    /// word about other servers counts.
    HTTPSDownload(const QUrl& address, const Limits& limits, std::function<void(DownloadResult)> done,
                  const QSslConfiguration& security = QSslConfiguration::defaultConfiguration());
    ~HTTPSDownload() override;

private:
    void takeWhatIsThere();
    void finish(DownloadResult result);

    Limits limits_;
    std::function<void(DownloadResult)> done_;
    QNetworkAccessManager manager_;
    QNetworkReply* reply_ = nullptr; ///< The manager's. Null: nothing has been asked for.
    QByteArray content_;
    bool isFinished_ = false;
    QTimer time_;
};

} // namespace tessel
