#pragma once

#include <QtCore/QByteArray>
#include <QtCore/QUrl>

#include <chrono>
#include <functional>

#include "UpdateFeed.h"
#include "Updates/DownloadResult.h"

namespace tessel {

/// An appcast at an address of the network, with a detached signature beside it: at the same address with
/// ".sig" at the end of its path. Nothing of it is read before that signature is found to be right.
class SignedUpdateFeed final : public UpdateFeed {
public:
    struct Source {
        QUrl address;         ///< Of the scheme `https`.
        QByteArray publicKey; ///< Ed25519, `feedKeySize` bytes.
    };
    /// Loads a file of at most that many bytes over HTTPS; see `downloadByProcess`.
    using Download = std::function<Token(const QUrl& address, qint64 largestSize,
                                         std::function<void(DownloadResult)> done)>;

    static constexpr qint64 largestFeed = 1'048'576; ///< Bytes.
    static constexpr qint64 largestSignature = 1024; ///< Bytes.
    /// For the feed and its signature together.
    static constexpr std::chrono::seconds usualTimeLimit{30};

    SignedUpdateFeed(Source source, Download download, std::chrono::milliseconds timeLimit = usualTimeLimit);

    Token load(std::function<void(UpdateFeedResult)> done) override;

private:
    Source source_;
    Download download_;
    std::chrono::milliseconds timeLimit_;
};

} // namespace tessel
