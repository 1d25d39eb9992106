#include "Updates/FeedSignature.h"

#include <gtest/gtest.h>

#include "FeedKey.h"

namespace tessel::test {
namespace {

TEST(FeedSignature, IsRightForTheBytesThatWereSigned)
{
    const FeedKey key;
    for (const QByteArray& content : {QByteArray(), QByteArray("feed"), QByteArray(1'000'000, 'x')})
        EXPECT_TRUE(isSigned(content, key.sign(content), key.publicKey()));
}

TEST(FeedSignature, IsThatOfTheStandard)
{
    // RFC 8032, section 7.1, test 2.
    const QByteArray key =
        QByteArray::fromHex("3d4017c3e843895a92b70aa74d1b7ebc9c982ccf2ec4968cc0cd55f12af4660c");
    const QByteArray signature =
        QByteArray::fromHex("92a009a9f0d4cab8720e820b5f642540a2b27b5416503f8fb3762223ebdb69da"
                            "085ac1e43e15996e458f3613d0f11d8c387b2eaeb4302aeeb00d291612bb0c00");
    EXPECT_TRUE(isSigned(QByteArray::fromHex("72"), signature.toBase64(), key));
}

TEST(FeedSignature, MayHaveWhiteSpaceAroundIt)
{
    const FeedKey key;
    EXPECT_TRUE(isSigned("feed", "\n " + key.sign("feed") + "\r\n", key.publicKey()));
}

TEST(FeedSignature, IsWrongForAnyOtherBytes)
{
    const FeedKey key;
    const QByteArray signature = key.sign("feed");
    for (const char* other : {"Feed", "feed\n", "fee", ""})
        EXPECT_FALSE(isSigned(other, signature, key.publicKey())) << other;
}

TEST(FeedSignature, IsWrongByAnyOtherKey)
{
    EXPECT_FALSE(isSigned("feed", FeedKey().sign("feed"), FeedKey().publicKey()));
    const FeedKey key;
    EXPECT_FALSE(isSigned("feed", key.sign("feed"), key.publicKey().chopped(1)));
    EXPECT_FALSE(isSigned("feed", key.sign("feed"), {}));
}

TEST(FeedSignature, IsWrongWhenItIsNone)
{
    const FeedKey key;
    const QByteArray signature = key.sign("feed");
    for (const QByteArray& none :
         {QByteArray(), QByteArray("feed"), signature.chopped(4), signature + "!", signature + signature,
          QByteArray("<html>Not found</html>"), QByteArray::fromBase64(signature)})
        EXPECT_FALSE(isSigned("feed", none, key.publicKey())) << none.toStdString();
}

} // namespace
} // namespace tessel::test
