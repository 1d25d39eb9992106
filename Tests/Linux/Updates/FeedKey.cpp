#include "FeedKey.h"

#include <openssl/evp.h>

#include <stdexcept>

namespace tessel::test {

namespace {

struct KeyDeleter {
    void operator()(EVP_PKEY* key) const { EVP_PKEY_free(key); }
};
struct ContextDeleter {
    void operator()(EVP_MD_CTX* context) const { EVP_MD_CTX_free(context); }
};

unsigned char* bytesOf(QByteArray& content)
{
    return reinterpret_cast<unsigned char*>(content.data());
}

} // namespace

struct FeedKey::Parts {
    std::unique_ptr<EVP_PKEY, KeyDeleter> key{EVP_PKEY_Q_keygen(nullptr, nullptr, "ED25519")};
};

FeedKey::FeedKey()
    : parts_(std::make_unique<Parts>())
{}

FeedKey::~FeedKey() = default;

QByteArray FeedKey::publicKey() const
{
    QByteArray key(32, '\0');
    std::size_t size = 32;
    if (EVP_PKEY_get_raw_public_key(parts_->key.get(), bytesOf(key), &size) != 1)
        throw std::runtime_error("The key has no public half.");
    return key;
}

QByteArray FeedKey::sign(const QByteArray& content) const
{
    QByteArray signature(64, '\0');
    std::size_t size = 64;
    const std::unique_ptr<EVP_MD_CTX, ContextDeleter> context(EVP_MD_CTX_new());
    if (EVP_DigestSignInit(context.get(), nullptr, nullptr, nullptr, parts_->key.get()) != 1 ||
        EVP_DigestSign(context.get(), bytesOf(signature), &size,
                       reinterpret_cast<const unsigned char*>(content.constData()),
                       static_cast<std::size_t>(content.size())) != 1)
        throw std::runtime_error("The content cannot be signed.");
    return signature.toBase64();
}

} // namespace tessel::test
