#pragma once

#include "Digest.h"

namespace tessel {

/// SHA-256 by libcrypto, which uses the processor's instructions for it where there are any.
class OpenSSLDigest final : public Digest {
public:
    std::unique_ptr<SHA256Hasher> makeSHA256() const override;
};

} // namespace tessel
