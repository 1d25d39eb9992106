#include <algorithm>
#include <string_view>
#include <vector>

#include "CommonCryptoDigest.h"
#include "Support/MacOSTest.h"

namespace tessel::test {
namespace {

using DigestTests = MacOSTest;

std::vector<std::byte> bytes(std::string_view text)
{
    std::vector<std::byte> result(text.size());
    std::transform(text.begin(), text.end(), result.begin(),
                   [](char character) { return std::byte(character); });
    return result;
}

TEST_F(DigestTests, HashesPieceByPiece)
{
    expectCall("CC_SHA256_Init(context)", 1);
    const auto hasher = CommonCryptoDigest().makeSHA256();
    expectCall("CC_SHA256_Update(context, data, 2)", 1);
    hasher->update(bytes("ab"));
    expectCall("CC_SHA256_Update(context, data, 1)", 1);
    hasher->update(bytes("c"));
    expectCall("CC_SHA256_Final(digest, context)", 1);
    const auto digest = hasher->finalize();
    // The example of FIPS 180-4 for "abc".
    EXPECT_EQ(digest[0], std::byte(0xBA));
    EXPECT_EQ(digest[1], std::byte(0x78));
    EXPECT_EQ(digest[31], std::byte(0xAD));
}

TEST_F(DigestTests, NoBytesAreNoPiece)
{
    expectCall("CC_SHA256_Init(context)", 1);
    const auto hasher = CommonCryptoDigest().makeSHA256();
    hasher->update({});
    expectCall("CC_SHA256_Final(digest, context)", 1);
    EXPECT_EQ(hasher->finalize()[0], std::byte(0xE3));
}

} // namespace
} // namespace tessel::test
