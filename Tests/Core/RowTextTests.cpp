#include <gtest/gtest.h>

#include "Fakes/FakeImage.h"
#include "Panel/RowText.h"

namespace tessel::test {
namespace {

ClipboardItem textItem(std::string text)
{
    return {UUID::random(), std::make_shared<const std::string>(std::move(text)), 0};
}

std::string titleOf(std::string text)
{
    return rowTitle(textItem(std::move(text)));
}

TEST(RowTitle, ShowsEachLineFeedAsOneSpace)
{
    EXPECT_EQ(titleOf("a\nb\nc"), "a b c");
    EXPECT_EQ(titleOf("\n\na\n"), "  a ");
}

TEST(RowTitle, ChangesNothingElse)
{
    EXPECT_EQ(titleOf("a\r\nb\r\n"), "a\r b\r ");
    EXPECT_EQ(titleOf(" \ta\t "), " \ta\t ");
    EXPECT_EQ(titleOf("\r"), "\r");
}

TEST(RowTitle, KeepsAZeroByte)
{
    using namespace std::string_literals;
    EXPECT_EQ(titleOf("a\0\nb"s), "a\0 b"s);
}

TEST(RowTitle, KeepsATextUpToTheLimit)
{
    EXPECT_EQ(titleOf(std::string(500, 'x')), std::string(500, 'x'));
    EXPECT_EQ(titleOf(std::string(rowTitleLimit, 'x')), std::string(rowTitleLimit, 'x'));
}

TEST(RowTitle, CutsALongerTextAtTheLimit)
{
    EXPECT_EQ(titleOf(std::string(rowTitleLimit + 1, 'x')), std::string(rowTitleLimit, 'x'));
    EXPECT_EQ(titleOf(std::string(1'000'000, 'x')), std::string(rowTitleLimit, 'x'));
}

TEST(RowTitle, NeverSplitsACharacterAtTheLimit)
{
    const std::string twoBytes = "\xC3\xA9";
    const std::string threeBytes = "\xE2\x82\xAC";
    const std::string fourBytes = "\xF0\x9F\x98\x80";
    for (const std::string& character : {twoBytes, threeBytes, fourBytes}) {
        // The character begins so many bytes before the limit.
        for (std::size_t inside = 0; inside <= character.size(); ++inside) {
            const std::string filling(rowTitleLimit - inside, 'x');
            const bool fits = inside >= character.size();
            EXPECT_EQ(titleOf(filling + character + "more"), fits ? filling + character : filling)
                << character << " with " << inside << " bytes inside";
        }
    }
}

TEST(RowTitle, KeepsAWholeCharacterThatEndsAtTheLimitOfTheText)
{
    const std::string text = std::string(rowTitleLimit - 4, 'x') + "\xF0\x9F\x98\x80";
    EXPECT_EQ(titleOf(text), text);
}

TEST(RowTitle, OfAnImageIsItsKind)
{
    EXPECT_EQ(rowTitle({UUID::random(), SharedImage(FakeImage::withPNG("abc")), 0}), "Image");
}

TEST(KindLabel, IsTextOrImage)
{
    EXPECT_EQ(kindLabel(textItem("Image")), "Text");
    EXPECT_EQ(kindLabel({UUID::random(), SharedImage(FakeImage::withPNG("abc")), 0}), "Image");
}

} // namespace
} // namespace tessel::test
