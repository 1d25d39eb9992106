#include "CertificateAuthority.h"

#include <openssl/bio.h>
#include <openssl/ec.h>
#include <openssl/evp.h>
#include <openssl/pem.h>
#include <openssl/x509v3.h>

#include <stdexcept>

namespace tessel::test {

namespace {

constexpr long day = 86'400; // Seconds.

template <auto free>
struct Freeing {
    template <class Object>
    void operator()(Object* object) const
    {
        free(object);
    }
};
using Key = std::unique_ptr<EVP_PKEY, Freeing<EVP_PKEY_free>>;
using Certificate = std::unique_ptr<X509, Freeing<X509_free>>;
using Extension = std::unique_ptr<X509_EXTENSION, Freeing<X509_EXTENSION_free>>;
using Buffer = std::unique_ptr<BIO, Freeing<BIO_free_all>>;

void require(bool succeeded)
{
    if (!succeeded)
        throw std::runtime_error("A certificate cannot be made.");
}

Key makeKey()
{
    Key key(EVP_EC_gen("P-256"));
    require(key != nullptr);
    return key;
}

void addExtension(X509& certificate, X509& issuer, int kind, const char* value)
{
    X509V3_CTX context;
    X509V3_set_ctx(&context, &issuer, &certificate, nullptr, nullptr, 0);
    const Extension extension(X509V3_EXT_conf_nid(nullptr, &context, kind, value));
    require(extension != nullptr && X509_add_ext(&certificate, extension.get(), -1) == 1);
}

Certificate unsignedCertificate(EVP_PKEY& key, const char* name, CertificateAuthority::Validity validity)
{
    static long serial = 0;
    Certificate certificate(X509_new());
    require(certificate != nullptr);
    const bool isCurrent = validity == CertificateAuthority::Validity::current;
    X509_set_version(certificate.get(), X509_VERSION_3);
    ASN1_INTEGER_set(X509_get_serialNumber(certificate.get()), ++serial);
    X509_gmtime_adj(X509_getm_notBefore(certificate.get()), -10 * day);
    X509_gmtime_adj(X509_getm_notAfter(certificate.get()), isCurrent ? 10 * day : -day);
    X509_set_pubkey(certificate.get(), &key);
    require(X509_NAME_add_entry_by_txt(X509_get_subject_name(certificate.get()), "CN", MBSTRING_ASC,
                                       reinterpret_cast<const unsigned char*>(name), -1, -1, 0) == 1);
    return certificate;
}

QByteArray contentOf(BIO& buffer)
{
    const char* bytes = nullptr;
    const long size = BIO_get_mem_data(&buffer, &bytes);
    return {bytes, static_cast<qsizetype>(size)};
}

QSslCertificate toolkitsCertificate(X509& certificate)
{
    const Buffer buffer(BIO_new(BIO_s_mem()));
    require(PEM_write_bio_X509(buffer.get(), &certificate) == 1);
    return QSslCertificate(contentOf(*buffer), QSsl::Pem);
}

QSslKey toolkitsKey(EVP_PKEY& key)
{
    const Buffer buffer(BIO_new(BIO_s_mem()));
    require(PEM_write_bio_PrivateKey(buffer.get(), &key, nullptr, nullptr, 0, nullptr, nullptr) == 1);
    return QSslKey(contentOf(*buffer), QSsl::Ec);
}

} // namespace

struct CertificateAuthority::Parts {
    Key key = makeKey();
    Certificate certificate = unsignedCertificate(*key, "Authority of a test", Validity::current);
};

CertificateAuthority::CertificateAuthority()
    : parts_(std::make_unique<Parts>())
{
    X509& certificate = *parts_->certificate;
    X509_set_issuer_name(&certificate, X509_get_subject_name(&certificate));
    addExtension(certificate, certificate, NID_basic_constraints, "critical,CA:TRUE");
    addExtension(certificate, certificate, NID_key_usage, "critical,keyCertSign,cRLSign");
    addExtension(certificate, certificate, NID_subject_key_identifier, "hash");
    require(X509_sign(&certificate, parts_->key.get(), EVP_sha256()) != 0);
}

CertificateAuthority::~CertificateAuthority() = default;

QSslCertificate CertificateAuthority::certificate() const
{
    return toolkitsCertificate(*parts_->certificate);
}

Identity CertificateAuthority::issue(const char* name, Validity validity) const
{
    const Key key = makeKey();
    const Certificate certificate = unsignedCertificate(*key, "Server of a test", validity);
    X509_set_issuer_name(certificate.get(), X509_get_subject_name(parts_->certificate.get()));
    addExtension(*certificate, *parts_->certificate, NID_subject_alt_name, name);
    addExtension(*certificate, *parts_->certificate, NID_ext_key_usage, "serverAuth");
    require(X509_sign(certificate.get(), parts_->key.get(), EVP_sha256()) != 0);
    return {toolkitsCertificate(*certificate), toolkitsKey(*key)};
}

} // namespace tessel::test
