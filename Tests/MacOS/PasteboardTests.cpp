#include <memory>
#include <optional>
#include <string>

#include "AppKitPasteboard.h"
#include "Support/MacOSTest.h"

namespace tessel::test {
namespace {

class PasteboardTests : public MacOSTest {
protected:
    PasteboardTests()
    {
        expectCall("[NSPasteboard generalPasteboard]", Object{"pasteboard"});
        pasteboard.emplace([](const PlatformImage&) { return "image:prepared"; });
    }

    void expectLookForSecrets(Answer found)
    {
        expectCall("[pasteboard availableTypeFromArray:@[@\"org.nspasteboard.ConcealedType\", "
                   "@\"org.nspasteboard.TransientType\"]]",
                   std::move(found));
    }

    /// The pasteboard's plain string is read as the type `public.utf8-plain-text`.
    SharedText stringWhenTheSystemHas(Answer string)
    {
        expectLookForSecrets(Nil{});
        expectCall("[pasteboard stringForType:@\"public.utf8-plain-text\"]", std::move(string));
        return pasteboard->string();
    }

    SharedImage readImage()
    {
        expectLookForSecrets(Nil{});
        expectCall("[NSImage initWithPasteboard:pasteboard]", Object{"image"});
        return pasteboard->image();
    }

    std::optional<AppKitPasteboard> pasteboard;
};

TEST_F(PasteboardTests, TheChangeCountIsTheGeneralPasteboards)
{
    expectCall("[pasteboard changeCount]", 41);
    EXPECT_EQ(pasteboard->changeCount(), 41);
}

TEST_F(PasteboardTests, ReadsThePlainString)
{
    const SharedText text = stringWhenTheSystemHas("  h\xC3\xA9llo\n");
    ASSERT_TRUE(text);
    EXPECT_EQ(*text, "  h\xC3\xA9llo\n");
}

TEST_F(PasteboardTests, AStringIsReadBeyondAZero)
{
    const SharedText text = stringWhenTheSystemHas(std::string("a\0b", 3));
    ASSERT_TRUE(text);
    EXPECT_EQ(*text, std::string("a\0b", 3));
}

TEST_F(PasteboardTests, AnEmptyStringIsAString)
{
    const SharedText text = stringWhenTheSystemHas("");
    ASSERT_TRUE(text);
    EXPECT_EQ(*text, "");
}

TEST_F(PasteboardTests, WhatHasNoUTF8IsReplacedAndTheRestIsKept)
{
    // Half of a surrogate pair.
    const SharedText text = stringWhenTheSystemHas("a\xFFz");
    ASSERT_TRUE(text);
    EXPECT_EQ(*text, "a?z");
}

TEST_F(PasteboardTests, WithoutAStringThereIsNone)
{
    EXPECT_EQ(stringWhenTheSystemHas(Nil{}), nullptr);
}

TEST_F(PasteboardTests, MakesAnImageOfThePasteboardAndPreparesItsIdentity)
{
    const SharedImage image = readImage();
    ASSERT_TRUE(image);
    EXPECT_EQ(image->preparedFingerprint(), "image:prepared");
}

TEST_F(PasteboardTests, WithoutAnImageThereIsNone)
{
    expectLookForSecrets(Nil{});
    expectCall("[NSImage initWithPasteboard:pasteboard]", Nil{});
    EXPECT_EQ(pasteboard->image(), nullptr);
}

TEST_F(PasteboardTests, AConcealedValueIsNeitherStringNorImage)
{
    expectLookForSecrets("org.nspasteboard.ConcealedType");
    EXPECT_EQ(pasteboard->string(), nullptr);
    expectLookForSecrets("org.nspasteboard.ConcealedType");
    EXPECT_EQ(pasteboard->image(), nullptr);
}

TEST_F(PasteboardTests, ATransientValueIsNeitherStringNorImage)
{
    expectLookForSecrets("org.nspasteboard.TransientType");
    EXPECT_EQ(pasteboard->string(), nullptr);
    expectLookForSecrets("org.nspasteboard.TransientType");
    EXPECT_EQ(pasteboard->image(), nullptr);
}

TEST_F(PasteboardTests, ClearsTheContents)
{
    expectCall("[pasteboard clearContents]", 42);
    pasteboard->clearContents();
}

TEST_F(PasteboardTests, WritesATextWithThePlainStringTypeAndNoOther)
{
    expectCall("[pasteboard setString:@\"h\xC3\xA9llo\" forType:@\"public.utf8-plain-text\"]", true);
    pasteboard->setString(std::make_shared<const std::string>("h\xC3\xA9llo"));
}

TEST_F(PasteboardTests, WritesATextBeyondAZero)
{
    const std::string text("a\0b", 3);
    expectCall("[pasteboard setString:@\"" + text + "\" forType:@\"public.utf8-plain-text\"]", true);
    pasteboard->setString(std::make_shared<const std::string>(text));
}

TEST_F(PasteboardTests, ATextThatIsNoUTF8IsNotWritten)
{
    pasteboard->setString(std::make_shared<const std::string>("a\xFFz"));
}

TEST_F(PasteboardTests, WritesTheOneImageObjectThatWasRead)
{
    const SharedImage image = readImage();
    expectCall("[pasteboard writeObjects:@[image]]", true);
    pasteboard->writeObjects(image);
}

} // namespace
} // namespace tessel::test
