#include "Updates/HTTPSDownload.h"

#include <QtCore/QCoreApplication>
#include <QtNetwork/QNetworkRequest>

#include <utility>

namespace tessel {

namespace {

constexpr int mostRedirects = 3;
/// What waits in the toolkit for us to take it, in bytes.
constexpr qint64 bufferSize = 65'536;

QNetworkRequest requestFor(const QUrl& address, const QSslConfiguration& security)
{
    QNetworkRequest request(address);
    request.setSslConfiguration(security);
    request.setMaximumRedirectsAllowed(mostRedirects);
    request.setAttribute(QNetworkRequest::RedirectPolicyAttribute, QNetworkRequest::NoLessSafeRedirectPolicy);
    request.setAttribute(QNetworkRequest::CacheLoadControlAttribute, QNetworkRequest::AlwaysNetwork);
    request.setAttribute(QNetworkRequest::CacheSaveControlAttribute, false);
    request.setAttribute(QNetworkRequest::CookieLoadControlAttribute, QNetworkRequest::Manual);
    request.setAttribute(QNetworkRequest::CookieSaveControlAttribute, QNetworkRequest::Manual);
    request.setAttribute(QNetworkRequest::AuthenticationReuseAttribute, QNetworkRequest::Manual);
    request.setAttribute(QNetworkRequest::Http2AllowedAttribute, false);
    request.setHeader(QNetworkRequest::UserAgentHeader,
                      QStringLiteral("TesselClipboard/%1").arg(QCoreApplication::applicationVersion()));
    // Nothing is unpacked: what is signed is what is sent, and a small answer cannot become a large one.
    request.setRawHeader("Accept-Encoding", "identity");
    // Else the toolkit tells the user's languages.
    request.setRawHeader("Accept-Language", "*");
    return request;
}

UpdateFeedFailure failureOf(QNetworkReply::NetworkError error)
{
    switch (error) {
    case QNetworkReply::SslHandshakeFailedError:
    case QNetworkReply::InsecureRedirectError:
        return UpdateFeedFailure::insecureConnection;
    case QNetworkReply::TimeoutError:
    case QNetworkReply::ProxyTimeoutError:
        return UpdateFeedFailure::timedOut;
    case QNetworkReply::InternalServerError:
    case QNetworkReply::ServiceUnavailableError:
    case QNetworkReply::OperationNotImplementedError:
    case QNetworkReply::UnknownServerError:
    case QNetworkReply::ProtocolFailure:
        return UpdateFeedFailure::serverTrouble;
    case QNetworkReply::TooManyRedirectsError:
    case QNetworkReply::ProtocolUnknownError:
    case QNetworkReply::ProtocolInvalidOperationError:
    case QNetworkReply::ContentAccessDenied:
    case QNetworkReply::ContentOperationNotPermittedError:
    case QNetworkReply::ContentNotFoundError:
    case QNetworkReply::AuthenticationRequiredError:
    case QNetworkReply::ContentConflictError:
    case QNetworkReply::ContentGoneError:
    case QNetworkReply::UnknownContentError:
        return UpdateFeedFailure::noFeed;
    default:
        return UpdateFeedFailure::offline;
    }
}

} // namespace

HTTPSDownload::HTTPSDownload(const QUrl& address, const Limits& limits,
                             std::function<void(DownloadResult)> done, const QSslConfiguration& security)
    : limits_(limits)
    , done_(std::move(done))
{
    time_.setSingleShot(true);
    time_.callOnTimeout(this, [this] { finish(UpdateFeedFailure::timedOut); });
    time_.start(limits.time);
    if (address.scheme() != QLatin1String("https")) {
        finish(UpdateFeedFailure::insecureConnection);
        return;
    }
    reply_ = manager_.get(requestFor(address, security));
    reply_->setReadBufferSize(bufferSize);
    connect(reply_, &QIODevice::readyRead, this, &HTTPSDownload::takeWhatIsThere);
    connect(reply_, &QNetworkReply::finished, this, [this] {
        takeWhatIsThere();
        const auto error = reply_->error();
        finish(error == QNetworkReply::NoError ? DownloadResult(content_) : failureOf(error));
    });
}

HTTPSDownload::~HTTPSDownload() = default;

void HTTPSDownload::takeWhatIsThere()
{
    content_ += reply_->readAll();
    if (content_.size() > limits_.size)
        finish(UpdateFeedFailure::tooLarge);
}

void HTTPSDownload::finish(DownloadResult result)
{
    if (std::exchange(isFinished_, true))
        return;
    time_.stop();
    if (reply_ != nullptr)
        reply_->disconnect(this);
    // Not from inside the toolkit's own handlers: this object may go.
    QTimer::singleShot(0, this, [this, result = std::move(result)] { done_(result); });
}

} // namespace tessel
