#include "DistinctText.h"
#include "PasteboardFixture.h"

namespace tessel {
namespace {

std::string megabytes(std::size_t count)
{
    std::string text;
    text.reserve(count << 20);
    for (std::size_t line = 0; text.size() < count << 20; ++line)
        text += "line " + std::to_string(line) + " of a long text\n";
    return text;
}

TEST_F(PasteboardOnX11, TextsAreCopiedAndPasted)
{
    copy("Grüße 世界");
    EXPECT_EQ(text(), "Grüße 世界");
    EXPECT_FALSE(pasteboard_.image());
    copy("another");
    EXPECT_EQ(text(), "another");
    write("ours ü");
    EXPECT_EQ(text(), "ours ü");
    EXPECT_TRUE(isPasted("ours ü"));
    EXPECT_EQ(paste("STRING"), "ours \xFC");
    copy("theirs again");
    EXPECT_EQ(text(), "theirs again");
}

TEST_F(PasteboardOnX11, OwnWritesCountOnceAndAreReadableAtOnce)
{
    const std::int64_t before = pasteboard_.changeCount();
    const auto value = std::make_shared<const std::string>("ours");
    pasteboard_.clearContents();
    EXPECT_EQ(pasteboard_.changeCount(), before + 1);
    EXPECT_FALSE(pasteboard_.string());
    pasteboard_.setString(value);
    EXPECT_EQ(pasteboard_.string(), value);
    ASSERT_TRUE(isPasted("ours"));
    copy("theirs"); // Expects exactly one more.
}

TEST_F(PasteboardOnX11, ALargeTextComesAndGoesInIncrements)
{
    const std::string large = megabytes(20);
    copy(large);
    EXPECT_TRUE(text() == large);
    write(large + "and more");
    EXPECT_TRUE(isPasted(large + "and more"));
}

TEST_F(PasteboardOnX11, ALargeTextThatIsCopiedAgainIsTheSameText)
{
    const std::string large = megabytes(4);
    std::string other = large;
    other.back() = '!';
    copy(large);
    const SharedText first = pasteboard_.string();
    copy(other);
    const SharedText second = pasteboard_.string();
    EXPECT_NE(second, first);
    EXPECT_FALSE(DistinctText::areEqual(first, second));
    ASSERT_NE(std::get_deleter<DistinctText>(first), nullptr) << "the main thread has to compare them";
    ASSERT_NE(std::get_deleter<DistinctText>(second), nullptr);
    copy(large);
    EXPECT_EQ(pasteboard_.string(), first);
    write("in between");
    copy(other);
    EXPECT_EQ(pasteboard_.string(), second);
    EXPECT_TRUE(*second == other);
}

TEST_F(PasteboardOnX11, ALargeTextIsFreedWhenNobodyHoldsIt)
{
    copy(megabytes(4));
    const std::weak_ptr<const std::string> text = pasteboard_.string();
    copy("small");
    EXPECT_TRUE(text.expired());
}

TEST_F(PasteboardOnX11, APictureIsPreparedAndGoesByteForByte)
{
    const QImage source = testImage(300, 200, QImage::Format_RGB888);
    const std::string png = encodedImage(source, "png");
    copy(png, "image/png");
    const SharedImage image = pasteboard_.image();
    ASSERT_TRUE(image);
    EXPECT_FALSE(pasteboard_.string());
    EXPECT_EQ(image->size(), (Size{300, 200}));
    EXPECT_EQ(image->thumbnail().pixels.size(), 64U * 64U);
    EXPECT_EQ(image->preparedFingerprint(), sha256OfPNG(*image));
    copy("something else");
    pasteboard_.clearContents();
    pasteboard_.writeObjects(image);
    EXPECT_EQ(pasteboard_.image(), image);
    EXPECT_TRUE(isPasted(png, "image/png"));
    const std::string bmp = paste("image/bmp");
    QImage converted;
    ASSERT_TRUE(converted.loadFromData(reinterpret_cast<const uchar*>(bmp.data()),
                                       static_cast<int>(bmp.size()), "bmp"));
    EXPECT_EQ(converted.convertToFormat(QImage::Format_RGB888), source);
}

TEST_F(PasteboardOnX11, ABrokenPictureIsConsumed)
{
    copy("\x89PNG and nothing more", "image/png");
    EXPECT_FALSE(pasteboard_.image());
    EXPECT_FALSE(pasteboard_.string());
}

TEST_F(PasteboardOnX11, AValueOutlivesItsOwner)
{
    const std::string png = encodedImage(testImage(300, 200), "png");
    copy(png, "image/png");
    const std::int64_t count = pasteboard_.changeCount();
    others_.clear();
    ASSERT_TRUE(isPasted(png, "image/png"));
    EXPECT_EQ(pasteboard_.changeCount(), count);
    EXPECT_TRUE(pasteboard_.image());
}

TEST_F(PasteboardOnX11, ADeliberateClearIsKeptAsEmptiness)
{
    copy("word");
    pasteboard_.clearContents();
    EXPECT_FALSE(pasteboard_.string());
    ASSERT_TRUE(isPasted("TARGETS\nTIMESTAMP\nMULTIPLE\n", "TARGETS"));
    EXPECT_EQ(paste(), "");
}

TEST_F(PasteboardOnX11, PrimaryIsOfferedUntilTheNextWrite)
{
    write("ours");
    EXPECT_TRUE(pasteboard_.offerPrimary());
    ASSERT_TRUE(isPasted("ours", "UTF8_STRING", "primary"));
}

TEST_F(PasteboardOnX11, WhatWasThereBeforeDoesNotCount)
{
    copy("before");
    X11Pasteboard second(environment(display().name()));
    EXPECT_EQ(second.changeCount(), 0);
    copy("after");
    ASSERT_TRUE(loop_.runUntil([&] { return second.changeCount() != 0; }));
    EXPECT_EQ(second.changeCount(), 1);
    EXPECT_EQ(*second.string(), "after");
}

TEST_F(PasteboardOnX11, WithoutADisplayItHoldsWhatIsWritten)
{
    X11Pasteboard inert(environment(":no such display"));
    inert.clearContents();
    inert.setString(std::make_shared<const std::string>("text"));
    EXPECT_EQ(*inert.string(), "text");
    EXPECT_EQ(inert.changeCount(), 1);
    EXPECT_FALSE(inert.offerPrimary());
}

TEST_F(PasteboardOnX11, TheLossOfTheDisplayIsSurvived)
{
    VirtualDisplay fragile;
    X11Pasteboard pasteboard(environment(fragile.name()));
    pasteboard.clearContents();
    pasteboard.setString(std::make_shared<const std::string>("text"));
    fragile.kill();
    for (int round = 0; round < 3; ++round) {
        pasteboard.clearContents();
        pasteboard.setString(std::make_shared<const std::string>("more"));
    }
    EXPECT_EQ(*pasteboard.string(), "more");
}

} // namespace
} // namespace tessel
