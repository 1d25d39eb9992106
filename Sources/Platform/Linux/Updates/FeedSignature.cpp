#include "Updates/FeedSignature.h"

#include <openssl/evp.h>

#include <memory>

namespace tessel {

namespace {

struct KeyDeleter {
    void operator()(EVP_PKEY* key) const { EVP_PKEY_free(key); }
};
struct ContextDeleter {
    void operator()(EVP_MD_CTX* context) const { EVP_MD_CTX_free(context); }
};

const unsigned char* bytesOf(const QByteArray& content)
{
    return reinterpret_cast<const unsigned char*>(content.constData());
}

std::size_t sizeOf(const QByteArray& content)
{
    return static_cast<std::size_t>(content.size());
}

} // namespace

bool isSigned(const QByteArray& content, const QByteArray& signature, const QByteArray& publicKey)
{
    const auto decoded =
        QByteArray::fromBase64Encoding(signature.trimmed(), QByteArray::AbortOnBase64DecodingErrors);
    const std::unique_ptr<EVP_PKEY, KeyDeleter> key(
        EVP_PKEY_new_raw_public_key(EVP_PKEY_ED25519, nullptr, bytesOf(publicKey), sizeOf(publicKey)));
    const std::unique_ptr<EVP_MD_CTX, ContextDeleter> context(EVP_MD_CTX_new());
    if (!decoded || !key || !context ||
        EVP_DigestVerifyInit(context.get(), nullptr, nullptr, nullptr, key.get()) != 1)
        return false;
    return EVP_DigestVerify(context.get(), bytesOf(*decoded), sizeOf(*decoded), bytesOf(content),
                            sizeOf(content)) == 1;
}

} // namespace tessel
