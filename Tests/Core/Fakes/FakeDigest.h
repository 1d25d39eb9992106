#pragma once

#include "Digest.h"

namespace tessel::test {

/// SHA-256 (FIPS 180-4) in its plainest form, so that the tests need no library for it.
class FakeDigest final : public Digest {
public:
    std::unique_ptr<SHA256Hasher> makeSHA256() const override;
};

} // namespace tessel::test
