#pragma once

#include <array>
#include <cstddef>
#include <memory>
#include <span>

namespace tessel {

/// One SHA-256 computation (FIPS 180-4).
class SHA256Hasher {
public:
    virtual ~SHA256Hasher() = default;

    virtual void update(std::span<const std::byte> bytes) = 0;
    /// Ends the computation; call it once, last.
    virtual std::array<std::byte, 32> finalize() = 0;
};

/// Makes hashers. May be used from any thread.
class Digest {
public:
    virtual ~Digest() = default;

    /// Never null.
    virtual std::unique_ptr<SHA256Hasher> makeSHA256() const = 0;
};

} // namespace tessel
