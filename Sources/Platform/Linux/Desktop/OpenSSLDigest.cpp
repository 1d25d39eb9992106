#include "Desktop/OpenSSLDigest.h"

#include <bit>

#include <openssl/evp.h>

namespace tessel {

namespace {

class OpenSSLHasher final : public SHA256Hasher {
public:
    OpenSSLHasher()
        : context_(EVP_MD_CTX_new())
    {
        EVP_DigestInit_ex(context_.get(), EVP_sha256(), nullptr);
    }

    void update(std::span<const std::byte> bytes) override
    {
        EVP_DigestUpdate(context_.get(), bytes.data(), bytes.size());
    }

    std::array<std::byte, 32> finalize() override
    {
        std::array<unsigned char, 32> digest{};
        EVP_DigestFinal_ex(context_.get(), digest.data(), nullptr);
        return std::bit_cast<std::array<std::byte, 32>>(digest);
    }

private:
    struct Deleter {
        void operator()(EVP_MD_CTX* context) const { EVP_MD_CTX_free(context); }
    };
    std::unique_ptr<EVP_MD_CTX, Deleter> context_;
};

} // namespace

std::unique_ptr<SHA256Hasher> OpenSSLDigest::makeSHA256() const
{
    return std::make_unique<OpenSSLHasher>();
}

} // namespace tessel
