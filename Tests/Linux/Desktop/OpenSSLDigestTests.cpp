#include "Desktop/OpenSSLDigest.h"

#include <gtest/gtest.h>

#include <string>

namespace tessel {
namespace {

std::string hexadecimal(std::span<const std::byte> bytes)
{
    std::string text;
    for (const std::byte byte : bytes) {
        constexpr const char* digits = "0123456789abcdef";
        text += digits[std::to_integer<unsigned>(byte) >> 4U];
        text += digits[std::to_integer<unsigned>(byte) & 15U];
    }
    return text;
}

std::string sha256(std::string_view text, std::size_t pieceLength)
{
    const auto hasher = OpenSSLDigest().makeSHA256();
    for (; !text.empty(); text.remove_prefix(std::min(pieceLength, text.size())))
        hasher->update(std::as_bytes(std::span(text.substr(0, pieceLength))));
    return hexadecimal(hasher->finalize());
}

// The examples of FIPS 180-4.
TEST(OpenSSLDigest, ComputesTheStandardsExamples)
{
    EXPECT_EQ(sha256("", 1), "e3b0c44298fc1c149afbf4c8996fb92427ae41e4649b934ca495991b7852b855");
    EXPECT_EQ(sha256("abc", 3), "ba7816bf8f01cfea414140de5dae2223b00361a396177a9cb410ff61f20015ad");
}

TEST(OpenSSLDigest, DoesNotDependOnThePieces)
{
    const std::string text(100'000, 'x');
    EXPECT_EQ(sha256(text, 7), sha256(text, text.size()));
}

} // namespace
} // namespace tessel
