#pragma once

#include <QtNetwork/QSslCertificate>
#include <QtNetwork/QSslKey>

#include <memory>

namespace tessel::test {

/// What a server proves with who it is.
struct Identity {
    QSslCertificate certificate;
    QSslKey key;
};

/// Somebody whose word about servers counts, or does not.
class CertificateAuthority {
public:
    enum class Validity { current, expired };

    CertificateAuthority();
    ~CertificateAuthority();

    QSslCertificate certificate() const;
    /// For a server of that name, such as "IP:127.0.0.1" or "DNS:example.org".
    Identity issue(const char* name, Validity validity = Validity::current) const;

private:
    struct Parts;
    std::unique_ptr<Parts> parts_;
};

} // namespace tessel::test
