#pragma once

#include "Digest.h"

namespace tessel {

/// SHA-256 by CommonCrypto.
class CommonCryptoDigest final : public Digest {
public:
    std::unique_ptr<SHA256Hasher> makeSHA256() const override;
};

} // namespace tessel
