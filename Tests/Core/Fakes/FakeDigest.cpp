#include "Fakes/FakeDigest.h"

#include <bit>
#include <cstdint>

#include <gtest/gtest.h>

namespace tessel::test {

namespace {

/// FIPS 180-4, section 4.2.2.
constexpr std::array<std::uint32_t, 64> roundConstants = {
    0x428a2f98, 0x71374491, 0xb5c0fbcf, 0xe9b5dba5, 0x3956c25b, 0x59f111f1, 0x923f82a4, 0xab1c5ed5,
    0xd807aa98, 0x12835b01, 0x243185be, 0x550c7dc3, 0x72be5d74, 0x80deb1fe, 0x9bdc06a7, 0xc19bf174,
    0xe49b69c1, 0xefbe4786, 0x0fc19dc6, 0x240ca1cc, 0x2de92c6f, 0x4a7484aa, 0x5cb0a9dc, 0x76f988da,
    0x983e5152, 0xa831c66d, 0xb00327c8, 0xbf597fc7, 0xc6e00bf3, 0xd5a79147, 0x06ca6351, 0x14292967,
    0x27b70a85, 0x2e1b2138, 0x4d2c6dfc, 0x53380d13, 0x650a7354, 0x766a0abb, 0x81c2c92e, 0x92722c85,
    0xa2bfe8a1, 0xa81a664b, 0xc24b8b70, 0xc76c51a3, 0xd192e819, 0xd6990624, 0xf40e3585, 0x106aa070,
    0x19a4c116, 0x1e376c08, 0x2748774c, 0x34b0bcb5, 0x391c0cb3, 0x4ed8aa4a, 0x5b9cca4f, 0x682e6ff3,
    0x748f82ee, 0x78a5636f, 0x84c87814, 0x8cc70208, 0x90befffa, 0xa4506ceb, 0xbef9a3f7, 0xc67178f2};

constexpr std::size_t blockSize = 64;

class PlainSHA256 final : public SHA256Hasher {
public:
    void update(std::span<const std::byte> bytes) override
    {
        EXPECT_FALSE(isFinal_) << "The hasher was updated after its end.";
        for (const std::byte byte : bytes)
            append(byte);
        length_ += bytes.size();
    }

    std::array<std::byte, 32> finalize() override
    {
        EXPECT_FALSE(isFinal_) << "The hasher was ended twice.";
        isFinal_ = true;
        pad();
        std::array<std::byte, 32> digest{};
        for (std::size_t index = 0; index < digest.size(); ++index)
            digest.at(index) = static_cast<std::byte>(state_.at(index / 4) >> (24 - 8 * (index % 4)));
        return digest;
    }

private:
    void append(std::byte byte)
    {
        block_.at(filled_++) = byte;
        if (filled_ == blockSize) {
            processBlock();
            filled_ = 0;
        }
    }

    /// Section 5.1.1: a one bit, zeros, and the length in bits as a 64-bit number.
    void pad()
    {
        constexpr std::size_t lengthOffset = blockSize - 8;
        append(std::byte{0x80});
        while (filled_ != lengthOffset)
            append(std::byte{0});
        for (int shift = 56; shift >= 0; shift -= 8)
            append(static_cast<std::byte>((length_ * 8) >> shift));
    }

    /// Section 6.2.2.
    void processBlock()
    {
        std::array<std::uint32_t, 64> schedule{};
        for (std::size_t t = 0; t < 16; ++t) {
            for (std::size_t byte = 0; byte < 4; ++byte)
                schedule.at(t) =
                    schedule.at(t) << 8 | std::to_integer<std::uint32_t>(block_.at(4 * t + byte));
        }
        for (std::size_t t = 16; t < schedule.size(); ++t) {
            const std::uint32_t early = schedule.at(t - 15);
            const std::uint32_t late = schedule.at(t - 2);
            schedule.at(t) = (std::rotr(late, 17) ^ std::rotr(late, 19) ^ late >> 10) + schedule.at(t - 7) +
                             (std::rotr(early, 7) ^ std::rotr(early, 18) ^ early >> 3) + schedule.at(t - 16);
        }

        auto [a, b, c, d, e, f, g, h] = state_;
        for (std::size_t t = 0; t < schedule.size(); ++t) {
            const std::uint32_t first = h + (std::rotr(e, 6) ^ std::rotr(e, 11) ^ std::rotr(e, 25)) +
                                        ((e & f) ^ (~e & g)) + roundConstants.at(t) + schedule.at(t);
            const std::uint32_t second =
                (std::rotr(a, 2) ^ std::rotr(a, 13) ^ std::rotr(a, 22)) + ((a & b) ^ (a & c) ^ (b & c));
            h = g;
            g = f;
            f = e;
            e = d + first;
            d = c;
            c = b;
            b = a;
            a = first + second;
        }
        const std::array<std::uint32_t, 8> compressed = {a, b, c, d, e, f, g, h};
        for (std::size_t index = 0; index < state_.size(); ++index)
            state_.at(index) += compressed.at(index);
    }

    /// Section 5.3.3.
    std::array<std::uint32_t, 8> state_ = {0x6a09e667, 0xbb67ae85, 0x3c6ef372, 0xa54ff53a,
                                           0x510e527f, 0x9b05688c, 0x1f83d9ab, 0x5be0cd19};
    std::array<std::byte, blockSize> block_{};
    std::size_t filled_ = 0;
    std::uint64_t length_ = 0;
    bool isFinal_ = false;
};

} // namespace

std::unique_ptr<SHA256Hasher> FakeDigest::makeSHA256() const
{
    return std::make_unique<PlainSHA256>();
}

} // namespace tessel::test
