#pragma once

#include <QtCore/QByteArray>

#include <memory>

namespace tessel::test {

/// A publisher's key, with which feeds are signed.
class FeedKey {
public:
    FeedKey();
    ~FeedKey();

    /// 32 bytes.
    QByteArray publicKey() const;
    /// In base64.
    QByteArray sign(const QByteArray& content) const;

private:
    struct Parts;
    std::unique_ptr<Parts> parts_;
};

} // namespace tessel::test
