#include "Fakes/FakePasteboard.h"

#include <gtest/gtest.h>

namespace tessel::test {

void FakePasteboard::copyFromElsewhere(std::string text)
{
    change(std::make_shared<const std::string>(std::move(text)), nullptr);
}

void FakePasteboard::copyFromElsewhere(SharedImage image)
{
    change(nullptr, std::move(image));
}

void FakePasteboard::copyFromElsewhere(std::string text, SharedImage image)
{
    change(std::make_shared<const std::string>(std::move(text)), std::move(image));
}

void FakePasteboard::copyUnreadableFromElsewhere()
{
    change(nullptr, nullptr);
}

std::int64_t FakePasteboard::changeCount() const
{
    log_->read("pasteboard.changeCount");
    return changeCount_;
}

SharedText FakePasteboard::string() const
{
    log_->read("pasteboard.string");
    ++valueReads_;
    return text_;
}

SharedImage FakePasteboard::image() const
{
    log_->read("pasteboard.image");
    ++valueReads_;
    return image_;
}

void FakePasteboard::clearContents()
{
    log_->effect("pasteboard.clearContents");
    change(nullptr, nullptr);
    isClearedForWriting_ = true;
}

void FakePasteboard::setString(SharedText text)
{
    log_->effect("pasteboard.setString");
    expectClearedForWriting();
    EXPECT_NE(text, nullptr) << "A null text was written.";
    text_ = std::move(text);
}

void FakePasteboard::writeObjects(SharedImage image)
{
    log_->effect("pasteboard.writeObjects");
    expectClearedForWriting();
    EXPECT_NE(image, nullptr) << "A null image was written.";
    image_ = std::move(image);
}

void FakePasteboard::change(SharedText text, SharedImage image)
{
    text_ = std::move(text);
    image_ = std::move(image);
    isClearedForWriting_ = false;
    ++changeCount_;
}

void FakePasteboard::expectClearedForWriting()
{
    EXPECT_TRUE(isClearedForWriting_) << "The pasteboard was written without being cleared first.";
    isClearedForWriting_ = false;
}

} // namespace tessel::test
