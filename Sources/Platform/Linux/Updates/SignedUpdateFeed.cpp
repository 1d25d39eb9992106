#include "Updates/SignedUpdateFeed.h"

#include <QtCore/QTimer>

#include <memory>
#include <utility>

#include "Updates/AppcastReader.h"
#include "Updates/FeedSignature.h"

namespace tessel {

namespace {

QUrl signatureAddress(QUrl address)
{
    address.setPath(address.path(QUrl::FullyEncoded) + QStringLiteral(".sig"), QUrl::StrictMode);
    return address;
}

/// One loading: the feed, then its signature.
class Loading {
public:
    Loading(SignedUpdateFeed::Source source, SignedUpdateFeed::Download download,
            std::chrono::milliseconds timeLimit, std::function<void(UpdateFeedResult)> done)
        : source_(std::move(source))
        , download_(std::move(download))
        , done_(std::move(done))
    {
        time_.setSingleShot(true);
        time_.callOnTimeout([this] { finish(UpdateFeedFailure::timedOut); });
        time_.start(timeLimit);
        step_ = download_(source_.address, SignedUpdateFeed::largestFeed,
                          [this](const DownloadResult& feed) { takeFeed(feed); });
    }

private:
    void takeFeed(const DownloadResult& feed)
    {
        if (const auto* failure = std::get_if<UpdateFeedFailure>(&feed))
            return finish(*failure);
        content_ = std::get<QByteArray>(feed);
        step_ = download_(signatureAddress(source_.address), SignedUpdateFeed::largestSignature,
                          [this](const DownloadResult& signature) { takeSignature(signature); });
    }

    void takeSignature(const DownloadResult& signature)
    {
        if (const auto* failure = std::get_if<UpdateFeedFailure>(&signature)) {
            const bool isNone =
                *failure == UpdateFeedFailure::noFeed || *failure == UpdateFeedFailure::tooLarge;
            return finish(isNone ? UpdateFeedFailure::notTrusted : *failure);
        }
        if (!isSigned(content_, std::get<QByteArray>(signature), source_.publicKey))
            return finish(UpdateFeedFailure::notTrusted);
        auto items = readAppcast(content_);
        finish(items ? UpdateFeedResult(std::move(*items)) : UpdateFeedFailure::damaged);
    }

    /// This object may be gone afterwards.
    void finish(const UpdateFeedResult& result)
    {
        time_.stop();
        const auto done = std::exchange(done_, nullptr);
        const Token step = std::move(step_);
        done(result);
    }

    SignedUpdateFeed::Source source_;
    SignedUpdateFeed::Download download_;
    std::function<void(UpdateFeedResult)> done_;
    QByteArray content_;
    QTimer time_;
    Token step_;
};

} // namespace

SignedUpdateFeed::SignedUpdateFeed(Source source, Download download, std::chrono::milliseconds timeLimit)
    : source_(std::move(source))
    , download_(std::move(download))
    , timeLimit_(timeLimit)
{}

Token SignedUpdateFeed::load(std::function<void(UpdateFeedResult)> done)
{
    auto loading = std::make_shared<Loading>(source_, download_, timeLimit_, std::move(done));
    return Token([loading]() mutable { loading.reset(); });
}

} // namespace tessel
