#include <sstream>
#include <string>
#include <string_view>

#include <gtest/gtest.h>

#include "Fakes/FakeDigest.h"

namespace tessel::test {
namespace {

std::string hexadecimal(const std::array<std::byte, 32>& digest)
{
    std::ostringstream text;
    text << std::hex;
    for (const std::byte byte : digest)
        text << (std::to_integer<int>(byte) >> 4) << (std::to_integer<int>(byte) & 0xF);
    return text.str();
}

std::string sha256(std::string_view message, std::size_t pieceSize)
{
    const auto hasher = FakeDigest().makeSHA256();
    auto rest = std::as_bytes(std::span(message));
    while (!rest.empty()) {
        const std::size_t size = std::min(pieceSize, rest.size());
        hasher->update(rest.first(size));
        rest = rest.subspan(size);
    }
    return hexadecimal(hasher->finalize());
}

constexpr std::string_view twoBlockMessage = "abcdbcdecdefdefgefghfghighijhijkijkljklmklmnlmnomnopnopq";

// The known answers are those of the standard's examples.

TEST(FakeDigest, HashesTheEmptyMessage)
{
    EXPECT_EQ(sha256("", 1), "e3b0c44298fc1c149afbf4c8996fb92427ae41e4649b934ca495991b7852b855");
}

TEST(FakeDigest, HashesAMessageOfOneBlock)
{
    EXPECT_EQ(sha256("abc", 3), "ba7816bf8f01cfea414140de5dae2223b00361a396177a9cb410ff61f20015ad");
}

TEST(FakeDigest, HashesAMessageThatItsPaddingMakesTwoBlocksLong)
{
    EXPECT_EQ(sha256(twoBlockMessage, 56),
              "248d6a61d20638b8e5c026930c3e6039a33ce45964ff2167f6ecedd419db06c1");
}

TEST(FakeDigest, HashesAMillionBytesWhateverTheirPieces)
{
    const std::string message(1'000'000, 'a');
    constexpr auto expected = "cdc76e5c9914fb9281a1c7e284d73e67f1809a48a497200e046d39ccc7112cd0";
    EXPECT_EQ(sha256(message, message.size()), expected);
    EXPECT_EQ(sha256(message, 7), expected);
}

} // namespace
} // namespace tessel::test
