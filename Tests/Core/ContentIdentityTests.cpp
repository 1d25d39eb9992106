#include <cstdint>
#include <random>
#include <vector>

#include <gtest/gtest.h>

#include "DistinctText.h"
#include "Fakes/FakeDigest.h"
#include "Fakes/FakeImage.h"
#include "History/ContentIdentity.h"

namespace tessel::test {
namespace {

const FakeDigest digest;

ClipboardContent textContent(std::string text)
{
    return std::make_shared<const std::string>(std::move(text));
}

/// Texts that look like each other's fingerprints, that hold zero bytes, that differ late, each twice.
std::vector<ClipboardContent> handPickedTexts()
{
    using namespace std::string_literals;
    const std::string longText(5'000, 'x');
    std::vector<ClipboardContent> contents;
    for (int time = 0; time < 2; ++time) {
        for (const std::string& text :
             {""s, "a"s, "a "s, "A"s, "a\0b"s, "a\0c"s, "a\0"s, "text:"s, "text:a"s, "image:16x16"s, "16x16"s,
              "\xC3\xA9"s, "e\xCC\x81"s, longText, longText + "1", longText + "2"})
            contents.push_back(textContent(text));
    }
    return contents;
}

std::vector<ClipboardContent> randomTexts(std::uint32_t seed)
{
    std::mt19937 random(seed);
    constexpr std::string_view alphabet("ab:\0", 4);
    std::vector<ClipboardContent> contents;
    for (int count = 0; count < 100; ++count) {
        std::string text(random() % 4, ' ');
        for (char& character : text)
            character = alphabet[random() % alphabet.size()];
        contents.push_back(textContent(std::move(text)));
    }
    return contents;
}

/// Images with equal and different encodings, prepared and not, and ones that fail at each place with equal,
/// different and equally truncated sizes.
std::vector<ClipboardContent> images()
{
    std::vector<ClipboardContent> contents;
    for (const auto* bytes : {"abc", "abc", "abd", "", "16x16"})
        contents.emplace_back(SharedImage(FakeImage::withPNG(bytes)));
    for (const auto encoding :
         {ImageEncoding::hasNoTIFF, ImageEncoding::tiffCannotBeDecoded, ImageEncoding::bitmapCannotBeEncoded,
          ImageEncoding::bitmapFailsAfterSomeOutput}) {
        for (const Size size : {Size{16, 16}, Size{16.9, 16.1}, Size{17, 16}, Size{1, 616}, Size{-0.5, 0}})
            contents.emplace_back(SharedImage(FakeImage::failing(encoding, size)));
    }
    for (const auto* fingerprint :
         {"image:16x16", "image:ba7816bf8f01cfea414140de5dae2223b00361a396177a9cb410ff61f20015ad", "image:"})
        contents.emplace_back(SharedImage(FakeImage::prepared(fingerprint)));
    return contents;
}

TEST(ContentIdentity, EqualsAnotherExactlyWhenTheFingerprintsAreEqual)
{
    std::vector<ClipboardContent> family = handPickedTexts();
    for (const auto& more : {randomTexts(20), images()})
        family.insert(family.end(), more.begin(), more.end());

    std::size_t equalPairs = 0;
    for (const ClipboardContent& left : family) {
        const ContentIdentity leftIdentity(left, digest);
        for (const ClipboardContent& right : family) {
            const ContentIdentity rightIdentity(right, digest);
            const bool areEqual = leftIdentity.fingerprint() == rightIdentity.fingerprint();
            EXPECT_EQ(leftIdentity == rightIdentity, areEqual)
                << leftIdentity.fingerprint() << " and " << rightIdentity.fingerprint();
            equalPairs += areEqual ? 1 : 0;
        }
    }
    EXPECT_GT(equalPairs, 2 * family.size()) << "The family has too few equal pairs to show anything.";
}

TEST(ContentIdentity, OfATextSharesTheTextInsteadOfCopyingIt)
{
    const auto text = std::make_shared<const std::string>("shared");
    const long ownersBefore = text.use_count();
    const ContentIdentity identity(text, digest);
    EXPECT_EQ(text.use_count(), ownersBefore + 1);
}

TEST(ContentIdentity, OfTextsThatWereComparedAlreadyIsDecidedByTheirAddress)
{
    const int pool = 0;
    const int otherPool = 0;
    const auto text = [] { return std::make_shared<const std::string>("the same"); };
    const auto identity = [&](SharedText of) {
        return ContentIdentity(ClipboardContent(std::move(of)), digest);
    };
    const SharedText marked = DistinctText::marked(text(), &pool);
    EXPECT_EQ(identity(marked), identity(marked));
    // Nobody marks equal texts with one pool; here it shows that they are not read.
    EXPECT_FALSE(identity(marked) == identity(DistinctText::marked(text(), &pool)));
    // Where the marks do not decide, the texts do.
    EXPECT_EQ(identity(marked), identity(text()));
    EXPECT_EQ(identity(text()), identity(marked));
    EXPECT_EQ(identity(marked), identity(DistinctText::marked(text(), &otherPool)));
    EXPECT_FALSE(identity(marked) == identity(std::make_shared<const std::string>("another one")));
    EXPECT_EQ(identity(marked).fingerprint(), "text:the same");
}

TEST(ContentIdentity, OfAnImageDoesNotKeepTheImageAlive)
{
    std::shared_ptr<FakeImage> image = FakeImage::withPNG("abc");
    const std::weak_ptr<FakeImage> weak = image;
    const ContentIdentity identity(SharedImage(std::move(image)), digest);
    EXPECT_TRUE(weak.expired());
    EXPECT_EQ(identity.fingerprint().size(), 70U);
}

} // namespace
} // namespace tessel::test
