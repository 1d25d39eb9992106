#import "CommonCryptoDigest.h"

#include <algorithm>
#include <bit>
#include <limits>

#include <CommonCrypto/CommonDigest.h>

namespace tessel {

namespace {

class CommonCryptoHasher final : public SHA256Hasher {
public:
    CommonCryptoHasher() { CC_SHA256_Init(&context_); }

    void update(std::span<const std::byte> bytes) override
    {
        // Lengths have 32 bits there.
        constexpr std::size_t longestPiece = std::numeric_limits<CC_LONG>::max();
        while (!bytes.empty()) {
            const auto piece = bytes.first(std::min(bytes.size(), longestPiece));
            CC_SHA256_Update(&context_, piece.data(), static_cast<CC_LONG>(piece.size()));
            bytes = bytes.subspan(piece.size());
        }
    }

    std::array<std::byte, 32> finalize() override
    {
        std::array<unsigned char, CC_SHA256_DIGEST_LENGTH> digest{};
        CC_SHA256_Final(digest.data(), &context_);
        return std::bit_cast<std::array<std::byte, 32>>(digest);
    }

private:
    CC_SHA256_CTX context_;
};

} // namespace

std::unique_ptr<SHA256Hasher> CommonCryptoDigest::makeSHA256() const
{
    return std::make_unique<CommonCryptoHasher>();
}

} // namespace tessel
